#include "screens/map/MapView.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QNativeGestureEvent>
#include <QPaintEvent>
#include <QPointingDevice>
#include <QTest>
#include <QWheelEvent>

#include "screens/map/MapLabels.hpp"
#include "screens/map/MapPainter.hpp"
#include "tests/fakes/FakeAtlas.hpp"
#include "ui/SearchField.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr LocationCoordinate kCentre{20, 20};
constexpr QPoint kMiddle{320, 200};

class MapViewTest : public testing::Test {
 protected:
  void show(LocationCoordinate centre = kCentre, double span = 5) {
    map = std::make_unique<MapView>(atlas.open());
    map->onClick = [this](QPointF place) { clicks.push_back(place); };
    map->onType = [this](const QString& text) { typed += text; };
    map->resize(640, 400);
    map->setRegion({centre, span, span});
    map->show();
    QApplication::processEvents();
  }

  void move(QEvent::Type type, QPointF place) {
    QMouseEvent event(type, place, map->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(map.get(), &event);
  }

  void turnWheel(QPointF place, int delta) {
    QWheelEvent event(place, map->mapToGlobal(place), {}, QPoint(0, delta), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(map.get(), &event);
  }

  auto touch() { return QTest::touchEvent(map.get(), screen.get()); }

  [[nodiscard]] double scale() const { return map->viewport().pixelsPerDegree(); }

  void expectUnder(QPointF place, LocationCoordinate coordinate) {
    const auto found = map->coordinateAt(place);
    EXPECT_NEAR(found.latitude, coordinate.latitude, 1e-6);
    EXPECT_NEAR(found.longitude, coordinate.longitude, 1e-6);
  }

  FakeAtlas atlas;
  std::unique_ptr<QPointingDevice> screen{QTest::createTouchDevice()};
  std::unique_ptr<MapView> map;
  std::vector<QPointF> clicks;
  QString typed;
};

TEST_F(MapViewTest, TellsAClickFromADrag) {
  show();
  QTest::mouseClick(map.get(), Qt::LeftButton, {}, QPoint(100, 90));
  QTest::mouseClick(map.get(), Qt::RightButton, {}, QPoint(100, 90));
  EXPECT_THAT(clicks, testing::ElementsAre(QPointF(100, 90)));
  move(QEvent::MouseButtonPress, {300, 200});
  move(QEvent::MouseMove, {302, 201});
  move(QEvent::MouseButtonRelease, {302, 201});
  EXPECT_EQ(clicks.size(), 2U) << "a press that trembles";
  expectUnder(kMiddle, kCentre);
  const auto under = map->coordinateAt({300, 200});
  move(QEvent::MouseButtonPress, {300, 200});
  move(QEvent::MouseMove, {340, 210});
  move(QEvent::MouseMove, {420, 150});
  move(QEvent::MouseButtonRelease, {420, 150});
  EXPECT_EQ(clicks.size(), 2U);
  expectUnder({420, 150}, under);
}

TEST_F(MapViewTest, ZoomsAroundThePointer) {
  const QPoint place(500, 90);
  const struct {
    const char* name;
    std::function<void()> zoom;
    double factor;
  } cases[] = {
      {"wheel", [&] { turnWheel(place, 120); }, std::exp2(0.5)},
      {"wheel back", [&] { turnWheel(place, -240); }, 0.5},
      {"touchpad", [&] { turnWheel(place, 24); }, std::exp2(0.1)},
      {"touchpad, then wheel",
       [&] {
         turnWheel(place, 24);
         turnWheel(place, 120);
       },
       std::exp2(0.6)},
      {"double click",
       [&] {
         QTest::mouseDClick(map.get(), Qt::LeftButton, {}, place);
         EXPECT_TRUE(clicks.empty());
       },
       2},
      {"pinch",
       [&] {
         QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(),
                                   2, place, place, map->mapToGlobal(QPointF(place)), 0.25, {});
         QApplication::sendEvent(map.get(), &event);
       },
       1.25},
  };
  for (const auto& [name, zoom, factor] : cases) {
    SCOPED_TRACE(name);
    show();
    const auto under = map->coordinateAt(place);
    const double before = scale();
    zoom();
    EXPECT_TRUE(QTest::qWaitFor(
        [&, factor = factor] { return std::abs(scale() / before - factor) < 1e-6; }, 2000));
    expectUnder(place, under);
  }
}

TEST_F(MapViewTest, FollowsTwoFingers) {
  show();
  const auto under = map->coordinateAt({320, 200});
  const double before = scale();
  touch().press(0, QPoint(270, 200)).press(1, QPoint(370, 200));
  touch().move(0, QPoint(240, 230)).move(1, QPoint(440, 230));
  touch().release(0, QPoint(240, 230)).release(1, QPoint(440, 230));
  EXPECT_NEAR(scale() / before, 2, 1e-6);
  expectUnder({340, 230}, under);
  EXPECT_TRUE(clicks.empty());
}

TEST_F(MapViewTest, FollowsOneFingerAndTakesATapForAClick) {
  show();
  const auto under = map->coordinateAt({320, 200});
  touch().press(0, QPoint(320, 200));
  touch().move(0, QPoint(380, 260));
  touch().release(0, QPoint(380, 260));
  expectUnder({380, 260}, under);
  EXPECT_TRUE(clicks.empty());
  touch().press(0, QPoint(50, 60));
  touch().release(0, QPoint(50, 60));
  EXPECT_THAT(clicks, testing::ElementsAre(QPointF(50, 60)));

  touch().press(0, QPoint(320, 200));
  QTouchEvent cancel(QEvent::TouchCancel, screen.get());
  QApplication::sendEvent(map.get(), &cancel);
  const auto before = map->coordinateAt({0, 0});
  move(QEvent::MouseMove, {400, 300});
  expectUnder({0, 0}, before);
}

TEST_F(MapViewTest, IsMovedByTheKeyboard) {
  const struct {
    Qt::Key key;
    double east;
    double north;
  } arrows[] = {
      {Qt::Key_Left, -1, 0}, {Qt::Key_Right, 1, 0}, {Qt::Key_Up, 0, 1}, {Qt::Key_Down, 0, -1}};
  for (const auto& [key, east, north] : arrows) {
    show();
    QTest::keyClick(map.get(), key);
    const auto now = map->coordinateAt(kMiddle);
    EXPECT_GT(
        east * (now.longitude - kCentre.longitude) + north * (now.latitude - kCentre.latitude),
        0.1);
  }
  for (const auto& [key, factor] : {std::pair(Qt::Key_Plus, 2.0), {Qt::Key_Minus, 0.5}}) {
    show();
    const double before = scale();
    QTest::keyClick(map.get(), key);
    EXPECT_TRUE(QTest::qWaitFor(
        [&, factor = factor] { return std::abs(std::log2(scale() / before / factor)) < 0.3; },
        2000));
    expectUnder(kMiddle, kCentre);
  }
  EXPECT_TRUE(typed.isEmpty());
  QTest::keyClicks(map.get(), "Ma");
  QTest::keyClick(map.get(), Qt::Key_B, Qt::ControlModifier);
  QTest::sendKeyEvent(QTest::Click, map.get(), Qt::Key_unknown, QString::fromUtf8("م"), {});
  EXPECT_EQ(typed, QString::fromUtf8("Maم"));
}

TEST_F(MapViewTest, KeepsTheRegionWhenItsSizeChangesBeforeTheUserMoves) {
  show();
  map->resize(320, 200);
  QApplication::processEvents();
  expectUnder({160, 100}, kCentre);
  EXPECT_NEAR(320 / scale(), 8.5, 0.2);
}

// Pixels.

/// What was painted of a widget since this was made.
class Painted final : public QObject {
 public:
  explicit Painted(QWidget& widget) { widget.installEventFilter(this); }
  QRegion region;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
};

TEST_F(MapViewTest, IsDrawnAnewAsAWholeAroundAFieldThatGrows) {
  show();
  const auto find = [](const QString& text) {
    return std::vector<Suggestion>(static_cast<std::size_t>(text.size()));
  };
  SearchField field("Find", {.find = find, .onChoose = {}, .onClose = [] {}});
  field.setParent(map.get());
  field.show();
  field.open("a");
  QApplication::processEvents();
  const Painted painted(*map);
  field.findChild<QLineEdit*>()->setText("abc");
  QApplication::processEvents();
  EXPECT_EQ(painted.region, QRegion(map->rect()));
}

class MapPictureTest : public MapViewTest {
 protected:
  [[nodiscard]] QColor at(LocationCoordinate coordinate) {
    const Point point = map->viewport().pointOf(coordinate);
    return map->grab().toImage().pixelColor(static_cast<int>(point.x), static_cast<int>(point.y));
  }

