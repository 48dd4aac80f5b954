#include "screens/settings/AdjustmentsCard.hpp"

#include <QEvent>

#include "datetime/DateFormatter.hpp"
#include "rules/prayer/ListedTime.hpp"
#include "ui/Containers.hpp"
#include "ui/Stepper.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr int kStepperSpacing = 4;
constexpr int kNoteSpacing = 4;
constexpr TextStyle kNoteStyle{.size = 11, .color = &Colors::secondary};
constexpr StepperRange kMinutes{.lowest = -kMostPrayerMinutes, .highest = kMostPrayerMinutes};
constexpr StepperRange kDays{.lowest = -kMostHijriDays, .highest = kMostHijriDays};

/// "+3", "0" or "−3", before its unit.
QString signedNumber(int number, const char* unit) {
  const QString sign = number > 0 ? QStringLiteral("+") : QString();
  const QString text = sign + QString::number(number) + QString::fromUtf8(unit);
  return QString(text).replace(u'-', QChar(0x2212));
}

QString minutesText(int minutes) {
  return signedNumber(minutes, " min");
}

QString daysText(int days) {
  return signedNumber(days, days == 1 || days == -1 ? " day" : " days");
}

std::vector<std::int64_t> reminders() {
  return {kReminderMinutes.begin(), kReminderMinutes.end()};
}

QString reminderName(const std::int64_t& minutes) {
  return minutes == 0 ? QStringLiteral("Off") : QString::number(minutes) + " minutes before";
}

}  // namespace

AdjustmentsCard::AdjustmentsCard(const SettingsContext& context) : SettingsPart(context) {
  setBody(
      new Card({minutes(), groupDivider(), hijriDay(), groupDivider(), reminder(), groupDivider(),
                toggleRow("24-hour clock", settings_.use24HourClock), startAtLogin()}));
  redraw();
}

bool AdjustmentsCard::event(QEvent* event) {
  // Nothing tells of midnight or of what other programs changed.
  if (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate) redraw();
  return SettingsPart::event(event);
}

QWidget* AdjustmentsCard::minutes() {
  using enum Adhan::Prayer;
  return column(
      {.spacing = kStepperSpacing},
      {rowLabel("Minutes added, to match your mosque"), minutesRow(fajr), minutesRow(sunrise),
       minutesRow(dhuhr), minutesRow(asr), minutesRow(maghrib), minutesRow(isha)});
}

QWidget* AdjustmentsCard::minutesRow(Adhan::Prayer prayer) {
  const std::string name(displayName(prayer));
  auto& minutes = settings_.prayerMinutes[static_cast<std::size_t>(prayer)];
  return stepperRow(QString::fromStdString(name), kMinutes, minutesText, minutes);
}

QWidget* AdjustmentsCard::hijriDay() {
  return column({.spacing = kNoteSpacing},
                {stepperRow(QStringLiteral("Hijri day"), kDays, daysText, settings_.hijriDays),
                 liveText(kNoteStyle, [this] { return "Today is " + hijriToday(); })});
}

QString AdjustmentsCard::hijriToday() const {
  const DateFormatter formatter("d MMMM yyyy", settings_.hijriCalendar());
  return QString::fromStdString(formatter.string(context_.clock.now()));
}

QWidget* AdjustmentsCard::reminder() {
  const auto isVain = [this] {
    return settings_.reminderMinutes != 0 && !settings_.prayerNotificationsEnabled;
  };
  auto* picker = greenPicker<std::int64_t>("Reminder before a prayer", settings_.reminderMinutes,
                                           reminders, reminderName);
  return column(
      {.spacing = kNoteSpacing, .alignment = Qt::AlignLeft},
      {rowLabel("Reminder before a prayer"), picker,
       onlyWhile(isVain, new Text(kNoteStyle, QStringLiteral("Comes while “Notify me at prayer "
                                                             "times” is on.")))});
}

QWidget* AdjustmentsCard::startAtLogin() {
  auto* entry = context_.loginEntry;
  auto* row = new Toggle(ToggleLook::switched, QStringLiteral("Start at login"),
                         [this, entry](bool wanted) {
                           if (entry != nullptr) entry->setOn(wanted);
                           setNeedsRedraw();
                         });
  atRedraw([row, entry] { row->setOn(entry != nullptr && entry->isOn()); });
  return onlyWhile([entry] { return entry != nullptr; },
                   column({.spacing = kRowSpacing}, {groupDivider(), row}));
}

}  // namespace Hilalor::Screens
