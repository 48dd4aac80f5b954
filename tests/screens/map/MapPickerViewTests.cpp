#include "screens/map/MapPickerView.hpp"

#include <QLineEdit>
#include <cmath>
#include <memory>

#include "screens/map/MapView.hpp"
#include "tests/screens/ScreenTest.hpp"
#include "ui/Containers.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr LocationCoordinate kJeddah{21.5433, 39.1728};
constexpr const char* kHint = "Click the map to select a location";

struct Confirmed {
  LocationCoordinate coordinate;
  std::string name;
  std::string zone;
};

class MapPickerViewTest : public ScreenTest<MapPickerView> {
 protected:
  MapPickerViewTest() { zone.set("Asia/Kuwait"); }

  void open(std::optional<LocationCoordinate> start = std::nullopt) {
    show(std::make_unique<MapPickerView>(
        mapContext(desktop), start,
        [this](LocationCoordinate coordinate, const std::string& name, const TimeZone& there) {
          confirmed.push_back({coordinate, name, there.identifier()});
        }));
  }

  [[nodiscard]] MapView& map() const { return *part<MapView>(*screen); }

  LocationCoordinate choose(QPoint place) {
    const auto coordinate = map().coordinateAt(place);
    QTest::mouseClick(&map(), Qt::LeftButton, {}, place);
    settle();
    return coordinate;
  }

  void answer(std::size_t request, const std::vector<Placemark>& placemarks) {
    desktop.geocoder.requests.at(request).answer(placemarks);
    settle();
  }

  /// What the footer says.
  [[nodiscard]] std::string status() const {
    std::string status;
    for (const Text* text : parts<Text>(*screen))
      if (text->isVisible() && text->mapTo(screen.get(), QPoint(0, 0)).y() > 440)
        status += text->text().toStdString();
    return status;
  }

  void expectInTheMiddle(LocationCoordinate coordinate) const {
    const auto middle = map().coordinateAt(QRectF(map().rect()).center());
    EXPECT_NEAR(middle.latitude, coordinate.latitude, 1e-6);
    EXPECT_NEAR(middle.longitude, coordinate.longitude, 1e-6);
  }

  std::vector<Confirmed> confirmed;
};

TEST_F(MapPickerViewTest, BeginsWithNothingChosen) {
  for (const double none : {std::nan(""), 1e300}) {
    open(LocationCoordinate{none, none});
    expectInTheMiddle({24, 45});
  }
  open();
  EXPECT_EQ(screen->size(), QSize(640, 500));
  EXPECT_EQ(status(), kHint);
  EXPECT_FALSE(button("Confirm")->isEnabled());
  EXPECT_TRUE(desktop.geocoder.requests.empty());
  expectInTheMiddle({24, 45});
  const auto& viewport = map().viewport();
  EXPECT_GE(viewport.size().width / viewport.pixelsPerDegree(), 120);
  EXPECT_LT(viewport.pixelsPerDegree(), 4);
}

TEST_F(MapPickerViewTest, BeginsAtTheStoredPlaceAndHandsItBackUnnamed) {
  open(kJeddah);
  EXPECT_EQ(status(), kHint);
  EXPECT_TRUE(desktop.geocoder.requests.empty());
  expectInTheMiddle(kJeddah);
  EXPECT_NEAR(map().viewport().size().height / map().viewport().pixelsPerDegree(), 5 / 0.93, 0.1);
  click(button("Confirm"));
  ASSERT_EQ(confirmed.size(), 1U);
  EXPECT_EQ(confirmed[0].coordinate, kJeddah);
  EXPECT_EQ(confirmed[0].name, "Custom Location");
  EXPECT_EQ(confirmed[0].zone, "Asia/Kuwait");
  EXPECT_FALSE(screen->isVisible());
}

