#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "datetime/TimeZone.hpp"
#include "platform/Lifetime.hpp"
#include "screens/map/MapContext.hpp"
#include "ui/View.hpp"

namespace Hilalor::Screens {

/// Lets the user choose a place by a click on a map of the world, and says what it is called. Fills
/// the sheet that it is shown in, and closes it by its buttons. Keeps nothing: what was chosen is
/// handed back on "Confirm".
class MapPickerView final : public Ui::View {
 public:
  using OnConfirm = std::function<void(LocationCoordinate coordinate, const std::string& name,
                                       const TimeZone& timeZone)>;

  /// Begins at the coordinate where there is one, with the pin on it.
  MapPickerView(const MapContext& context, std::optional<LocationCoordinate> initialCoordinate,
                OnConfirm onConfirm);
  ~MapPickerView() override;

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  // The parts, from top to bottom.
  [[nodiscard]] QWidget* headerBar();
  [[nodiscard]] QWidget* map(std::optional<LocationCoordinate> initialCoordinate);
  [[nodiscard]] QWidget* footerBar();
  [[nodiscard]] QWidget* status();

  void choose(LocationCoordinate coordinate);
  void resolveLocation(LocationCoordinate coordinate);
  void take(const std::vector<Placemark>& placemarks);
  void confirm();
  void dismiss();

  MapContext context_;
  OnConfirm onConfirm_;

  std::optional<LocationCoordinate> pinCoordinate_;
  std::string locationName_;  // Empty until a lookup answers.
  TimeZone detectedTimeZone_ = TimeZone::current();
  bool isResolving_ = false;

  Lifetime lifetime_;
};

}  // namespace Hilalor::Screens
