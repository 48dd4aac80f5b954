#include "app/StatusBarController.hpp"

#include <optional>
#include <string>

#include "app/MenuBarTitle.hpp"
#include "platform/Delivery.hpp"

namespace Hilalor {
namespace {

// Every minute gets a tick, so that no prayer minute is missed.
constexpr Seconds kTickPeriod{30};

}  // namespace

StatusBarController::StatusBarController(Updater* updater)
    : platform_(Platform::current()),
      settings_(AppSettings::shared()),
      alerts_(PrayerNotificationManager::shared()),
      statusItem_(platform_.statusBar.makeItem()),
      updater_(updater) {
  if (auto* button = statusItem_->button()) {
    button->setTitle(menuBarTitle(settings_, platform_.clock.now()));
    button->setContextMenu({{"Quit Hilalor", 'q', [this] { platform_.application.terminate(); }}});
  }
  timer_ = platform_.loop.repeating(kTickPeriod, [this] { tick(); });
  subscribe();
}

void StatusBarController::subscribe() {
  const auto retitle = onNextPass(platform_.loop, [this](const auto&...) { updateTitle(); });
  auto [style, calendar] =
      subscribeToLatest(settings_.menuBarStyle.publisher(), settings_.primaryCalendar.publisher(),
                        FirstPair::told, retitle);
  subscriptions_.push_back(std::move(style));
  subscriptions_.push_back(std::move(calendar));
  subscriptions_.push_back(alerts_.activeAthanTitle.subscribe(retitle));
}

void StatusBarController::tick() {
  updateTitle();
  alerts_.checkAndNotify();
}

void StatusBarController::updateTitle() {
  auto* button = statusItem_->button();
  if (button == nullptr) return;
  const auto& announced = alerts_.activeAthanTitle.value();
  button->setTitle(announced ? athanTitle(*announced)
                             : menuBarTitle(settings_, platform_.clock.now()));
}

}  // namespace Hilalor