  void addLand(MapTile tile) {
    atlas.shapes.push_back(
        {tile,
         MapLayer::land,
         {{0, 0}, {kMapTileUnits, 0}, {kMapTileUnits, kMapTileUnits}, {0, kMapTileUnits}}});
  }

  const MapColors& colors = MapColors::of(ColorScheme::light);
};

TEST_F(MapPictureTest, ShowsLandLakesAndIslandsInThemWhereTheyAre) {
  // The tile from 20 to 22 degrees east and north.
  const MapTile tile{2, 100, 55};
  addLand(tile);
  const auto square = [](std::int16_t from, std::int16_t to) {
    return std::vector<MapPoint>{{from, from}, {to, from}, {to, to}, {from, to}};
  };
  atlas.shapes.push_back({tile, MapLayer::lake, square(2048, 6144)});
  atlas.shapes.push_back({tile, MapLayer::islandInLake, square(3584, 4608)});
  show({21, 21}, 5);
  EXPECT_EQ(at({20.2, 20.2}), colors.land);
  EXPECT_EQ(at({20.7, 20.7}), colors.water);
  EXPECT_EQ(at({21, 21}), colors.land);
  EXPECT_EQ(at({22.3, 21}), colors.water);
}

TEST_F(MapPictureTest, ShowsNoSeamsBetweenTilesNorAtTheDateLine) {
  for (int column = 175; column < 185; ++column)
    for (int row = 50; row < 60; ++row)
      addLand({2, column % 180, row});
  for (const double nudge : {0.0, 0.0031, 0.0077}) {
    show({20 + nudge, 180 - nudge}, 4);
    const QImage image = map->grab(QRect(0, 0, 640, 380)).toImage();
    for (int x = 0; x < image.width(); ++x)
      ASSERT_EQ(image.pixelColor(x, 150), colors.land) << x;
    for (int y = 0; y < image.height(); ++y)
      ASSERT_EQ(image.pixelColor(150, y), colors.land) << y;
  }
}

TEST_F(MapPictureTest, WritesAPlacesNameBesideItsDot) {
  show();
  const QImage bare = map->grab().toImage();
  atlas.places = {{"Makkah", kCentre, 0}};
  show();
  const QImage image = map->grab().toImage();
  QRect drawn;
  for (int x = 0; x < image.width(); ++x)
    for (int y = 0; y < image.height(); ++y)
      if (image.pixel(x, y) != bare.pixel(x, y)) drawn |= QRect(x, y, 1, 1);
  EXPECT_TRUE(drawn.contains(kMiddle)) << "the dot";
  EXPECT_TRUE(drawn.width() > 40 && drawn.width() < 100) << drawn.width();
  EXPECT_TRUE(drawn.height() > 8 && drawn.height() < 24) << drawn.height();
}

TEST_F(MapPictureTest, PutsThePinOnItsCoordinate) {
  show();
  map->setAnnotation(MapAnnotation{{20.5, 20.5}, "Prayer Location"});
  const QColor red = Colors::of(ColorScheme::light).red;
  const Point tip = map->viewport().pointOf(LocationCoordinate{20.5, 20.5});
  const QImage image = map->grab().toImage();
  const auto x = static_cast<int>(tip.x);
  const auto y = static_cast<int>(tip.y);
  EXPECT_EQ(image.pixelColor(x, y - 5), red);
  EXPECT_NE(image.pixelColor(x, y + 2), red);
  map->setAnnotation(std::nullopt);
  EXPECT_EQ(map->grab().toImage().pixelColor(x, y - 5), colors.water);
}

// Names.

class MapLabelsTest : public testing::Test {
 protected:
  [[nodiscard]] std::vector<PlacedLabel> place(double span, std::vector<QRectF> taken = {},
                                               const std::optional<PinRooms>& pin = {}) {
    viewport.setSize({640, 400});
    viewport.show({kCentre, span, span});
    const auto visible = viewport.visibleTiles(tiles.map().tileDegrees());
    return labels.place(viewport, tiles, visible, std::move(taken), pin);
  }

