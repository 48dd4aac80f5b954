// Opens the panel or the settings window N times on a real desktop and prints the milliseconds
// until each is painted.
//
//   open_screens panel|settings N

#include <QApplication>
#include <QElapsedTimer>
#include <iostream>
#include <string>

#include "program/ScreenSurfaces.hpp"
#include "tests/fakes/FakePlatform.hpp"

namespace {

using namespace Hilalor;

// A Sunday in Ramadan, 13:00 in Riyadh, a national day.
constexpr Date kNow{1771754400};

/// Tells when the first window of a panel has been painted.
class FirstPaint final : public QObject {
 public:
  FirstPaint() { qApp->installEventFilter(this); }
  bool wasPainted = false;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::UpdateRequest || event->type() == QEvent::Expose)
      wasPainted = wasPainted || (watched->isWindowType() || watched->isWidgetType());
    return false;
  }
};

void waitFor(const FirstPaint& paint) {
  while (!paint.wasPainted)
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  QApplication::sync();
}

double millisecondsToOpenPanel(Surfaces& surfaces) {
  QElapsedTimer watch;
  watch.start();
  const auto panel = surfaces.makeCalendarPanel({}, {});
  panel->setAppearance(Appearance::system);
  const Size size = panel->fittingSize();
  panel->setFrame({{200, 30}, size});
  const FirstPaint paint;
  panel->orderFront(KeyboardAtOpening::leftWhereItIs);
  waitFor(paint);
  return static_cast<double>(watch.nsecsElapsed()) / 1e6;
}

double millisecondsToOpenSettings(Surfaces& surfaces) {
  QElapsedTimer watch;
  watch.start();
  const auto window = surfaces.makeSettingsWindow(nullptr, {});
  window->setAppearance(Appearance::system);
  const FirstPaint paint;
  window->makeKeyAndOrderFront();
  waitFor(paint);
  return static_cast<double>(watch.nsecsElapsed()) / 1e6;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (argc != 3) return 2;
  const FakePlatform desktop(kNow);
  Program::SharedObjects objects(desktop.platform);
  Program::ScreenSurfaces surfaces(desktop.platform, objects, HILALOR_APP_ICON);
  const bool isPanel = std::string(argv[1]) == "panel";
  for (int times = std::stoi(argv[2]); times > 0; --times) {
    std::cout << (isPanel ? millisecondsToOpenPanel : millisecondsToOpenSettings)(surfaces)
              << std::endl;
    QApplication::processEvents();
  }
  return 0;
}
