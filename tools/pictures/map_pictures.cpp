// Pictures of the map picker over the shipped data, without a display: map_pictures FOLDER [SCALE].

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QTest>
#include <functional>
#include <optional>

#include "desktop/place/OfflineAtlas.hpp"
#include "desktop/place/OfflineGeocoder.hpp"
#include "desktop/process/Resources.hpp"
#include "screens/map/MapPickerView.hpp"
#include "screens/map/MapView.hpp"
#include "tests/fakes/Parts.hpp"
#include "tests/fakes/ScreenContexts.hpp"

namespace Hilalor {

using namespace Desktop;
using namespace Screens;
using namespace Ui;

namespace {

/// A picker on the real world, whose look-ups are answered when asked.
class Scene {
 public:
  Scene(ColorScheme scheme, std::optional<LocationCoordinate> start)
      : picker(mapContext(desktop()), start, [](auto&&...) {}) {
    picker.setPalette(windowPalette(scheme));
    picker.setAutoFillBackground(true);
    picker.show();
    settle();
  }

  void settle() {
    for (int pass = 0; pass < 5; ++pass) {
      QApplication::processEvents();
      desktop().loop.runPosted();
    }
  }

  [[nodiscard]] MapView& map() { return *part<MapView>(picker); }

  void look(LocationCoordinate centre, double span) {
    map().setRegion({centre, span, span});
    settle();
  }

  void click(QPoint place) {
    QTest::mouseClick(&map(), Qt::LeftButton, {}, place);
    settle();
  }

  void answer() {
    OfflineGeocoder geocoder(resourceFolder() / "geodata", desktop().loop);
    for (auto& request : desktop().geocoder.requests)
      geocoder.reverseGeocode(request.coordinate, request.answer);
    desktop().geocoder.requests.clear();
    settle();
  }

  void search(const char* text) {
    QTest::keyClick(&map(), Qt::Key_M);
    part<QLineEdit>(picker)->setText(QString::fromUtf8(text));
    settle();
  }

  static FakePlatform& desktop() {
    static FakePlatform* platform = nullptr;
    if (platform == nullptr) platform = new FakePlatform;
    return *platform;
  }

  MapPickerView picker;
};

struct Picture {
  const char* name;
  std::optional<LocationCoordinate> start;
  std::function<void(Scene&)> prepare;
};

constexpr LocationCoordinate kJeddah{21.5433, 39.1728};

int run(const QDir& folder) {
  OfflineAtlas atlas(resourceFolder() / "geodata", Scene::desktop().loop);
  Scene::desktop().atlas.real = &atlas;
  const Picture pictures[] = {
      {"map-without-place", std::nullopt, [](Scene&) {}},
      {"map-at-place", kJeddah, [](Scene&) {}},
      {"map-world", std::nullopt,
       [](Scene& scene) {
         scene.look({20, 0}, 300);
       }},
      {"map-continent", std::nullopt,
       [](Scene& scene) {
         scene.look({50, 10}, 30);
       }},
      {"map-city", kJeddah, [](Scene& scene) { scene.look(kJeddah, 0.6); }},
      {"map-closest", kJeddah,
       [](Scene& scene) {
         scene.look({51.5074, -0.1278}, 0.1);
       }},
      {"map-lakes", std::nullopt,
       [](Scene& scene) {
         scene.look({62, 27}, 4);
       }},
      {"map-islands", std::nullopt,
       [](Scene& scene) {
         scene.look({-2, 118}, 25);
       }},
      {"map-date-line", LocationCoordinate{-17.8, 179.2}, [](Scene&) {}},
      {"map-date-line-wide", std::nullopt,
       [](Scene& scene) {
         scene.look({60, -175}, 40);
       }},
      {"map-far-north", LocationCoordinate{78.22, 15.65}, [](Scene&) {}},
      {"map-resolving", std::nullopt,
       [](Scene& scene) {
         scene.click({330, 190});
       }},
      {"map-resolved", kJeddah,
       [](Scene& scene) {
         scene.click({420, 160});
         scene.answer();
       }},
      {"map-search", std::nullopt, [](Scene& scene) { scene.search("med"); }},
      {"map-search-arabic", std::nullopt, [](Scene& scene) { scene.search("\u0645\u0643\u0629"); }},
      {"map-search-nothing", std::nullopt, [](Scene& scene) { scene.search("zzzq"); }},
      {"map-found", std::nullopt,
       [](Scene& scene) {
         scene.search("medina");
         QTest::keyClick(part<QLineEdit>(scene.picker), Qt::Key_Return);
         scene.settle();
         scene.answer();
       }},
  };
  for (const auto& picture : pictures) {
    for (const auto& [scheme, suffix] :
         {std::pair(ColorScheme::light, "-light.png"), std::pair(ColorScheme::dark, "-dark.png")}) {
      Scene scene(scheme, picture.start);
      picture.prepare(scene);
      scene.picker.grab().save(folder.filePath(QString(picture.name) + suffix));
      Scene::desktop().geocoder.requests.clear();
    }
  }
  return 0;
}

}  // namespace
}  // namespace Hilalor

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  if (argc > 2) qputenv("QT_SCALE_FACTOR", argv[2]);
  const QApplication application(argc, argv);
  return Hilalor::run(QDir(argc > 1 ? argv[1] : "."));
}
