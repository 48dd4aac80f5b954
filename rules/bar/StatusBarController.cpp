#include "rules/bar/StatusBarController.hpp"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "platform/Delivery.hpp"
#include "rules/bar/MenuBarTitle.hpp"
#include "rules/bar/PanelPlacement.hpp"

namespace Hilalor {
namespace {

// Every minute gets a tick, so that no prayer minute is missed.
constexpr Seconds kTickPeriod{30};
// An update of the machine's time zones is seen within the hour.
constexpr unsigned kTicksToNewRules = 120;
constexpr Seconds kReopeningDelay{0.05};
// Bars that draw the menu take about this long to close it.
constexpr Seconds kMenuClosing{0.25};
// How far the pointer may move between the press and the release of a click.
constexpr double kClickReach = 8;
// Bars report a click over D-Bus, a moment after the release.
constexpr Seconds kClickReportDelay{0.3};
// From a press whose release nobody tells to the report of its click.
constexpr Seconds kWholeClick{0.6};

constexpr const char* kAdviceKey = "didPutItemAdviceAway";

Appearance appearance(AppTheme theme) {
  switch (theme) {
    case AppTheme::system:
      return Appearance::system;
    case AppTheme::light:
      return Appearance::light;
    case AppTheme::dark:
      return Appearance::dark;
  }
  return Appearance::system;
}

}  // namespace

StatusBarController::StatusBarController(const BarContext& context, Updater* updater)
    : platform_(context.platform),
      surfaces_(context.surfaces),
      settings_(context.settings),
      locationManager_(context.locationManager),
      alerts_(context.notificationManager),
      statusItem_(platform_.statusBar.makeItem()),
      updater_(updater) {
  if (auto* button = statusItem_->button()) {
    button->setTitle(menuBarTitle(course_, platform_.clock.now()));
    button->setAction([this](const StatusItemClick& click) { handleClick(click); });
    fillMenus(*button);
  }
  statusItem_->setUnseenHandler([this] { bringCalendar(); });
  platform_.application.setReopenHandler([this] { bringCalendar(); });
  platform_.application.setResumeHandler([this] {
    tick();
    locationManager_.retryFix();
  });
  timer_ = platform_.loop.repeating(kTickPeriod, [this] { tick(); });
  subscribe();
}

StatusBarController::~StatusBarController() {
  platform_.application.setReopenHandler({});
  platform_.application.setResumeHandler({});
}

void StatusBarController::fillMenus(StatusButton& button) {
  const MenuItem quit{"Quit Hilalor", 'q', [this] { platform_.application.terminate(); }};
  button.setContextMenu({quit});
  button.setHostedMenu({{"Open Calendar", 'o', [this] { openCalendarFromMenu(); }},
                        {"Settings...", 's', [this] { openSettings(); }},
                        {},
                        quit});
}

void StatusBarController::subscribe() {
  const auto retitle = onNextPass(platform_.loop, [this](const auto&...) { updateTitle(); });
  auto [style, calendar] =
      subscribeToLatest(settings_.menuBarStyle.publisher(), settings_.primaryCalendar.publisher(),
                        FirstPair::told, retitle);
  subscriptions_.push_back(std::move(style));
  subscriptions_.push_back(std::move(calendar));
  subscriptions_.push_back(settings_.theme.publisher().subscribe(
      onNextPass(platform_.loop, [this](AppTheme theme) { applyTheme(theme); })));
  subscriptions_.push_back(alerts_.activeAthanTitle.subscribe(retitle));
  auto [showCalendar, showPrayerTimes] = subscribeToLatest(
      settings_.showCalendar.publisher(), settings_.showPrayerTimes.publisher(), FirstPair::dropped,
      onNextPass(platform_.loop, [this](bool, bool) { reopenPanelIfVisible(); }));
  subscriptions_.push_back(std::move(showCalendar));
  subscriptions_.push_back(std::move(showPrayerTimes));
}

void StatusBarController::tick() {
  if (++ticks_ % kTicksToNewRules == 0) TimeZone::rereadChangedRules();
  updateTitle();
  alerts_.checkAndNotify();
}

void StatusBarController::updateTitle() {
  auto* button = statusItem_->button();
  if (button == nullptr) return;
  const auto& announced = alerts_.activeAthanTitle.value();
  button->setTitle(announced ? athanTitle(*announced)
                             : menuBarTitle(course_, platform_.clock.now()));
}

void StatusBarController::handleClick(const StatusItemClick& click) {
  pointerOnItem_ = isPointerOnItem(click) ? click.pointer : std::nullopt;
  reopening_.reset();
  const bool closedThePanel = isOfClosingPress(click);
  closingPress_.reset();
  if (click.button == StatusItemClick::Button::right) return close();
  if (closedThePanel) return;
  if (panel_ && panel_->isVisible()) return close();
  // A click without the pointer came from the keyboard, which then belongs to the panel.
  openCalendar(pointerOnItem_ ? KeyboardAtOpening::leftWhereItIs : KeyboardAtOpening::taken);
}

void StatusBarController::openCalendar(KeyboardAtOpening keyboard) {
  platform_.defaults.lookAgain();
  panel_ = surfaces_.makeCalendarPanel(
      {
          .onSizeChange = [this](Size size) { resize(size); },
          .onOpenSettings = [this] { openSettings(); },
          .onDismiss = [this](Dismissal how) { closeForDismissal(how); },
      },
      advice());
  panel_->setAppearance(appearance(settings_.theme));
  keepOnScreen();
  position(panel_->fittingSize());
  panel_->orderFront(keyboard);
  eventMonitor_ = platform_.mouse.addGlobalMonitor(
      {.onPress = [this](Point place) { closeForPress(place); },
       .onRelease = [this] { forgetClosingPressAfter(kClickReportDelay); }});
  if (settings_.locationMode == LocationMode::automatic) locationManager_.lookAgain();
}

std::optional<Advice> StatusBarController::advice() const {
  const auto text = statusItem_->advice();
  if (!text || platform_.defaults.boolean(kAdviceKey).value_or(false)) return std::nullopt;
  return Advice{.text = *text,
                .onPutAway = [this] { platform_.defaults.setValue(kAdviceKey, true); }};
}

void StatusBarController::openCalendarFromMenu() {
  // The bar says that a line was chosen while it still holds mouse and keyboard for its menu.
  reopening_ = platform_.loop.once(kMenuClosing, [this] {
    close();
    openCalendar(KeyboardAtOpening::taken);
  });
}

void StatusBarController::close() {
  panel_.reset();
  eventMonitor_.reset();
}

void StatusBarController::bringCalendar() {
  if (!panel_) return openCalendar(KeyboardAtOpening::taken);
  panel_->orderFront(KeyboardAtOpening::taken);
}

std::optional<Rect> StatusBarController::itemPlace(const std::optional<Point>& pointer) const {
  if (const auto place = statusItem_->place()) return place;
  if (pointer) return Rect{*pointer, {}};
  return std::nullopt;
}

bool StatusBarController::isPointerOnItem(const StatusItemClick& click) const {
  // Bars on D-Bus do not tell clicks from the keyboard's; the pointer is anywhere then.
  return click.pointer &&
         (statusItem_->place() || mayBeOnBar(*click.pointer, platform_.screens.all()));
}

void StatusBarController::position(Size size) {
  const auto origin = panelOrigin(size, itemPlace(pointerOnItem_), platform_.screens.all());
  panel_->setFrame({origin.value_or(Point{}), size});
}

double StatusBarController::keepOnScreen() {
  const auto height = greatestPanelHeight(itemPlace(pointerOnItem_), platform_.screens.all());
  if (height) panel_->setGreatestHeight(*height);
  return height.value_or(std::numeric_limits<double>::infinity());
}

void StatusBarController::resize(Size size) {
  if (!panel_ || statusItem_->button() == nullptr) return;
  size.height = std::min(size.height, keepOnScreen());
  position(size);
}

void StatusBarController::reopenPanelIfVisible() {
  if (!panel_ || !panel_->isVisible() || statusItem_->button() == nullptr) return;
  close();
  reopening_ = platform_.loop.once(kReopeningDelay,
                                   [this] { openCalendar(KeyboardAtOpening::leftWhereItIs); });
}

void StatusBarController::closeForPress(Point place) {
  if (!panel_) return;
  // The item's own click closes the panel.
  if (const auto item = statusItem_->place(); item && isWithin(0, *item, place)) return;
  // Another monitor might be too late for the release.
  closingPress_ =
      ClosingPress{.place = place, .monitor = std::move(eventMonitor_), .forgetting = nullptr};
  close();
}

void StatusBarController::closeForDismissal(Dismissal how) {
  if (how == Dismissal::byDesktop) {
    closingPress_ = ClosingPress{};
    forgetClosingPressAfter(kWholeClick);
  }
  close();
}

void StatusBarController::forgetClosingPressAfter(Seconds delay) {
  if (!closingPress_) return;
  closingPress_->forgetting = platform_.loop.once(delay, [this] { closingPress_.reset(); });
}

bool StatusBarController::isOfClosingPress(const StatusItemClick& click) const {
  if (!closingPress_) return false;
  if (!closingPress_->place) return true;
  const auto item = itemPlace(click.pointer);
  return item && isWithin(kClickReach, *item, *closingPress_->place);
}

void StatusBarController::openSettings() {
  if (!settingsWindow_) {
    settingsWindow_ = surfaces_.makeSettingsWindow(updater_, [this] { settingsWindow_.reset(); });
    if (!settingsWindow_) return;
    settingsWindow_->setAppearance(appearance(settings_.theme));
  }
  settingsWindow_->makeKeyAndOrderFront();
}

void StatusBarController::applyTheme(AppTheme theme) {
  if (panel_) panel_->setAppearance(appearance(theme));
  if (settingsWindow_) settingsWindow_->setAppearance(appearance(theme));
}

}  // namespace Hilalor
