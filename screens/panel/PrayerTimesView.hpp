#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "datetime/Date.hpp"
#include "platform/Signal.hpp"
#include "rules/prayer/PrayerList.hpp"
#include "screens/panel/PanelContext.hpp"
#include "ui/View.hpp"

namespace Hilalor::Screens {

/// The prayer times of a day, the next one to come highlighted. Looks at the clock every minute, so
/// that the highlight moves on while the list is shown.
class PrayerTimesView final : public Ui::View {
 public:
  /// Any moment of the day to show. While no place is known the user is led to choose one, of which
  /// `onChoosePlace` is told.
  PrayerTimesView(Date displayDate, const PanelContext& context,
                  std::function<void()> onChoosePlace);
  ~PrayerTimesView() override;

  void setDisplayDate(Date displayDate);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  [[nodiscard]] QWidget* header(std::function<void()> onChoosePlace);
  [[nodiscard]] QWidget* place(std::function<void()> onChoosePlace);
  [[nodiscard]] QWidget* prayerRows();
  [[nodiscard]] QWidget* prayerRow(ListedTime listed);

  /// Null where the day has no such time, or does not show it.
  [[nodiscard]] const PrayerRow* shownRow(ListedTime listed) const;
  void refreshNow();

  const AppSettings& settings_;
  const Clock& clock_;
  RunLoop& loop_;
  PrayerCourse course_;
  Date displayDate_;
  Date now_;
  PrayerList prayers_;
  std::unique_ptr<Timer> minuteTimer_;
  std::vector<Subscription> changes_;
};

}  // namespace Hilalor::Screens
