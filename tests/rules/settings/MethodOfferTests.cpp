#include "rules/settings/MethodOffer.hpp"

#include <gtest/gtest.h>

#include "tests/fakes/FakePlatform.hpp"

namespace Hilalor {
namespace {

using enum PrayerCalculationMethod;

TEST(MethodOffer, NamesWhatIsUsualThereUntilAMethodIsChosen) {
  FakePlatform desktop;
  auto& settings = desktop.settings();
  MethodOffer offers(settings, desktop.geocoder);
  const auto offerIn = [&](const char* country) {
    offers.lookAtPlace();
    if (!desktop.geocoder.requests.empty()) {
      desktop.geocoder.requests.back().answer({Placemark{{}, {}, country, {}}});
    }
    return offers.offer();
  };
  const auto move = [&](double latitude) {
    settings.choosePlace({latitude, 10}, "There", TimeZone::current());
  };
  EXPECT_EQ(offerIn("Saudi Arabia"), std::nullopt) << "asked of no place";
  EXPECT_TRUE(desktop.geocoder.requests.empty());

  move(50);
  EXPECT_EQ(offerIn("Germany"), (MethodOffer::Offer{"Germany", muslimWorldLeague}));
  offers.use();
  EXPECT_EQ(settings.calculationMethod, muslimWorldLeague);
  EXPECT_EQ(offers.offer(), std::nullopt);
  settings.calculationMethod = turkey;
  EXPECT_EQ(offers.offer(), std::nullopt) << "the user's choice";

  move(40);
  EXPECT_EQ(offerIn("Türkiye"), std::nullopt) << "theirs is the usual one";
  move(-6);
  EXPECT_EQ(offerIn("Indonesia"), std::nullopt) << "none is known";
  desktop.locationManager().coordinate.assign(LocationCoordinate{30, 31});
  settings.locationMode = LocationMode::automatic;
  EXPECT_EQ(offerIn("Egypt"), (MethodOffer::Offer{"Egypt", egyptian}));
  EXPECT_EQ(settings.calculationMethod, turkey) << "never by itself";

  // An answer for a place that the user has left since.
  move(25);
  offers.lookAtPlace();
  const auto late = desktop.geocoder.requests.back();
  move(29);
  EXPECT_EQ(offerIn("Kuwait"), (MethodOffer::Offer{"Kuwait", kuwait}));
  late.answer({Placemark{{}, {}, "Qatar", {}}});
  EXPECT_EQ(offers.offer()->country, "Kuwait");
}

}  // namespace
}  // namespace Hilalor
