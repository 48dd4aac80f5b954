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
    : context_(context),
      platform_(context_.platform),
      settings_(context_.settings),
      statusItem_(platform_.statusBar.makeItem()),
      updater_(updater) {
  if (auto* button = statusItem_->button()) {
    button->setTitle(menuBarTitle(course_, Moment::at(platform_.clock.now())));
    button->setAction([this](const StatusItemClick& click) { handleClick(click); });
    fillMenus(*button);
  }
  statusItem_->setUnseenHandler([this] { bringCalendar(); });
  platform_.application.setReopenHandler([this] { bringCalendar(); });
  platform_.application.setSettingsHandler([this] { openSettings(); });
  platform_.application.setResumeHandler([this] {
    tick();
    if (settings_.locationMode == LocationMode::automatic) context_.locationManager.retryFix();
  });
  timer_ = platform_.loop.repeating(kTickPeriod, [this] { tick(); });
  subscribe();
}

StatusBarController::~StatusBarController() {
  platform_.application.setReopenHandler({});
  platform_.application.setSettingsHandler({});
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
  const auto retitle = onNextPass(
      platform_.loop, [this](const auto&...) { updateTitle(Moment::at(platform_.clock.now())); });
  auto [style, calendar] =
      subscribeToLatest(settings_.menuBarStyle.publisher(), settings_.primaryCalendar.publisher(),
                        FirstPair::told, retitle);
  subscriptions_.push_back(std::move(style));
  subscriptions_.push_back(std::move(calendar));
  subscriptions_.push_back(settings_.theme.publisher().subscribe(
      onNextPass(platform_.loop, [this](AppTheme theme) { applyTheme(theme); })));
  subscriptions_.push_back(context_.notificationManager.activeAthanTitle.subscribe(retitle));
  const auto retitleWhenChanged = [&](Setting<std::int64_t>& setting) {
    subscriptions_.push_back(
        setting.publisher().subscribe([retitle, isFirst = true](std::int64_t value) mutable {
          if (!std::exchange(isFirst, false)) retitle(value);
        }));
  };
  std::ranges::for_each(settings_.prayerMinutes, retitleWhenChanged);
  retitleWhenChanged(settings_.hijriDays);
  auto [showCalendar, showPrayerTimes] = subscribeToLatest(
      settings_.showCalendar.publisher(), settings_.showPrayerTimes.publisher(), FirstPair::dropped,
      onNextPass(platform_.loop, [this](bool, bool) { reopenPanelIfVisible(); }));
  subscriptions_.push_back(std::move(showCalendar));
  subscriptions_.push_back(std::move(showPrayerTimes));
}

void StatusBarController::tick() {
  if (++ticks_ % kTicksToNewRules == 0) TimeZone::rereadChangedRules();
  const auto moment = Moment::at(platform_.clock.now());
  updateTitle(moment);
  context_.notificationManager.checkAndNotify(moment.now);
}

void StatusBarController::updateTitle(const Moment& moment) {
  auto* button = statusItem_->button();
  if (button == nullptr) return;
  const auto& announced = context_.notificationManager.activeAthanTitle.value();
  button->setTitle(announced ? athanTitle(*announced) : menuBarTitle(course_, moment));
}

void StatusBarController::handleClick(const StatusItemClick& click) {
  if (!panel_) eventMonitor_.reset();
  const auto item = statusItem_->place();
  pointerOnItem_ = pointerOnItem(click, item, platform_.screens.all());
  reopening_.reset();
  switch (clicks_.click(click, item, panel_ && panel_->isVisible(), platform_.clock.now())) {
    case ItemClicks::Answer::nothing:
      return;
    case ItemClicks::Answer::close:
      return close();
    case ItemClicks::Answer::open:
      // A click by keyboard gives the panel the keyboard.
      openCalendar(pointerOnItem_ ? KeyboardAtOpening::leftWhereItIs : KeyboardAtOpening::taken);
  }
}

void StatusBarController::openCalendar(KeyboardAtOpening keyboard) {
  platform_.defaults.lookAgain();
  panel_ = context_.surfaces.makeCalendarPanel(
      {
          .onSizeChange = [this](Size size) { resize(size); },
          .onOpenSettings = [this] { openSettings(); },
          .onChoosePlace = [this] { choosePlace(); },
          .onDismiss = [this](Dismissal how) { closeForDismissal(how); },
      },
      advice());
  panel_->setAppearance(appearance(settings_.theme));
  keepOnScreen();
  position(panel_->fittingSize());
  panel_->orderFront(keyboard);
  eventMonitor_ =
      platform_.mouse.addGlobalMonitor({.onPress = [this](Point place) { closeForPress(place); },
                                        .onRelease = [this] { stopWatchingAfterRelease(); }});
  unwatching_.reset();
  if (settings_.locationMode == LocationMode::automatic) context_.locationManager.lookAgain();
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

std::optional<Rect> StatusBarController::itemPlace() const {
  return itemOrPointer(statusItem_->place(), pointerOnItem_);
}

void StatusBarController::position(Size size) {
  const auto origin = panelOrigin(size, itemPlace(), platform_.screens.all());
  panel_->setFrame({origin.value_or(Point{}), size});
}

double StatusBarController::keepOnScreen() {
  const auto height = greatestPanelHeight(itemPlace(), platform_.screens.all());
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
  if (!panel_ || !clicks_.press(place, statusItem_->place())) return;
  // Another monitor might be too late for the release.
  panel_.reset();
}

void StatusBarController::stopWatchingAfterRelease() {
  if (!clicks_.release(platform_.clock.now())) return;
  // Not while it tells of the release.
  unwatching_ = platform_.loop.once(Seconds(0), [this] { eventMonitor_.reset(); });
}

void StatusBarController::closeForDismissal(Dismissal how) {
  clicks_.dismissal(how, platform_.clock.now());
  close();
}

void StatusBarController::openSettings() {
  if (!settingsWindow_) {
    settingsWindow_ =
        context_.surfaces.makeSettingsWindow(updater_, [this] { settingsWindow_.reset(); });
    if (!settingsWindow_) return;
    settingsWindow_->setAppearance(appearance(settings_.theme));
  }
  settingsWindow_->makeKeyAndOrderFront();
}

void StatusBarController::choosePlace() {
  if (!placeWindow_) {
    placeWindow_ = context_.surfaces.makePlaceWindow([this] { placeWindow_.reset(); });
    if (!placeWindow_) return;
    placeWindow_->setAppearance(appearance(settings_.theme));
  }
  placeWindow_->makeKeyAndOrderFront();
}

void StatusBarController::applyTheme(AppTheme theme) {
  if (auto* button = statusItem_->button()) button->setAppearance(appearance(theme));
  if (panel_) panel_->setAppearance(appearance(theme));
  if (settingsWindow_) settingsWindow_->setAppearance(appearance(theme));
  if (placeWindow_) placeWindow_->setAppearance(appearance(theme));
}

}  // namespace Hilalor
