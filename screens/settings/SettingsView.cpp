#include "screens/settings/SettingsView.hpp"

#include <QPainter>

#include "screens/settings/AboutCard.hpp"
#include "screens/settings/AdjustmentsCard.hpp"
#include "screens/settings/PrayerTimesCard.hpp"
#include "ui/Containers.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr int kWidth = 380;
constexpr Insets kPadding = Insets::all(16);
constexpr TextStyle kHeaderStyle{
    .size = 10, .weight = QFont::DemiBold, .color = &Colors::secondary};
constexpr Insets kHeaderPadding{.top = 20, .leading = 4, .bottom = 6, .trailing = 4};

QWidget* sectionHeader(const char* title) {
  return padded(kHeaderPadding, new Text(kHeaderStyle, QString::fromUtf8(title).toUpper()));
}

std::vector<MenuBarStyle> menuBarStyles() {
  return {MenuBarStyle::date, MenuBarStyle::emoji, MenuBarStyle::nextPrayer};
}

QString labelOf(MenuBarStyle style) {
  switch (style) {
    case MenuBarStyle::date:
      return QStringLiteral("Date  (e.g. 6 Apr)");
    case MenuBarStyle::emoji:
      return QStringLiteral("Emoji \U0001F4C5");
    case MenuBarStyle::nextPrayer:
      return QStringLiteral("Next prayer countdown");
  }
  return {};
}

std::vector<PrimaryCalendar> primaryCalendars() {
  return {PrimaryCalendar::gregorian, PrimaryCalendar::hijri};
}

QString labelOf(PrimaryCalendar calendar) {
  return calendar == PrimaryCalendar::gregorian ? QStringLiteral("Gregorian")
                                                : QStringLiteral("Hijri (Umm Al-Qura)");
}

}  // namespace

SettingsView::SettingsView(const SettingsContext& context, Updater* updater, const QPixmap& appIcon)
    : SettingsPart(context), prayerTimes_(new PrayerTimesCard(context)) {
  auto* content = column(
      {.padding = kPadding},
      {unsavedLine(), sectionHeader("Menu Bar"), menuBarCard(), sectionHeader("Calendar"),
       calendarCard(), sectionHeader("Prayer Times"), prayerTimes_, sectionHeader("Appearance"),
       appearanceCard(), sectionHeader("About"), new AboutCard(context, updater, appIcon),
       sectionHeader("Adjustments"), new AdjustmentsCard(context), flexibleSpace()});
  content->setFixedWidth(byType(kWidth));
  auto* scrolling = new ScrollColumn(content);
  scrolling->setAccessibleName(QStringLiteral("Settings"));
  setBody(scrolling);
  redraw();
}

QWidget* SettingsView::menuBarCard() {
  return new Card({rowLabel("Menu bar icon"),
                   greenPicker<MenuBarStyle>("Menu bar icon", settings_.menuBarStyle, menuBarStyles,
                                             [](MenuBarStyle style) { return labelOf(style); })});
}

QWidget* SettingsView::calendarCard() {
  auto* primary =
      greenPicker<PrimaryCalendar>("Primary calendar", settings_.primaryCalendar, primaryCalendars,
                                   [](PrimaryCalendar calendar) { return labelOf(calendar); });
  auto* whileShown =
      column({.spacing = kRowSpacing, .alignment = Qt::AlignLeft},
             {groupDivider(), rowLabel("Primary calendar"), primary, groupDivider(),
              toggleRow("Show secondary calendar", settings_.showSecondaryCalendar), groupDivider(),
              toggleRow("Show Islamic Eids & Saudi holidays", settings_.showHolidays)});
  return new Card({toggleRow("Show calendar", settings_.showCalendar),
                   onlyWhile([this] { return settings_.showCalendar.value(); }, whileShown)});
}

QWidget* SettingsView::appearanceCard() {
  auto* themes = new SegmentedPicker(
      {QStringLiteral("System"), QStringLiteral("Light"), QStringLiteral("Dark")},
      [this](int index) { settings_.theme = static_cast<AppTheme>(index); });
  themes->setAccessibleName(QStringLiteral("Theme"));
  atRedraw([this, themes] { themes->setCurrent(static_cast<int>(settings_.theme.value())); });
  return new Card({rowLabel("Theme"), themes});
}

void SettingsView::showEvent(QShowEvent* event) {
  SettingsPart::showEvent(event);
  prayerTimes_->refreshNotificationStatus();
}

void SettingsView::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(rect(), Colors::of(*this).windowBackground);
}

}  // namespace Hilalor::Screens
