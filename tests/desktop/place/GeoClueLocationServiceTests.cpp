#include "desktop/place/GeoClueLocationService.hpp"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <algorithm>
#include <functional>
#include <limits>
#include <memory>

#include "tests/desktop/place/FakeGeoClue.hpp"
#include "tests/fakes/PrivateBus.hpp"
#include "tests/fakes/VirtualLoop.hpp"

namespace Hilalor::Desktop {
namespace {

using Agent = FakeGeoClue::Agent;
using Contact = GeoClueLocationService::Contact;
using Status = AuthorizationStatus;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr LocationCoordinate kMakkah{21.4225, 39.8262};
constexpr LocationCoordinate kJakarta{-6.2, 106.8};

// Asks for a location whenever that is allowed, and writes down what it is told.
class RecordingDelegate final : public LocationService::Delegate {
 public:
  explicit RecordingDelegate(LocationService& service) : service_(service) {}

  void locationServiceDidChangeAuthorization() override {
    statuses.push_back(service_.authorizationStatus());
    if (statuses.back() == Status::authorizedAlways) service_.requestLocation();
  }
  void locationServiceDidUpdate(const std::vector<LocationCoordinate>& locations) override {
    fixes.insert(fixes.end(), locations.begin(), locations.end());
  }
  void locationServiceDidFail() override { ++failures; }
  void locationServiceMayFindNow() override { service_.requestLocation(); }

  std::vector<Status> statuses;
  std::vector<LocationCoordinate> fixes;
  int failures = 0;

 private:
  LocationService& service_;
};

class GeoClueLocationServiceTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!bus.isRunning()) GTEST_SKIP() << "no dbus-daemon";
  }

  void TearDown() override {
    service.reset();
    daemon.reset();
    QDBusConnection::disconnectFromBus(QStringLiteral("client"));
  }

  void startDaemon(Agent agent) {
    daemon = std::make_unique<FakeGeoClue>(bus.connection(QStringLiteral("daemon")), agent);
  }

  void startService(Contact contact) {
    service = std::make_unique<GeoClueLocationService>(connection(), loop, contact);
    delegate = std::make_unique<RecordingDelegate>(*service);
    service->setDelegate(delegate.get());
    settle();
  }

  // Every message that is on its way, and those that answer them, has arrived after some rounds.
  void settle() {
    for (int round = 0; round < 12; ++round) {
      static_cast<void>(connection().interface()->registeredServiceNames());
      QCoreApplication::processEvents();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      loop.runPosted();
    }
  }

  [[nodiscard]] QDBusConnection connection() const {
    return bus.connection(QStringLiteral("client"));
  }

  PrivateBus bus;
  VirtualLoop loop;
  std::unique_ptr<FakeGeoClue> daemon;
  std::unique_ptr<GeoClueLocationService> service;
  std::unique_ptr<RecordingDelegate> delegate;
};

TEST_F(GeoClueLocationServiceTest, LeavesTheServiceAloneUntilTheUserIsToBeAsked) {
  startDaemon(Agent::allows);
  startService(Contact::whenAsked);
  service->requestLocation();
  settle();
  EXPECT_THAT(daemon->calls, IsEmpty());
  EXPECT_THAT(delegate->statuses, ElementsAre(Status::notDetermined));
  EXPECT_EQ(delegate->failures, 1) << "no location before the user was asked";
}

TEST_F(GeoClueLocationServiceTest, AsksOnceTakesOnePositionAndGivesTheClientBack) {
  startDaemon(Agent::allows);
  daemon->positions = {{kMakkah}, {kJakarta}};
  startService(Contact::whenAsked);
  service->requestWhenInUseAuthorization();
  service->requestWhenInUseAuthorization();
  settle();
  EXPECT_THAT(delegate->statuses, ElementsAre(Status::notDetermined, Status::authorizedAlways));
  EXPECT_THAT(delegate->fixes, ElementsAre(kMakkah));
  EXPECT_THAT(daemon->calls,
              ElementsAre("GetClient", "DesktopId=org.hilalor.Hilalor", "RequestedAccuracyLevel=8",
                          "Start", "Stop", "DeleteClient"));

  service->requestWhenInUseAuthorization();
  settle();
  EXPECT_EQ(daemon->calls.size(), 6U) << "nothing to ask once it is granted";
  service->requestLocation();
  settle();
  EXPECT_EQ(delegate->fixes.size(), 2U);
  EXPECT_EQ(delegate->statuses.size(), 2U) << "the status did not change again";
}

