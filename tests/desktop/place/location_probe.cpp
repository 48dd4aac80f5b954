// location_probe: finds out where the machine is as the program does, on the system bus, and prints
// every change; the word "ask" on its input asks for permission, "look" looks for the place again.
// location_probe agent allow|refuse: stands for the desktop's agent, which speaks for the user.

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QSocketNotifier>
#include <cstdio>
#include <iostream>
#include <string>

#include "desktop/place/GeoClueLocationService.hpp"
#include "desktop/place/OfflineGeocoder.hpp"
#include "desktop/process/QtRunLoop.hpp"
#include "desktop/process/Resources.hpp"
#include "rules/settings/AppSettings.hpp"
#include "tests/fakes/InMemoryDefaultsStore.hpp"

namespace {

using namespace Hilalor;
using namespace Hilalor::Desktop;

class Agent final : public QDBusVirtualObject {
 public:
  explicit Agent(bool allows) : allows_(allows) {
    QDBusConnection::systemBus().registerVirtualObject(
        QStringLiteral("/org/freedesktop/GeoClue2/Agent"), this);
    connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, [] { announce(); });
    announce();
  }

  static void announce() {
    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.GeoClue2"),
        QStringLiteral("/org/freedesktop/GeoClue2/Manager"),
        QStringLiteral("org.freedesktop.GeoClue2.Manager"), QStringLiteral("AddAgent"));
    QDBusConnection::systemBus().asyncCall(message << QStringLiteral("geoclue-demo-agent"));
  }

  [[nodiscard]] QString introspect(const QString&) const override { return {}; }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    // As good as the desktop's settings let it be; not at all is how they refuse.
    const QVariant level(allows_ ? 8U : 0U);
    if (message.member() == QStringLiteral("GetAll")) {
      return bus.send(
          message.createReply(QVariantMap{{QStringLiteral("MaxAccuracyLevel"), level}}));
    }
    if (message.member() == QStringLiteral("Get")) {
      return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(level))));
    }
    if (message.member() != QStringLiteral("AuthorizeApp")) return false;
    return bus.send(message.createReply({allows_, message.arguments().at(1)}));
  }

 private:
  bool allows_;
  QDBusServiceWatcher watcher_{QStringLiteral("org.freedesktop.GeoClue2"),
                               QDBusConnection::systemBus()};
};

int findLocation(QCoreApplication& application) {
  QtRunLoop loop;
  OfflineGeocoder geocoder(resourceFolder() / "geodata", loop);
  GeoClueLocationService service(QDBusConnection::systemBus(), loop,
                                 GeoClueLocationService::Contact::whenAsked);
  LocationManager manager(service, geocoder, loop);
  InMemoryDefaultsStore store;
  const AppSettings settings(store, manager);

  const auto ofStatus = manager.authStatus.subscribe([](AuthorizationStatus status) {
    std::cout << "status " << static_cast<int>(status) << std::endl;
  });
  const auto ofCoordinate = manager.coordinate.subscribe([](const auto& coordinate) {
    if (!coordinate) return;
    std::cout << "position " << coordinate->latitude << " " << coordinate->longitude << std::endl;
  });
  // The name is told before it is in place; the effective place is read once it is.
  const auto ofName = manager.detectedTimeZone.subscribe([&](const auto&) {
    loop.post([&] {
      const auto place = settings.effectiveLocation();
      std::cout << "place " << place.name << " " << place.timeZone.identifier() << std::endl;
    });
  });
  QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
    std::string word;
    if (!std::getline(std::cin, word)) return application.quit();
    if (word == "ask") manager.manager.requestWhenInUseAuthorization();
    if (word == "look") manager.lookAgain();
    std::cout << "heard " << word << std::endl;
  });
  return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  if (argc == 3 && std::string(argv[1]) == "agent") {
    const Agent agent(std::string(argv[2]) == "allow");
    return QCoreApplication::exec();
  }
  return findLocation(application);
}
