#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "screens/map/MapContext.hpp"
#include "screens/map/MapView.hpp"
#include "ui/SearchField.hpp"
#include "ui/View.hpp"

namespace Hilalor::Screens {

/// A map that turns a click, or a place found by its name, into a coordinate, and shows a pin on
/// the chosen one.
class MapClickView final : public Ui::View {
 public:
  /// The chosen coordinate, which somebody else keeps.
  struct Pin {
    std::function<std::optional<LocationCoordinate>()> value;
    std::function<void(std::optional<LocationCoordinate>)> assign;
  };

  /// Begins near the coordinate, or without one with the lands from the Atlantic to India.
  /// `onTap` is told every chosen coordinate, after the pin was moved there.
  MapClickView(const MapContext& context, Pin pin,
               std::optional<LocationCoordinate> initialCoordinate,
               std::function<void(LocationCoordinate)> onTap);
  ~MapClickView() override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Coordinator;

  [[nodiscard]] QWidget* map(std::optional<LocationCoordinate> initialCoordinate);
  void updatePin();
  void addSearch();
  void addZoomButtons();
  [[nodiscard]] std::vector<Ui::Suggestion> find(const QString& text);
  void goTo(const FoundPlace& place);

  MapContext context_;
  Pin pin_;
  std::function<void(LocationCoordinate)> onTap_;
  std::shared_ptr<Coordinator> coordinator_;
  MapView* map_ = nullptr;
  Ui::SearchField* search_ = nullptr;
  QWidget* zoomButtons_ = nullptr;
  std::vector<FoundPlace> found_;
};

}  // namespace Hilalor::Screens