TEST_F(GeoClueLocationServiceTest, GoesOnOnABusThatComesLate) {
  startDaemon(Agent::allows);
  daemon->positions = {{kMakkah}};
  const QDBusConnection none(QStringLiteral("none"));
  service = std::make_unique<GeoClueLocationService>(none, loop, Contact::atStart);
  delegate = std::make_unique<RecordingDelegate>(*service);
  service->setDelegate(delegate.get());
  settle();
  service->useBus(connection());
  settle();
  EXPECT_THAT(delegate->fixes, ElementsAre(kMakkah));
}

TEST_F(GeoClueLocationServiceTest, AsksAgainAfterARefusalUntilTheUserHasSaidItTwice) {
  startDaemon(Agent::refuses);
  startService(Contact::atStart);
  const auto questions = [this] { return std::ranges::count(daemon->calls, "Start"); };
  const auto askAgain = [this] {
    service->askAgain();
    settle();
  };
  for (const int asked : {2, 3, 4}) {
    askAgain();
    EXPECT_EQ(questions(), asked) << "the desktop answers for the user";
  }
  daemon->setAgent(Agent::asks);
  for (const int asked : {5, 6, 6}) {
    askAgain();
    EXPECT_EQ(questions(), asked);
    askAgain();
    EXPECT_EQ(questions(), asked) << "while the user thinks, or once they said it twice";
    loop.advance(Seconds(3));
    daemon->userRefuses();
    settle();
  }
  daemon->setAgent(Agent::allows);
  daemon->positions = {{kMakkah}};
  service->requestWhenInUseAuthorization();
  settle();
  EXPECT_THAT(delegate->statuses,
              ElementsAre(Status::notDetermined, Status::denied, Status::authorizedAlways));
  EXPECT_THAT(delegate->fixes, ElementsAre(kMakkah));
  askAgain();
  EXPECT_EQ(questions(), 7) << "nothing to ask once it is granted";
}

TEST_F(GeoClueLocationServiceTest, NobodyToAskTheUserIsRestrictedUntilSomebodyIsThere) {
  startDaemon(Agent::absent);
  startService(Contact::atStart);
  EXPECT_EQ(service->authorizationStatus(), Status::notDetermined);
  loop.advance(Seconds(5));
  EXPECT_EQ(delegate->statuses.back(), Status::restricted);

  daemon->positions = {{kMakkah}};
  daemon->agentArrives();
  settle();
  EXPECT_EQ(delegate->statuses.back(), Status::authorizedAlways);
  EXPECT_THAT(delegate->fixes, ElementsAre(kMakkah));
}

TEST_F(GeoClueLocationServiceTest, IsRestrictedWhileThereIsNoServiceAndAsksWheneverItComes) {
  startService(Contact::whenAsked);
  service->requestWhenInUseAuthorization();
  settle();
  EXPECT_THAT(delegate->statuses, ElementsAre(Status::notDetermined, Status::restricted));
  startDaemon(Agent::allows);
  settle();
  EXPECT_EQ(delegate->statuses.back(), Status::authorizedAlways);
  daemon.reset();
  settle();
  EXPECT_EQ(delegate->statuses.back(), Status::restricted);
  EXPECT_EQ(delegate->failures, 1) << "killed in mid request";

  startDaemon(Agent::allows);
  daemon->positions = {{kJakarta}};
  settle();
  EXPECT_EQ(delegate->statuses.back(), Status::authorizedAlways);
  EXPECT_THAT(delegate->fixes, ElementsAre(kJakarta));
}

