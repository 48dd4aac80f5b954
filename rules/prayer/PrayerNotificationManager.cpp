#include "rules/prayer/PrayerNotificationManager.hpp"

#include <utility>

#include "rules/calendar/Uuid.hpp"
#include "rules/prayer/ListedTime.hpp"

namespace Hilalor {
namespace {

/// How long the title of an announcement without an athan stays.
constexpr Seconds kTitleLingers{120.0};

/// The pause after a beep that sounds once, and the wait where there is no such sound.
constexpr Seconds kPauseAfterBeep{0.2};
constexpr Seconds kWaitWithoutBeep{1.7};

constexpr std::string_view kRecordingExtension = "mp3";
constexpr std::string_view kSupplicationFile = "after_athan";

template <typename Sounding>
void stopAndDrop(std::shared_ptr<Sounding>& sounding) {
  if (const auto dropped = std::exchange(sounding, nullptr)) dropped->stop();
}

}  // namespace

PrayerNotificationManager::PrayerNotificationManager(const AppSettings& settings,
                                                     const Clock& clock, RunLoop& loop,
                                                     NotificationCenter& notifications,
                                                     SoundService& sounds)
    : settings_(settings),
      clock_(clock),
      loop_(loop),
      notifications_(notifications),
      sounds_(sounds) {
  notifications_.setDelegate(this);
}

PrayerNotificationManager::~PrayerNotificationManager() {
  notifications_.setDelegate(nullptr);
}

void PrayerNotificationManager::checkAndNotify() {
  checkAndNotify(clock_.now());
}

void PrayerNotificationManager::checkAndNotify(Date now) {
  if (!settings_.prayerNotificationsEnabled) return;
  announce(now);
  remind(now);
}

void PrayerNotificationManager::announce(Date now) {
  const auto due = duePrayer(course_, announced_, now);
  if (!due) return;
  announced_.add(*due, now);
  deliver(due->prayer);
}

void PrayerNotificationManager::remind(Date now) {
  const std::chrono::minutes before(settings_.reminderMinutes.value());
  if (before.count() == 0) return;
  const auto due = duePrayer(course_, reminded_, now + before);
  if (!due) return;
  reminded_.add(*due, now + before);
  const std::string name(displayName(due->prayer));
  const auto elements = announcementElements(settings_);
  if (elements.banner) {
    postBanner("🕌 " + name, name + " in " + std::to_string(before.count()) + " minutes");
  }
  // An announcement in progress is not disturbed.
  if (!elements.beep || activeAthanTitle.value()) return;
  reminderSound_ = sounds_.soundNamed(elements.beep->sound);
  if (reminderSound_) reminderSound_->play();
}

void PrayerNotificationManager::deliver(Adhan::Prayer prayer) {
  const std::string name(displayName(prayer));
  const auto elements = announcementElements(settings_);
  if (elements.banner) postBanner("🕌 " + name, "It's time for " + name + " prayer");
  activeAthanTitle.assign(name + " Athan");
  if (!elements.beep) {
    followBeep(elements);
    return;
  }
  beepSound_ = sounds_.soundNamed(elements.beep->sound);
  if (elements.beep->loopLength) {
    beepInLoop(*elements.beep->loopLength, elements);
  } else {
    beepOnce(elements);
  }
}

void PrayerNotificationManager::beepOnce(const AnnouncementElements& elements) {
  if (beepSound_) beepSound_->play();
  const auto wait = beepSound_ ? beepSound_->duration() + kPauseAfterBeep : kWaitWithoutBeep;
  loop_.after(wait, lifetime_.whileAlive([this, elements] { followBeep(elements); }));
}

void PrayerNotificationManager::beepInLoop(Seconds length, const AnnouncementElements& elements) {
  if (beepSound_) {
    beepSound_->setLoops(true);
    beepSound_->play();
  }
  const auto end = [this, elements, sound = std::weak_ptr(beepSound_)] {
    // The beep of a later announcement goes on.
    if (sound.lock() == beepSound_) stopAndDrop(beepSound_);
    followBeep(elements);
  };
  beepLoopStopTimer_.schedule(loop_, length, lifetime_.whileAlive(end));
}

void PrayerNotificationManager::followBeep(const AnnouncementElements& elements) {
  if (!elements.athan) {
    scheduleCleanup();
    return;
  }
  pendingDua_ = elements.athan->supplicationFollows;
  playAthan(elements.athan->file, elements.athan->voice);
}

void PrayerNotificationManager::scheduleCleanup() {
  athanTitleTimer_.schedule(loop_, kTitleLingers, lifetime_.whileAlive([this] {
    activeAthanTitle.assign(std::nullopt);
  }));
}

void PrayerNotificationManager::postBanner(const std::string& title, const std::string& body) {
  checkAuthorizationStatus([this, title, body](NotificationAuthorization status) {
    if (status != NotificationAuthorization::authorized) return;
    notifications_.add({Uuid::random().string(), title, body});
  });
}

void PrayerNotificationManager::requestPermission(std::function<void(bool granted)> completion) {
  notifications_.requestAuthorization(
      NotificationOptions::alert | NotificationOptions::sound,
      lifetime_.whileAlive([completion = std::move(completion)](bool granted) {
        if (completion) completion(granted);
      }));
}

void PrayerNotificationManager::checkAuthorizationStatus(
    std::function<void(NotificationAuthorization)> completion) {
  notifications_.authorizationStatus(lifetime_.whileAlive(std::move(completion)));
}

NotificationOptions PrayerNotificationManager::willPresent(const NotificationRequest&) {
  return NotificationOptions::banner | NotificationOptions::sound;
}

void PrayerNotificationManager::playAthan(std::string_view file,
                                          std::optional<AthanVoice> previewVoice) {
  const auto recording = sounds_.resource(file, kRecordingExtension);
  if (!recording) {
    sounds_.beep();
    return;
  }
  open(*recording, [this, previewVoice](std::shared_ptr<AudioPlayer> player) {
    if (!player) {
      sounds_.beep();
      return;
    }
    start(athanPlayer_, std::move(player));
    if (previewVoice) playingVoice.assign(previewVoice);
  });
}

void PrayerNotificationManager::playDua() {
  const auto recording = sounds_.resource(kSupplicationFile, kRecordingExtension);
  if (!recording) return;
  open(*recording, [this](std::shared_ptr<AudioPlayer> player) {
    if (!player) return;
    start(duaPlayer_, std::move(player));
    playingDua.assign(true);
  });
}

void PrayerNotificationManager::open(const std::filesystem::path& recording,
                                     std::function<void(std::shared_ptr<AudioPlayer>)> then) {
  loop_.inBackground([&sounds = sounds_, recording,
                      then = lifetime_.whileAlive(std::move(then))]() -> RunLoop::Task {
    return [then, player = sounds.player(recording)] { then(player); };
  });
}

void PrayerNotificationManager::start(std::shared_ptr<AudioPlayer>& place,
                                      std::shared_ptr<AudioPlayer> player) {
  player->setDelegate(this);
  place = std::move(player);
  place->play();
}

void PrayerNotificationManager::audioPlayerDidFinishPlaying(AudioPlayer& player,
                                                            bool /*successfully*/) {
  const bool supplicationFollows =
      athanPlayer_.get() == &player && std::exchange(pendingDua_, false);
  playingVoice.assign(std::nullopt);
  if (supplicationFollows) {
    athanPlayer_.reset();
    playDua();
    return;
  }
  athanPlayer_.reset();
  duaPlayer_.reset();
  playingDua.assign(false);
  activeAthanTitle.assign(std::nullopt);
}

void PrayerNotificationManager::stopAll() {
  stopAndDrop(beepSound_);
  stopAndDrop(reminderSound_);
  beepLoopStopTimer_.invalidate();
  stopAndDrop(athanPlayer_);
  stopAndDrop(duaPlayer_);
  pendingDua_ = false;
  playingVoice.assign(std::nullopt);
  playingDua.assign(false);
  athanTitleTimer_.invalidate();
  activeAthanTitle.assign(std::nullopt);
}

void PrayerNotificationManager::stopDua() {
  stopAndDrop(duaPlayer_);
  playingDua.assign(false);
}

}  // namespace Hilalor
