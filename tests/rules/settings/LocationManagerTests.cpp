#include "rules/settings/LocationManager.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/fakes/FakeGeocoder.hpp"
#include "tests/fakes/FakeLocationService.hpp"
#include "tests/fakes/VirtualLoop.hpp"

namespace Hilalor {
namespace {

using Status = AuthorizationStatus;

constexpr LocationCoordinate kMakkah{21.4225, 39.8262};
constexpr LocationCoordinate kJakarta{-6.2, 106.8};

class LocationManagerTest : public testing::Test {
 protected:
  void answer(std::size_t request, const std::vector<Placemark>& placemarks) {
    geocoder.requests.at(request).answer(placemarks);
    loop.runPosted();
  }

  void fix(const std::vector<LocationCoordinate>& locations) {
    service.fix(locations);
    loop.runPosted();
  }

  VirtualLoop loop;
  FakeLocationService service{Status::denied};
  FakeGeocoder geocoder;
  std::unique_ptr<LocationManager> manager =
      std::make_unique<LocationManager>(service, geocoder, loop);
};

TEST_F(LocationManagerTest, BeginsWithTheServicesStatusAndAsksForNothing) {
  loop.runPosted();
  EXPECT_EQ(manager->authStatus.value(), Status::denied);
  EXPECT_EQ(manager->coordinate.value(), std::nullopt);
  EXPECT_EQ(manager->locationName.value(), "");
  EXPECT_EQ(manager->detectedTimeZone.value(), TimeZone::current());
  EXPECT_EQ(service.locationRequests, 0);
  EXPECT_EQ(service.authorizationRequests, 0);
}

TEST_F(LocationManagerTest, RequestsOneFixPerReportOfFullAuthorisationOnly) {
  auto before = manager->authStatus.value();
  for (const auto& [status, requests] :
       {std::pair(Status::notDetermined, 0), std::pair(Status::restricted, 0),
        std::pair(Status::denied, 0), std::pair(Status::authorizedWhenInUse, 0),
        std::pair(Status::authorizedAlways, 1), std::pair(Status::authorizedAlways, 2)}) {
    SCOPED_TRACE(static_cast<int>(status));
    service.report(status);
    EXPECT_EQ(service.locationRequests, requests) << "requested within the report";
    EXPECT_EQ(manager->authStatus.value(), before) << "published on the next pass";
    before = status;
    loop.runPosted();
    EXPECT_EQ(manager->authStatus.value(), status);
  }
}

TEST_F(LocationManagerTest, TriesAgainOnlyWhatDidNotCome) {
  const struct {
    const char* name;
    std::function<void()> happens;
    int requests;  // All in all.
  } steps[] = {
      {"fails while it is refused", [this] { service.fail(); }, 0},
      {"looks while it is refused", [this] { manager->lookAgain(); }, 0},
      {"allowed", [this] { service.report(Status::authorizedAlways); }, 1},
      {"looks while the request runs", [this] { manager->lookAgain(); }, 1},
      {"fails", [this] { service.fail(); }, 1},
      {"looks after the failure", [this] { manager->lookAgain(); }, 2},
      {"network while the request runs", [this] { service.networkReturns(); }, 2},
      {"fails again", [this] { service.fail(); }, 2},
      {"network after the failure", [this] { service.networkReturns(); }, 3},
      {"a fix", [this] { fix({kMakkah}); }, 3},
      {"looks after the fix", [this] { manager->lookAgain(); }, 3},
      {"wakes after the fix", [this] { manager->retryFix(); }, 3},
  };
  for (const auto& [name, happens, requests] : steps) {
    SCOPED_TRACE(name);
    happens();
    EXPECT_EQ(service.locationRequests, requests);
  }
  EXPECT_EQ(service.asksAgain, 4) << "whether a refusal stands, once a look";
}

TEST_F(LocationManagerTest, TakesTheLastOfSeveralFixesAndNamesIt) {
  service.fix({});
  EXPECT_TRUE(geocoder.requests.empty());

  service.fix({kJakarta, kMakkah});
  EXPECT_EQ(manager->coordinate.value(), std::nullopt) << "published on the next pass";
  loop.runPosted();
  EXPECT_EQ(manager->coordinate.value(), kMakkah);
  EXPECT_EQ(manager->locationName.value(), "") << "the name follows when the geocoder answers";
  ASSERT_EQ(geocoder.requests.size(), 1U);
  EXPECT_EQ(geocoder.requests[0].coordinate, kMakkah);
}

TEST_F(LocationManagerTest, NamesThePlaceByItsFinestPart) {
  const struct {
    Placemark placemark;
    std::string name;
  } kCases[] = {
      {{"Makkah", "Mecca Region", "Saudi Arabia", {}}, "Makkah"},
      {{{}, "Mecca Region", "Saudi Arabia", {}}, "Mecca Region"},
      {{{}, {}, "Saudi Arabia", {}}, "Saudi Arabia"},
      {{"", {}, "Saudi Arabia", {}}, ""},
      {{}, "My Location"},
  };
  for (const auto& [placemark, name] : kCases) {
    SCOPED_TRACE(name);
    fix({kMakkah});
    answer(geocoder.requests.size() - 1, {placemark, {"Another", {}, {}, {}}});
    EXPECT_EQ(manager->locationName.value(), name);
  }
}

TEST_F(LocationManagerTest, TakesThePlacesTimeZoneOrTheMachines) {
  const auto jakarta = TimeZone::named("Asia/Jakarta");
  ASSERT_TRUE(jakarta);
  fix({kJakarta});
  answer(0, {{"Jakarta", {}, {}, jakarta}});
  EXPECT_EQ(manager->detectedTimeZone.value(), *jakarta);
  fix({kMakkah});
  answer(1, {{"Makkah", {}, {}, {}}});
  EXPECT_EQ(manager->detectedTimeZone.value(), TimeZone::current());
}

TEST_F(LocationManagerTest, AppliesNamesInTheOrderTheAnswersArrive) {
  fix({kJakarta});
  fix({kMakkah});
  answer(1, {{"Makkah", {}, {}, {}}});
  answer(0, {{"Jakarta", {}, {}, {}}});
  EXPECT_EQ(manager->locationName.value(), "Jakarta");
  EXPECT_EQ(manager->coordinate.value(), kMakkah);
}

TEST_F(LocationManagerTest, FailuresAndRevocationLeaveTheLastPlace) {
  const auto jakarta = TimeZone::named("Asia/Jakarta");
  fix({kJakarta});
  answer(0, {{"Jakarta", {}, {}, jakarta}});

  service.fail();
  service.report(Status::denied);
  loop.runPosted();
  EXPECT_EQ(manager->coordinate.value(), kJakarta);
  EXPECT_EQ(manager->locationName.value(), "Jakarta");

  fix({kMakkah});
  answer(1, {});
  EXPECT_EQ(manager->coordinate.value(), kMakkah);
  EXPECT_EQ(manager->locationName.value(), "Jakarta") << "no placemark changes no name";
  EXPECT_EQ(manager->detectedTimeZone.value(), *jakarta);
}

TEST_F(LocationManagerTest, TellsBeforeEachPublishedChange) {
  int told = 0;
  const auto subscription = manager->willChange.subscribe([&] { ++told; });
  fix({kMakkah});
  EXPECT_EQ(told, 1);
  answer(0, {{"Makkah", {}, {}, {}}});
  EXPECT_EQ(told, 3) << "the name and the zone";
  service.report(Status::authorizedAlways);
  loop.runPosted();
  EXPECT_EQ(told, 4);
}

TEST_F(LocationManagerTest, WhatIsOnItsWayComesToNothingOnceTheManagerIsGone) {
  service.fix({kMakkah});
  service.report(Status::authorizedAlways);
  manager.reset();
  EXPECT_FALSE(service.hasDelegate());
  loop.runPosted();
  answer(0, {{"Makkah", {}, {}, {}}});
}

}  // namespace
}  // namespace Hilalor
