#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "datetime/Moment.hpp"
#include "platform/MouseMonitor.hpp"
#include "platform/Panel.hpp"
#include "platform/RunLoop.hpp"
#include "platform/Signal.hpp"
#include "platform/StatusItem.hpp"
#include "platform/Updater.hpp"
#include "rules/bar/BarContext.hpp"
#include "rules/bar/ItemClicks.hpp"
#include "rules/prayer/PrayerCourse.hpp"

namespace Hilalor {

/// The program's presence in the bar: the item, its text, and what a click on it does. Its
/// 30-second timer keeps the text right and asks the notification manager whether a prayer is due;
/// so does the end of the machine's sleep, at once. Main thread.
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
  // The item and its text.
  void fillMenus(StatusButton& button);
  void subscribe();
  void tick();
  void updateTitle(const Moment& moment);

  // The panel.
  void handleClick(const StatusItemClick& click);
  void openCalendar(KeyboardAtOpening keyboard);
  [[nodiscard]] std::optional<Advice> advice() const;
  void openCalendarFromMenu();
  void bringCalendar();
  void close();
  [[nodiscard]] std::optional<Rect> itemPlace() const;
  void position(Size size);
  void resize(Size size);
  /// Tells the panel its greatest height, and returns it.
  double keepOnScreen();
  void reopenPanelIfVisible();
  void closeForPress(Point place);
  void stopWatchingAfterRelease();
  void closeForDismissal(Dismissal how);
  void choosePlace();
  void applyTheme(AppTheme theme);

  BarContext context_;
  const Platform& platform_;
  AppSettings& settings_;
  PrayerCourse course_{settings_};
  std::unique_ptr<StatusItem> statusItem_;
  ItemClicks clicks_;
  std::optional<Point> pointerOnItem_;  // At the last click.
  std::unique_ptr<Panel> panel_;
  // While the panel is open, and after a press that closed it until the release.
  std::unique_ptr<EventMonitor> eventMonitor_;
  std::unique_ptr<Timer> unwatching_;
  std::unique_ptr<Timer> reopening_;
  std::unique_ptr<Window> settingsWindow_;
  std::unique_ptr<Window> placeWindow_;
  Updater* updater_;
  std::unique_ptr<Timer> timer_;
  unsigned ticks_ = 0;
  std::vector<Subscription> subscriptions_;
};

}  // namespace Hilalor