TEST_F(MapPickerViewTest, LooksAClickUpAndHandsItBack) {
  open();
  const auto clicked = choose({200, 150});
  ASSERT_EQ(desktop.geocoder.requests.size(), 1U);
  EXPECT_EQ(desktop.geocoder.requests[0].coordinate, clicked);
  EXPECT_EQ(status(), "Resolving location…");
  EXPECT_FALSE(button("Confirm")->isEnabled());
  EXPECT_TRUE(part<ActivityIndicator>(*screen)->isVisible());

  answer(0, {{"Jeddah", "Mecca Region", "Saudi Arabia", TimeZone::named("Asia/Riyadh")}});
  EXPECT_EQ(status(), "Jeddah, Mecca Region, Saudi Arabia");
  click(button("Confirm"));
  ASSERT_EQ(confirmed.size(), 1U);
  EXPECT_EQ(confirmed[0].coordinate, clicked);
  EXPECT_EQ(confirmed[0].name, "Jeddah, Mecca Region, Saudi Arabia");
  EXPECT_EQ(confirmed[0].zone, "Asia/Riyadh");
  EXPECT_FALSE(screen->isVisible());
}

TEST_F(MapPickerViewTest, NamesAPlaceByWhatIsKnownOfIt) {
  const auto riyadh = TimeZone::named("Asia/Riyadh");
  const struct {
    std::vector<Placemark> answer;
    const char* status;
    const char* name;
    const char* zone;
  } cases[] = {
      {{{std::nullopt, std::nullopt, "Chad", riyadh}}, "Chad", "Chad", "Asia/Riyadh"},
      {{{"Faya", "", "Chad", std::nullopt}}, "Faya, Chad", "Faya, Chad", "Asia/Kuwait"},
      {{{std::nullopt, std::nullopt, std::nullopt, riyadh}},
       kHint,
       "Custom Location",
       "Asia/Riyadh"},
      {{}, "Custom Location", "Custom Location", "Asia/Kuwait"},
      {{{"One", "Two", std::nullopt, riyadh}, {"Three", "Four", "Five", std::nullopt}},
       "One, Two",
       "One, Two",
       "Asia/Riyadh"},
  };
  for (const auto& [placemarks, shown, name, identifier] : cases) {
    SCOPED_TRACE(shown);
    open();
    choose({300, 200});
    answer(desktop.geocoder.requests.size() - 1, placemarks);
    EXPECT_EQ(status(), shown);
    ASSERT_TRUE(button("Confirm")->isEnabled());
    click(button("Confirm"));
    EXPECT_EQ(confirmed.back().name, name);
    EXPECT_EQ(confirmed.back().zone, identifier);
  }
}

TEST_F(MapPickerViewTest, TakesTheAnswerThatComesLast) {
  open();
  choose({100, 100});
  const auto second = choose({400, 200});
  answer(1, {{"Second", std::nullopt, std::nullopt, TimeZone::named("Asia/Tokyo")}});
  EXPECT_EQ(status(), "Second") << "done at the first answer";
  EXPECT_TRUE(button("Confirm")->isEnabled());
  answer(0, {{"First", std::nullopt, std::nullopt, TimeZone::named("Europe/Paris")}});
  EXPECT_EQ(status(), "First");
  click(button("Confirm"));
  EXPECT_EQ(confirmed.at(0).coordinate, second);
  EXPECT_EQ(confirmed.at(0).name, "First");
  EXPECT_EQ(confirmed.at(0).zone, "Europe/Paris");
}

TEST_F(MapPickerViewTest, HandsNothingBackOnCancel) {
  open(kJeddah);
  choose({400, 200});
  click(button("Cancel"));
  EXPECT_TRUE(confirmed.empty());
  EXPECT_FALSE(screen->isVisible());
}

TEST_F(MapPickerViewTest, LeavesAnswersAloneThatComeAfterItsEnd) {
  open();
  EXPECT_EQ(desktop.atlas.openMaps, 1);
  choose({100, 100});
  QTest::mouseClick(&map(), Qt::LeftButton, {}, QPoint(300, 100));  // Not handed on yet.
  screen.reset();
  EXPECT_EQ(desktop.atlas.openMaps, 0);
  settle();
  EXPECT_EQ(desktop.geocoder.requests.size(), 1U);
  answer(0, {{"Jeddah", std::nullopt, std::nullopt, std::nullopt}});
}

