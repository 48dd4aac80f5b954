// Announcements on a real desktop at any time of day: a program of which only the clock is not
// real.
//
//   announcement_probe SOUNDS
//
// SOUNDS is the folder of the recordings and beeps. It reads commands, a line each ("announce": the
// minute of the next prayer comes; "stop") and tells what happens, a line each, behind the seconds
// of the machine's monotonic clock.

#include <QCoreApplication>
#include <QSocketNotifier>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <string>

#include "desktop/notifications/LinuxNotificationCenter.hpp"
#include "desktop/process/QtRunLoop.hpp"
#include "desktop/sound/LinuxSoundService.hpp"
#include "rules/prayer/PrayerNotificationManager.hpp"
#include "tests/fakes/FakeGeocoder.hpp"
#include "tests/fakes/FakeLocationService.hpp"
#include "tests/fakes/InMemoryDefaultsStore.hpp"

namespace {

using namespace Hilalor;
using namespace Hilalor::Desktop;

void tell(const std::string& what) {
  const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
  std::printf("%.4f %s\n", now.count(), what.c_str());
  std::fflush(stdout);
}

class SetClock final : public Clock {
 public:
  [[nodiscard]] Date now() const override { return date; }
  Date date{1794819600};  // 16 November 2026
};

class Probe {
 public:
  explicit Probe(const char* sounds) : sounds_(loop_, {sounds}) {
    settings_.prayerNotificationsEnabled = true;
    settings_.beepSoundEnabled = true;
    settings_.athanEnabled = true;
    settings_.playDuaAfterAthan = true;
    title_ = manager_.activeAthanTitle.subscribe(
        [](const auto& title) { tell("title " + title.value_or("")); });
  }

  void obey(const std::string& command) {
    if (command == "announce") announceNext();
    if (command == "stop") {
      manager_.stopAll();
      tell("stopped");
    }
  }

 private:
  void announceNext() {
    const auto before = manager_.activeAthanTitle.value();
    while (manager_.activeAthanTitle.value() == before) {
      clock_.date = clock_.date + std::chrono::minutes(1);
      manager_.checkAndNotify();
    }
  }

  QtRunLoop loop_;
  SetClock clock_;
  FakeLocationService location_;
  FakeGeocoder geocoder_;
  LocationManager locationManager_{location_, geocoder_, loop_};
  InMemoryDefaultsStore store_;
  AppSettings settings_{store_, locationManager_};
  LinuxNotificationCenter notifications_{
      loop_, [] { return std::optional(QDBusConnection::sessionBus()); }};
  LinuxSoundService sounds_;
  PrayerNotificationManager manager_{settings_, clock_, loop_, notifications_, sounds_};
  Subscription title_;
};

}  // namespace

int main(int argc, char* argv[]) {
  QCoreApplication application(argc, argv);
  if (argc != 2) return 2;
  Probe probe(argv[1]);
  const QSocketNotifier input(0, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
    std::string command;
    if (std::getline(std::cin, command)) {
      probe.obey(command);
    } else {
      QCoreApplication::quit();
    }
  });
  return QCoreApplication::exec();
}