  [[nodiscard]] static QStringList names(const std::vector<PlacedLabel>& placed) {
    QStringList names;
    for (const PlacedLabel& label : placed)
      names.append(label.label->name.toString());
    return names;
  }

  FakeAtlas atlas;
  MapTiles tiles{atlas.open()};
  MapViewport viewport;
  MapLabels labels;
};

TEST_F(MapLabelsTest, NeverTouchEachOtherAndPreferTheMoreImportant) {
  for (int i = 0; i < 300; ++i) {
    atlas.places.push_back({"Place " + std::to_string(i),
                            {18 + 0.013 * (i * 37 % 300), 17 + 0.02 * (i * 91 % 300)},
                            0.02 * i});
  }
  const auto placed = place(4);
  EXPECT_GT(placed.size(), 20U);
  EXPECT_EQ(placed.front().label->name, QString("Place 0"));
  for (std::size_t one = 0; one < placed.size(); ++one)
    for (std::size_t other = one + 1; other < placed.size(); ++other)
      EXPECT_FALSE(placed[one].rect.intersects(placed[other].rect));
}

TEST_F(MapLabelsTest, LeaveFreeWhatIsTaken) {
  atlas.places = {{"Here", kCentre, 0}};
  EXPECT_EQ(place(4).size(), 1U);
  EXPECT_TRUE(place(4, {QRectF(0, 0, 640, 400)}).empty());
  // The other side of the dot serves too.
  const auto placed = place(4, {QRectF(330, 150, 300, 100)});
  ASSERT_EQ(placed.size(), 1U);
  EXPECT_LT(placed[0].rect.right(), 320);
}

TEST_F(MapLabelsTest, StayBesideThePinOnTheirPlace) {
  atlas.places = {{"Here", kCentre, 0}};
  const PinRooms pin{kMiddle, QRectF(311, 174, 18, 26), QRectF(270, 203, 100, 14)};
  const auto placed = place(5, {}, pin);
  ASSERT_EQ(placed.size(), 1U);
  EXPECT_FALSE(placed[0].rect.intersects(pin.drop) || placed[0].rect.intersects(pin.title));
}

TEST_F(MapLabelsTest, AreNotCutByTheEdges) {
  // At 5 degrees the map shows four to either side; the name would go to the right of its dot.
  atlas.places = {{"Easternmost", {20, 23.95}, 0}};
  const auto placed = place(5);
  ASSERT_EQ(placed.size(), 1U);
  EXPECT_LT(placed[0].rect.right(), 640);
}

TEST_F(MapLabelsTest, NameCountriesAndSeasWhereTheNamesFit) {
  using enum NamedArea::Kind;
  atlas.areas = {{country, "Egypt", kCentre, 9}, {sea, "Red Sea", {20.5, 21}, 1.2}};
  atlas.places = {{"City", {20.7, 20}, 0}};
  tiles = MapTiles(atlas.open());
  EXPECT_EQ(names(place(90)), QStringList("EGYPT")) << "the sea is too narrow";
  EXPECT_EQ(names(place(5)), QStringList({"EGYPT", "Red Sea", "City"}));
  EXPECT_EQ(names(place(1)), QStringList({"Red Sea", "City"})) << "the country is too wide";
}

TEST_F(MapLabelsTest, LeaveRoomForNeighboursThatMatterAsMuch) {
  // At 5 degrees some 75 pixels make a degree: the second lies where the first's name would go.
  atlas.places = {{"Jeddah", {21.49, 39.186}, 2}, {"Makkah", {21.427, 39.826}, 2}};
  viewport.setSize({640, 400});
  viewport.show({{21.5, 39.5}, 5, 5});
  const auto visible = viewport.visibleTiles(tiles.map().tileDegrees());
  EXPECT_EQ(names(labels.place(viewport, tiles, visible, {})), QStringList({"Jeddah", "Makkah"}));
}

TEST_F(MapLabelsTest, NameMoreTheCloserOneLooks) {
  atlas.places = {{"City", kCentre, 0}, {"Town", {20.5, 20.5}, 7}, {"Hamlet", {20.05, 19.95}, 14}};
  EXPECT_EQ(names(place(90)), QStringList({"City"}));
  EXPECT_EQ(names(place(5)), QStringList({"City", "Town"}));
  EXPECT_EQ(names(place(0.3)), QStringList({"City", "Hamlet"}));
}

}  // namespace
}  // namespace Hilalor::Screens