class MapSearchTest : public MapPickerViewTest {
 protected:
  MapSearchTest() {
    desktop.atlas.findable = {{"Medan", "North Sumatra", "Indonesia", {3.58, 98.67}},
                              {"Medina", "Medina Region", "Saudi Arabia", {24.47, 39.61}}};
    open();
  }

  [[nodiscard]] QLineEdit& edit() const { return *part<QLineEdit>(*screen); }

  void keys(std::initializer_list<Qt::Key> keys) {
    for (const Qt::Key key : keys)
      QTest::keyClick(QApplication::focusWidget(), key);
    settle();
  }

  /// The place that was looked up since the last time; a latitude of 0 for none.
  [[nodiscard]] double takeChosen() {
    auto& requests = desktop.geocoder.requests;
    const double latitude = requests.empty() ? 0 : requests.back().coordinate.latitude;
    EXPECT_EQ(requests.size(), latitude == 0 ? 0U : 1U);
    requests.clear();
    return latitude;
  }
};

TEST_F(MapSearchTest, FindsAPlaceByKeysAlone) {
  keys({Qt::Key_M, Qt::Key_Escape});
  EXPECT_FALSE(edit().isVisible());
  EXPECT_TRUE(screen->isVisible());
  QTest::keyClicks(&map(), "zz");
  keys({Qt::Key_Return, Qt::Key_Escape});
  EXPECT_EQ(takeChosen(), 0) << "nothing matches";

  ASSERT_TRUE(map().hasFocus());
  for (const char letter : {'M', 'e', 'd', 'i'})
    QTest::keyClick(QApplication::focusWidget(), letter);
  ASSERT_TRUE(edit().isVisible());
  EXPECT_EQ(edit().text(), "Medi");
  EXPECT_EQ(desktop.atlas.searches.back(), "Medi");
  keys({Qt::Key_Return});
  EXPECT_EQ(takeChosen(), 24.47);
  EXPECT_EQ(status(), "Resolving location…");
  EXPECT_FALSE(edit().isVisible());
  expectInTheMiddle({24.47, 39.61});
  EXPECT_TRUE(map().hasFocus());

  click(button("Find a place"));
  QTest::keyClicks(&edit(), "Med");
  keys({Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_Return});
  EXPECT_TRUE(confirmed.empty()) << "not known by its name yet";
  answer(0, {{"Medan", std::nullopt, std::nullopt, std::nullopt}});
  EXPECT_EQ(takeChosen(), 3.58);
  keys({Qt::Key_Return});
  EXPECT_EQ(confirmed.at(0).name, "Medan");
}

TEST_F(MapSearchTest, FindsAPlaceByAClickOrATapOnASuggestion) {
  const std::unique_ptr<QPointingDevice> device(QTest::createTouchDevice());
  for (const bool isTouched : {false, true}) {
    SCOPED_TRACE(isTouched);
    QWindow* window = screen->windowHandle();
    // As the desktop tells it: to the window, which finds out whose it is.
    const auto pressAt = [&](QPoint place) {
      if (isTouched) {
        QTest::touchEvent(window, device.get()).press(0, place, window);
        QTest::touchEvent(window, device.get()).release(0, place, window);
      } else {
        QTest::mouseClick(window, Qt::LeftButton, {}, place);
      }
      settle();
    };
    const auto place = [this](const QString& text) {
      for (Text* found : parts<Text>(*screen))
        if (found->text() == text) return found->mapTo(screen.get(), found->rect().center());
      throw std::out_of_range("no such text");
    };
    QTest::keyClicks(&map(), "zz");
    settle();
    pressAt(place("No matches"));
    pressAt(edit().mapTo(screen.get(), QPoint(-3, 5)));
    EXPECT_EQ(takeChosen(), 0) << "what is under the field is not chosen";
    EXPECT_TRUE(edit().hasFocus());
    edit().setText("Med");
    settle();
    pressAt(place("Medan"));
    EXPECT_EQ(takeChosen(), 3.58);
    EXPECT_TRUE(map().hasFocus());
  }
}

}  // namespace
}  // namespace Hilalor::Screens
