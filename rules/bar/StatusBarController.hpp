#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/MouseMonitor.hpp"
#include "platform/Panel.hpp"
#include "platform/RunLoop.hpp"
#include "platform/Signal.hpp"
#include "platform/StatusItem.hpp"
#include "platform/Updater.hpp"
#include "rules/bar/BarContext.hpp"
#include "rules/prayer/PrayerCourse.hpp"

namespace Hilalor {

/// The program's presence in the bar: the item, its text, and what a click on it does. Its
/// 30-second timer keeps the text right and asks the alert monitor whether a prayer is due; so does
/// the end of the machine's sleep, at once. Main thread.
class StatusBarController {
 public:
  /// Puts the item with its first text into the bar. `updater` is null in a build without updates.
  StatusBarController(const BarContext& context, Updater* updater);
  StatusBarController(const StatusBarController&) = delete;
  StatusBarController& operator=(const StatusBarController&) = delete;
  ~StatusBarController();

  /// Shows the settings window, or brings the one that is open to the front. The panel stays.
  void openSettings();

 private:
  /// A press outside the panel that closed it. If it was on the item, the click that the bar
  /// reports for it must not open the panel again.
  struct ClosingPress {
    std::optional<Point> place;             // Absent where the desktop does not tell.
    std::unique_ptr<EventMonitor> monitor;  // The panel's, which waits for the release.
    std::unique_ptr<Timer> forgetting;
  };

  // The item and its text.
  void fillMenus(StatusButton& button);
  void subscribe();
  void tick();
  void updateTitle();

  // The panel.
  void handleClick(const StatusItemClick& click);
  void openCalendar(KeyboardAtOpening keyboard);
  [[nodiscard]] std::optional<Advice> advice() const;
  void openCalendarFromMenu();
  void bringCalendar();
  void close();
  [[nodiscard]] std::optional<Rect> itemPlace(const std::optional<Point>& pointer) const;
  [[nodiscard]] bool isPointerOnItem(const StatusItemClick& click) const;
  void position(Size size);
  void resize(Size size);
  /// The greatest height of the panel, which it is told.
  double keepOnScreen();
  void reopenPanelIfVisible();
  void closeForPress(Point place);
  void closeForDismissal(Dismissal how);
  void forgetClosingPressAfter(Seconds delay);
  [[nodiscard]] bool isOfClosingPress(const StatusItemClick& click) const;
  void applyTheme(AppTheme theme);

  const Platform& platform_;
  Surfaces& surfaces_;
  AppSettings& settings_;
  LocationManager& locationManager_;
  PrayerNotificationManager& alerts_;
  PrayerCourse course_{settings_};
  std::unique_ptr<StatusItem> statusItem_;
  std::optional<Point> pointerOnItem_;  // At the last click.
  std::unique_ptr<Panel> panel_;
  std::unique_ptr<EventMonitor> eventMonitor_;
  std::optional<ClosingPress> closingPress_;
  std::unique_ptr<Timer> reopening_;
  std::unique_ptr<Window> settingsWindow_;
  Updater* updater_;
  std::unique_ptr<Timer> timer_;
  unsigned ticks_ = 0;
  std::vector<Subscription> subscriptions_;
};

}  // namespace Hilalor
