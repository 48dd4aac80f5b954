// How smoothly the screens move on a real display: plays each movement some times with the
// machine at rest and again with every core loaded by another process, and counts the frames that
// came late. A frame has a 60th of a second; one that took half as long again was late. What the
// timer alone is late for nothing in the program can mend.
//
//   motion_frames [TIMES]

#include <sys/prctl.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEnterEvent>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "desktop/panel/MotionSetting.hpp"
#include "desktop/place/OfflineAtlas.hpp"
#include "desktop/process/Resources.hpp"
#include "screens/map/MapPickerView.hpp"
#include "screens/map/MapView.hpp"
#include "screens/panel/CalendarView.hpp"
#include "screens/panel/DayCellView.hpp"
#include "tests/fakes/Parts.hpp"
#include "tests/fakes/ScreenContexts.hpp"
#include "ui/PopUpStyle.hpp"
#include "ui/Toggle.hpp"

namespace {

using namespace Hilalor;
using namespace Hilalor::Desktop;
using namespace Hilalor::Screens;
using namespace Hilalor::Ui;
using std::chrono::milliseconds;

// A Sunday in Ramadan, 13:00 in Riyadh, a national day.
constexpr Date kNow{1771754400};

constexpr double kFrame = 1000.0 / 60;
constexpr double kLate = 1.5 * kFrame;
constexpr milliseconds kAfter{100};
constexpr milliseconds kSettling{500};

/// Notes when each frame was on its way to the display.
class Watched final : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    const bool isFrame = event->type() == QEvent::UpdateRequest && receiver->isWidgetType();
    const bool wasHandled = QApplication::notify(receiver, event);
    if (isFrame) frames.push_back(now());
    return wasHandled;
  }

  [[nodiscard]] double now() const { return static_cast<double>(watch_.nsecsElapsed()) / 1e6; }
  void start() { watch_.start(); }

  std::vector<double> frames;  // In milliseconds.

 private:
  QElapsedTimer watch_;
};

struct Movement {
  const char* name;
  milliseconds duration;
  std::function<void(int time)> begin;
};

/// Asleep but for what happens, as the program is.
void rest(milliseconds duration) {
  QEventLoop loop;
  QTimer::singleShot(duration, &loop, &QEventLoop::quit);
  loop.exec();
}

struct Count {
  std::size_t frames = 0;
  std::size_t late = 0;
  double worst = 0;
};

Count play(Watched& application, const Movement& movement, int times) {
  Count count;
  for (int time = 0; time < times; ++time) {
    application.frames.clear();
    double last = application.now();
    movement.begin(time);
    rest(movement.duration + kAfter);
    for (const double frame : application.frames) {
      ++count.frames;
      if (frame - last > kLate) ++count.late;
      count.worst = std::max(count.worst, frame - last);
      last = frame;
    }
  }
  return count;
}

/// Other processes that never rest, one for each core, once they go.
class Load {
 public:
  Load() {
    for (unsigned core = std::max(1U, std::thread::hardware_concurrency()); core > 0; --core) {
      const pid_t child = fork();
      if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        raise(SIGSTOP);
        for (volatile unsigned turn = 0;;)
          turn = turn + 1;
      }
      children_.push_back(child);
    }
  }
  Load(const Load&) = delete;
  Load& operator=(const Load&) = delete;
  ~Load() { tell(SIGKILL); }

  void go() const { tell(SIGCONT); }

 private:
  void tell(int signal) const {
    for (const pid_t child : children_)
      kill(child, signal);
  }

  std::vector<pid_t> children_;
};

void point(QWidget& widget, bool isOver) {
  QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&widget, isOver ? &enter : &leave);
}

void playAll(Watched& application, const std::vector<Movement>& movements, const char* where,
             int times) {
  for (const Movement& movement : movements) {
    const Count count = play(application, movement, times);
    std::printf("%-22s %-9s %5zu frames, %3zu late, the longest %5.1f ms\n", movement.name, where,
                count.frames, count.late, count.worst);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const int times = argc > 1 ? std::stoi(argv[1]) : 20;
  const Load load;
  Watched application(argc, argv);
  QApplication::setStyle(new PopUpStyle({[] { return false; }, &settingsManagerAnimates}));
  if (!desktopAnimates()) std::puts("The desktop wants no movement: each is over in a frame.");
  application.start();
  FakePlatform desktop(kNow);
  OfflineAtlas atlas(resourceFolder() / "geodata", desktop.loop);
  desktop.atlas.real = &atlas;

  CalendarView panel(panelContext(desktop), {}, [] {});
  panel.setGeometry(40, 40, panel.sizeHint().width(), panel.sizeHint().height());
  panel.show();
  MapPickerView picker(mapContext(desktop), LocationCoordinate{21.54, 39.17}, [](auto&&...) {});
  picker.move(400, 40);
  picker.show();
  Toggle toggle(ToggleLook::switched, QStringLiteral("Switch"), [](bool) {});
  toggle.move(40, 600);
  toggle.show();
  rest(kSettling);

  auto& sounds = desktop.notificationManager();
  const auto cells = parts<DayCellView>(panel);
  const auto holiday = std::ranges::find_if(
      cells, [](const DayCellView* cell) { return cell->day() && cell->day()->cell.day == 22; });
  Animation bare(0, [&] { application.frames.push_back(application.now()); });
  const std::vector<Movement> movements{
      {"nothing but the timer", milliseconds(150),
       [&](int time) { bare.to(time % 2 == 0 ? 1 : 0, milliseconds(150)); }},
      {"the hover line", milliseconds(150), [&](int time) { point(**holiday, time % 2 == 0); }},
      {"the stop button", milliseconds(200),
       [&](int time) {
         sounds.playingVoice.assign(time % 2 == 0 ? std::optional(AthanVoice::tolsar)
                                                  : std::nullopt);
       }},
      {"a switch", milliseconds(150), [&](int time) { toggle.setOn(time % 2 == 0); }},
      {"the map, nearer", milliseconds(160),
       [&](int time) {
         part<MapView>(picker)->zoom(time % 2 == 0 ? MapView::Zoom::out : MapView::Zoom::in);
       }},
  };
  playAll(application, movements, "at rest", times);
  load.go();
  playAll(application, movements, "loaded", times);
  return 0;
}
