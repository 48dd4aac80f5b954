#include "rules/calendar/PanelModel.hpp"

#include <algorithm>
#include <utility>

namespace Hilalor {
namespace {

constexpr std::size_t kWeek = 7;

}  // namespace

PanelModel::PanelModel(const AppSettings& settings, const Moment& moment)
    : settings_(settings),
      moment_(moment),
      shownSections_(sections()),
      month_(moment.now, settings.primaryCalendar, settings.hijriCalendar()) {}

PanelSections PanelModel::sections() const {
  return {.calendar = settings_.showCalendar, .prayerTimes = settings_.showPrayerTimes};
}

void PanelModel::refresh(const Moment& moment) {
  const auto zoneBefore = std::exchange(moment_, moment).zone;
  if (const auto wanted = sections(); wanted != shownSections_) {
    shownSections_ = wanted;
    hoverText_.clear();
    returnToToday(moment.now);
  }
  if (moment.zone != zoneBefore) returnToToday(moment.now);
  if (settings_.primaryCalendar != month_.primaryCalendar) returnToToday(moment.now);
  if (settings_.hijriDays != month_.hijriCalendar.hijriDaysAhead()) returnToToday(moment.now);
  if (!shownSections_.calendar) return;
  page_ =
      month_.page(moment, settings_.showHolidays ? HolidayLabels::shown : HolidayLabels::hidden);
}

std::size_t PanelModel::neededWeeks() const {
  const auto last = std::find_if(page_.cells.rbegin(), page_.cells.rend(),
                                 [](const auto& cell) { return cell.has_value(); });
  return (static_cast<std::size_t>(page_.cells.rend() - last) + kWeek - 1) / kWeek;
}

std::string PanelModel::title() const {
  const auto year = std::to_string(page_.year);
  return isYearMode_ ? year : page_.monthName + " " + year;
}

Date PanelModel::keyboardDay() const {
  if (selectedDay_) return *selectedDay_;
  const auto day = month_.date(month_.todayDay(moment_.now).value_or(1));
  return day.value_or(month_.displayDate);
}

void PanelModel::showPrevious() {
  month_ = isYearMode_ ? month_.previousYear() : month_.previousMonth();
}

void PanelModel::showNext() {
  month_ = isYearMode_ ? month_.nextYear() : month_.nextMonth();
}

void PanelModel::click(Date day) {
  selectedBefore_ = selectedDay_;
  selectedDay_ = selectedDay_ == day ? std::nullopt : std::optional(day);
}

void PanelModel::doubleClick(Date day) {
  selectedDay_ = selectedBefore_;
  noteDay_ = day;
}

void PanelModel::move(CalendarUnit unit, int amount) {
  const bool isHijri = month_.primaryCalendar == PrimaryCalendar::hijri;
  const Calendar& calendar = isHijri ? month_.hijriCalendar : month_.gregorianCalendar;
  const auto moved = calendar.adding(unit, amount, keyboardDay());
  if (!moved) return;
  selectedDay_ = calendar.startOfDay(*moved);
  month_ = CalendarModel(*selectedDay_, month_.primaryCalendar, month_.hijriCalendar);
}

void PanelModel::openNote() {
  const auto day = keyboardDay();
  const bool isOnPage =
      std::ranges::any_of(page_.cells, [&](const auto& cell) { return cell && cell->date == day; });
  if (isOnPage) noteDay_ = day;
}

void PanelModel::returnToToday(Date now) {
  month_ = CalendarModel(now, settings_.primaryCalendar, settings_.hijriCalendar());
  isYearMode_ = false;
  selectedDay_.reset();
}

}  // namespace Hilalor
