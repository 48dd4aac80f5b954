#include "screens/settings/AlertSettings.hpp"

#include <QDir>
#include <QEvent>
#include <QPointer>
#include <algorithm>
#include <limits>

#include "ui/Stepper.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr int kIndent = 24;
constexpr Insets kIndented{.leading = kIndent};
constexpr Insets kWarningPadding{.top = 2};
constexpr Insets kAthanPadding{.top = 4, .leading = kIndent};
constexpr int kAthanSpacing = 6;
constexpr int kSpacing = 8;
constexpr TextStyle kNoteStyle{.size = 11, .color = &Colors::secondary};
constexpr StepperRange kLoopSeconds{.lowest = 5, .highest = 120, .step = 5};

/// The stored number may be any.
int shownSeconds(std::int64_t seconds) {
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<std::int64_t>(seconds, Limits::min(), Limits::max()));
}

}  // namespace

AlertSettings::AlertSettings(const SettingsContext& context) : SettingsPart(context) {
  observe(notificationManager_.willChange);
  setBody(column({.spacing = kRowSpacing, .alignment = Qt::AlignLeft},
                 {toggleRow("Notify me at prayer times", settings_.prayerNotificationsEnabled),
                  onlyWhile([this] { return settings_.prayerNotificationsEnabled.value(); },
                            whileEnabled())}));
  // A subscriber is told of a value before it is in place.
  watches_.push_back(settings_.prayerNotificationsEnabled.publisher().subscribe([this](bool isOn) {
    if (isOn && !settings_.prayerNotificationsEnabled) requestPermission();
  }));
  watches_.push_back(
      settings_.selectedBeepSound.publisher().subscribe([this](const std::string& name) {
        if (name != settings_.selectedBeepSound.value()) playBeep(name);
      }));
  redraw();
}

bool AlertSettings::event(QEvent* event) {
  // The user may come from putting recordings into the folder.
  if (event->type() == QEvent::WindowActivate) setNeedsRedraw();
  return SettingsPart::event(event);
}

QWidget* AlertSettings::whileEnabled() {
  return column({.spacing = kRowSpacing, .alignment = Qt::AlignLeft},
                {groupDivider(), checkboxRow("Notification", settings_.notificationBannerEnabled),
                 onlyWhile(
                     [this] {
                       return settings_.notificationBannerEnabled &&
                              notificationStatus_ == NotificationAuthorization::denied;
                     },
                     blockedWarning()),
                 checkboxRow("Beep Sound", settings_.beepSoundEnabled),
                 onlyWhile([this] { return settings_.beepSoundEnabled.value(); }, beepRows()),
                 checkboxRow("Athan", settings_.athanEnabled),
                 onlyWhile([this] { return settings_.athanEnabled.value(); }, athanRows())});
}

QWidget* AlertSettings::blockedWarning() {
  return padded(kWarningPadding,
                warning({.title = "Notifications are blocked.",
                         .advice = "Enable them in System Settings → Notifications → Hilalor.",
                         .pane = SettingsPane::notifications,
                         .symbolSize = 13,
                         .titleSize = 12,
                         .symbolSpacing = 8,
                         .lineSpacing = 4}));
}

QWidget* AlertSettings::beepRows() {
  auto* sound = greenPicker<std::string>(
      "Beep sound", settings_.selectedBeepSound, [this] { return settings_.systemSoundNames(); },
      [](const std::string& name) { return QString::fromStdString(name); });
  return column({.spacing = kRowSpacing, .padding = kIndented}, {sound, loopRow()});
}

QWidget* AlertSettings::loopRow() {
  auto* seconds = new Stepper(
      kLoopSeconds, [](int value) { return QString::number(value) + " sec"; },
      [this](int value) { settings_.beepLoopSeconds = value; });
  seconds->setName(QStringLiteral("Loop for"));
  atRedraw([this, seconds] { seconds->setValue(shownSeconds(settings_.beepLoopSeconds)); });
  return row(
      {.spacing = kSpacing},
      {checkboxRow("Loop for", settings_.beepLoopEnabled),
       onlyWhile([this] { return settings_.beepLoopEnabled.value(); }, seconds), flexibleSpace()});
}

QWidget* AlertSettings::athanRows() {
  return column({.spacing = kAthanSpacing, .padding = kAthanPadding},
                {voiceRow("Sh. Vemran · Al-Masjid Al-Nabawi", AthanVoice::vemran, "athan"),
                 voiceRow("Sh. Tolsar · Riyadh Grand Mosque", AthanVoice::tolsar, "athan2"),
                 supplicationRow(), placeholderNote()});
}

QWidget* AlertSettings::voiceRow(const char* title, AthanVoice voice, const char* recording) {
  auto* preview = previewButton(
      "Athan, " + QString::fromUtf8(title),
      [this, voice] { return notificationManager_.playingVoice.value() == voice; },
      [this, voice, recording] { previewVoice(voice, recording); },
      [this] { notificationManager_.stopAll(); });
  return row({.spacing = kSpacing},
             {radioButton(title, settings_.athanVoice, voice), flexibleSpace(), preview});
}

QWidget* AlertSettings::supplicationRow() {
  auto* preview = previewButton(
      QStringLiteral("Supplication"), [this] { return notificationManager_.playingDua.value(); },
      [this] {
        notificationManager_.stopDua();
        notificationManager_.playDua();
      },
      [this] { notificationManager_.stopDua(); });
  return row({.padding = kIndented},
             {checkboxRow("Play after Athan supplication", settings_.playDuaAfterAthan),
              flexibleSpace(), preview});
}

QWidget* AlertSettings::placeholderNote() {
  return onlyWhile([this] { return !placeholders().isEmpty(); },
                   padded(kIndented, liveText(kNoteStyle, [this] {
                            QString folder =
                                QString::fromStdString(settings_.ownSoundFolder().string());
                            if (folder.startsWith(QDir::homePath() + '/')) {
                              folder.replace(0, QDir::homePath().size(), '~');
                            }
                            return "Soft tones stand in for recordings. Put your own into " +
                                   folder + " as " + placeholders() + ".";
                          })));
}

QString AlertSettings::placeholders() const {
  QStringList missing;
  for (const auto& [recording, of] : {std::pair("athan", "Sh. Vemran"),
                                      {"athan2", "Sh. Tolsar"},
                                      {"after_athan", "the supplication"}}) {
    const auto file = context_.sounds.resource(recording, "mp3");
    if (file && file->parent_path() == settings_.ownSoundFolder()) continue;
    missing.append(QString("%1.mp3 (%2)").arg(recording, of));
  }
  return missing.join(QStringLiteral(", "));
}

void AlertSettings::requestPermission() {
  notificationManager_.requestPermission([view = QPointer(this)](bool) {
    if (view) view->refreshNotificationStatus();
  });
}

void AlertSettings::refreshNotificationStatus() {
  notificationManager_.checkAuthorizationStatus(
      [view = QPointer(this)](NotificationAuthorization status) {
        if (!view) return;
        view->notificationStatus_ = status;
        view->setNeedsRedraw();
      });
}

void AlertSettings::playBeep(const std::string& name) {
  previewedBeep_ = context_.sounds.soundNamed(name);
  if (previewedBeep_) previewedBeep_->play();
}

void AlertSettings::previewVoice(AthanVoice voice, const char* recording) {
  notificationManager_.stopAll();
  notificationManager_.playAthan(recording, voice);
}

}  // namespace Hilalor::Screens
