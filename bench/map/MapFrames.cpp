// How fast the map picker comes and moves, drawn in software at its own size: the time to the first
// paint, every frame of a way over the world by drags and wheel, what searching takes, and what is
// left of its memory once it is closed. Times are of this process, so that a busy machine does not
// count.

#include <QApplication>
#include <QImage>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "desktop/place/OfflineAtlas.hpp"
#include "desktop/process/Resources.hpp"
#include "screens/map/MapPickerView.hpp"
#include "screens/map/MapView.hpp"
#include "tests/fakes/Parts.hpp"
#include "tests/fakes/ScreenContexts.hpp"
#include "tools/Usage.hpp"

namespace {

using namespace Hilalor;
using namespace Hilalor::Desktop;
using namespace Hilalor::Screens;
using namespace Hilalor::Ui;

double milliseconds() {
  return processorMicroseconds() / 1e3;
}

// What the process holds of memory for itself: what can be read again from a file, as the program's
// own code, is not counted.
long ownKilobytes() {
  return kilobytes("RssAnon");
}

void settle() {
  for (int pass = 0; pass < 5; ++pass)
    QApplication::processEvents();
}

// A stretch of the way: where it begins, how wide the map is there, and how it goes on in every
// frame.
struct Stretch {
  const char* name;
  LocationCoordinate from;
  double span;
  QPointF drag;
  double notches;  // Of the wheel.
  int frames;
};

constexpr Stretch kWay[] = {
    {"the world, dragged", {24, 45}, 90, {4, 1}, 0, 120},
    {"into Mecca", {21.42, 39.83}, 90, {0, 0}, 0.12, 140},
    {"along a coast", {64, 11}, 8, {-3, -2}, 0, 120},
    {"lakes", {62, 27}, 4, {3, 1}, 0, 120},
    {"islands", {-2, 118}, 25, {-4, 0}, 0, 120},
    {"Europe", {50, 8}, 14, {-3, 1}, 0, 120},
    {"a city", {51.5, -0.13}, 0.3, {2, 1}, 0, 120},
    {"out of Jakarta", {-6.2, 106.8}, 0.3, {0, 0}, -0.12, 140},
    {"over the date line", {-17, 178}, 12, {-3, 0}, 0, 120},
};

void drag(MapView& map, QPointF by) {
  const QPointF middle = QRectF(map.rect()).center();
  const auto send = [&](QEvent::Type type, QPointF place) {
    QMouseEvent event(type, place, map.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&map, &event);
  };
  // Once past the distance at which a press becomes a drag, the map follows every pixel.
  send(QEvent::MouseButtonPress, middle);
  send(QEvent::MouseMove, middle + QPointF(20, 0));
  send(QEvent::MouseMove, middle + QPointF(20, 0) + by);
  send(QEvent::MouseMove, middle + by);
  send(QEvent::MouseButtonRelease, middle + by);
}

void turn(MapView& map, double notches) {
  const QPointF middle = QRectF(map.rect()).center();
  QWheelEvent event(middle, map.mapToGlobal(middle), {}, QPoint(0, static_cast<int>(120 * notches)),
                    Qt::NoButton, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&map, &event);
}

void report(const char* what, std::vector<double> times) {
  std::ranges::sort(times);
  const auto at = [&](std::size_t percent) { return times[(times.size() - 1) * percent / 100]; };
  std::printf("%-22s %4zu frames: median %6.2f ms, 95 %% %6.2f, worst %6.2f\n", what, times.size(),
              at(50), at(95), at(100));
}

std::unique_ptr<MapPickerView> openPicker(FakePlatform& desktop,
                                          std::optional<LocationCoordinate> start) {
  auto picker = std::make_unique<MapPickerView>(mapContext(desktop), start, [](auto&&...) {});
  picker->setPalette(windowPalette(ColorScheme::light));
  picker->setAutoFillBackground(true);
  picker->show();
  settle();
  return picker;
}

void firstPaints(FakePlatform& desktop) {
  for (const auto& [name, start] :
       {std::pair("first paint, no place", std::optional<LocationCoordinate>()),
        std::pair("the same again", std::optional<LocationCoordinate>()),
        std::pair("first paint, at a place", std::optional(LocationCoordinate{21.54, 39.17}))}) {
    const double begin = milliseconds();
    const auto picker = openPicker(desktop, start);
    std::printf("%-24s %6.2f ms\n", name, milliseconds() - begin);
  }
}

void alongTheWay(MapView& map) {
  std::vector<double> all;
  for (const Stretch& stretch : kWay) {
    map.setRegion({stretch.from, stretch.span, stretch.span});
    settle();
    std::vector<double> times;
    for (int frame = 0; frame < stretch.frames; ++frame) {
      const double begin = milliseconds();
      if (stretch.notches == 0) {
        drag(map, stretch.drag);
      } else {
        turn(map, stretch.notches);
      }
      map.repaint();
      times.push_back(milliseconds() - begin);
    }
    report(stretch.name, times);
    all.insert(all.end(), times.begin(), times.end());
  }
  report("all the way", all);
}

void searches(const WorldMap& map) {
  for (const char* text : {"s", "al", "med", "makkah", "\u0645", "\u0645\u0643\u0629"}) {
    const double begin = milliseconds();
    const auto found = map.search(text, 7);
    std::printf("search for %-10s %6.2f ms, %zu found\n", text, milliseconds() - begin,
                found.size());
  }
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  FakePlatform desktop;
  OfflineAtlas atlas(resourceFolder() / "geodata", desktop.loop);
  desktop.atlas.real = &atlas;
  // Some window has been there before: the fonts are loaded.
  {
    Text text({}, QStringLiteral("Settings"));
    text.show();
    settle();
  }
  const long before = ownKilobytes();
  firstPaints(desktop);
  for (const char* time : {"first", "second"}) {
    auto picker = openPicker(desktop, std::nullopt);
    alongTheWay(*part<MapView>(*picker));
    searches(part<MapView>(*picker)->map());
    const long open = ownKilobytes();
    picker.reset();
    settle();
    desktop.loop.runPosted();
    std::printf(
        "own memory, %s time: %ld kB before, %+ld at the end of the way, %+ld once closed\n", time,
        before, open - before, ownKilobytes() - before);
  }
  return 0;
}
