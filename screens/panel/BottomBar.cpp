#include "screens/panel/BottomBar.hpp"

#include <chrono>
#include <utility>

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr Insets kSides = Insets::sides(12);
constexpr TextStyle kQuitStyle{.size = 13, .color = &Colors::secondary};
constexpr TextStyle kSettingsStyle{.size = 15, .color = &Colors::secondary};
constexpr TextStyle kStopStyle{.size = 11, .weight = QFont::Medium, .color = &Colors::accent};
constexpr int kStopIconSize = 13;
constexpr std::chrono::milliseconds kStopTransition{200};

}  // namespace

BottomBar::BottomBar(const PanelContext& context, std::function<void()> onOpenSettings)
    : notificationManager_(context.notificationManager),
      changes_(notificationManager_.willChange.subscribe([this] { setNeedsRedraw(); })) {
  auto* quit = new Button({.icon = Icon::power, .style = kQuitStyle},
                          [&application = context.application] { application.terminate(); });
  auto* settings =
      new Button({.icon = Icon::gear, .style = kSettingsStyle}, [open = std::move(onOpenSettings)] {
        if (open) open();
      });
  setBody(row({.padding = kSides},
              {helped(QStringLiteral("Quit Hilalor"), quit), flexibleSpace(), stopButton(),
               flexibleSpace(), helped(QStringLiteral("Settings"), settings)}));
  redraw();
}

Button* BottomBar::stopButton() {
  auto* stop = new Button({}, [this] { stopSound(); });
  atRedraw([this, stop] {
    const QString title = stopTitle();
    if (!title.isEmpty()) {
      stop->setLabel({.icon = Icon::stopCircle,
                      .text = title,
                      .style = kStopStyle,
                      .iconSize = kStopIconSize});
    }
    stop->appear(!title.isEmpty(), kStopTransition);
  });
  return stop;
}

QString BottomBar::stopTitle() const {
  if (notificationManager_.playingVoice.value()) return QStringLiteral("Stop Athan");
  if (notificationManager_.playingDua.value()) return QStringLiteral("Stop Supplication");
  return {};
}

void BottomBar::stopSound() {
  if (notificationManager_.playingVoice.value()) return notificationManager_.stopAll();
  notificationManager_.stopDua();
}

}  // namespace Hilalor::Screens