TEST_F(GeoClueLocationServiceTest, APositionThatCannotBeIsNoPosition) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  startDaemon(Agent::allows);
  daemon->positions = {{{kNone, 39.8}}, {{21.4, kNone}}, {{91, 39.8}}, {{21.4, -181}}};
  startService(Contact::atStart);
  loop.advance(Seconds(59));
  EXPECT_EQ(delegate->failures, 0);
  loop.advance(Seconds(2));
  EXPECT_EQ(delegate->failures, 1) << "within a minute none came";
  settle();
  EXPECT_EQ(daemon->calls.back(), "DeleteClient");
  EXPECT_THAT(delegate->fixes, IsEmpty());
  daemon->positions = {};
  service->requestLocation();
  settle();
  daemon->tell({kMakkah});
  settle();
  EXPECT_THAT(delegate->fixes, ElementsAre(kMakkah));
}

TEST_F(GeoClueLocationServiceTest, WaitsAMinuteForAPositionOfAFewKilometresThenTakesTheBest) {
  constexpr LocationCoordinate kBandung{-6.9, 107.6};
  const struct {
    const char* name;
    std::vector<FakeGeoClue::Position> told;
    bool atOnce;
    LocationCoordinate taken;
  } cases[] = {
      {"a good one", {{kMakkah, 3000}, {kJakarta, 50}}, true, kMakkah},
      {"a good one after a coarse one", {{kMakkah, 300'000}, {kJakarta, 50}}, true, kJakarta},
      {"coarse ones only",
       {{kMakkah, 300'000}, {kJakarta, 25'000}, {kBandung, 90'000}},
       false,
       kJakarta},
      {"one of unknown accuracy", {{kMakkah, -1}}, false, kMakkah},
      {"a coarse one after an unknown one",
       {{kMakkah, -1}, {kJakarta, 300'000}, {kBandung, -1}},
       false,
       kJakarta},
  };
  startDaemon(Agent::allows);
  startService(Contact::atStart);
  for (const auto& [name, told, atOnce, taken] : cases) {
    SCOPED_TRACE(name);
    loop.advance(Seconds(60));
    delegate->fixes.clear();
    daemon->positions = told;
    service->requestLocation();
    settle();
    EXPECT_EQ(delegate->fixes.size(), atOnce ? 1U : 0U);
    loop.advance(Seconds(60));
    EXPECT_THAT(delegate->fixes, ElementsAre(taken));
    settle();
  }
}

TEST_F(GeoClueLocationServiceTest, LooksAgainWhenTheNetworkIsBackWhileNoPositionCame) {
  const auto manager = [](uint state) {
    return QDBusMessage::createSignal("/org/freedesktop/NetworkManager",
                                      "org.freedesktop.NetworkManager", "StateChanged")
           << state;
  };
  const auto networkd = [](const char* state) {
    return QDBusMessage::createSignal("/org/freedesktop/network1",
                                      "org.freedesktop.DBus.Properties", "PropertiesChanged")
           << "org.freedesktop.network1.Manager" << QVariantMap{{"OperationalState", state}}
           << QStringList();
  };
  const struct {
    const char* name;
    QDBusMessage gone;
    QDBusMessage back;
  } networks[] = {{"NetworkManager", manager(50), manager(60)},
                  {"networkd", networkd("carrier"), networkd("routable")}};
  startDaemon(Agent::allows);
  startService(Contact::atStart);
  const auto say = [this](const QDBusMessage& signal) {
    bus.connection(QStringLiteral("daemon")).send(signal);
    settle();
  };
  for (const auto& [name, gone, back] : networks) {
    SCOPED_TRACE(name);
    daemon->positions = {};
    service->requestLocation();
    settle();
    loop.advance(Seconds(61));
    daemon->positions = {{kMakkah}};
    delegate->fixes.clear();
    say(gone);
    EXPECT_THAT(delegate->fixes, IsEmpty());
    say(back);
    EXPECT_THAT(delegate->fixes, ElementsAre(kMakkah));
    say(back);
    EXPECT_THAT(delegate->fixes, ElementsAre(kMakkah)) << "it is known by now";
  }
}

TEST_F(GeoClueLocationServiceTest, GoesAwayInMidRequestWithoutATrace) {
  startDaemon(Agent::allows);
  startService(Contact::atStart);
  service->setDelegate(nullptr);
  service.reset();
  settle();
  daemon->tell({kMakkah});
  loop.advance(Seconds(100));
  settle();
  EXPECT_EQ(daemon->calls.back(), "DeleteClient");
  EXPECT_THAT(delegate->fixes, IsEmpty());
}

}  // namespace
}  // namespace Hilalor::Desktop
