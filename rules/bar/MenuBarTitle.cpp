#include "rules/bar/MenuBarTitle.hpp"

#include <algorithm>

#include "datetime/Calendar.hpp"
#include "datetime/DateFormatter.hpp"
#include "rules/prayer/ListedTime.hpp"

namespace Hilalor {
namespace {

using Form = CompactTitle::Form;

/// A square has room for four letters, but half a name reads better with three.
constexpr std::size_t kMostLetters = 4;
constexpr std::size_t kLettersOfMore = 3;

/// Two figures for the hours leave no room for the minutes.
constexpr std::int64_t kHoursWithMinutes = 10;

/// The beginning of the first word, which is one of the program's own and ASCII.
std::string beginning(const std::string& text) {
  const auto word = text.substr(0, text.find(' '));
  return word.size() <= kMostLetters ? word : word.substr(0, kLettersOfMore);
}

std::string twoDigits(std::int64_t number) {
  return std::string(number < 10 ? "0" : "").append(std::to_string(number));
}

ItemTitle glyphAlone(TitleGlyph glyph) {
  return {.glyph = glyph, .text = std::nullopt, .compact = {.form = Form::glyph}};
}

}  // namespace

ItemTitle menuBarTitle(const PrayerCourse& course, const Moment& moment) {
  const auto& settings = course.settings();
  switch (settings.menuBarStyle.value()) {
    case MenuBarStyle::emoji:
      return glyphAlone(TitleGlyph::calendar);
    case MenuBarStyle::nextPrayer:
      return nextPrayerTitle(course, moment.now);
    case MenuBarStyle::date:
      break;
  }
  return dateTitle(settings.primaryCalendar, moment, static_cast<int>(settings.hijriDays.value()));
}

ItemTitle dateTitle(PrimaryCalendar primaryCalendar, const Moment& moment, int hijriDaysAhead) {
  const bool isHijri = primaryCalendar == PrimaryCalendar::hijri;
  const auto calendar =
      Calendar(isHijri ? CalendarIdentifier::islamicUmmAlQura : CalendarIdentifier::gregorian,
               moment.zone)
          .withHijriAhead(hijriDaysAhead);
  return {
      .text = DateFormatter("d MMM", calendar).string(moment.now),
      .compact = {.form = Form::page, .upper = DateFormatter("d", calendar).string(moment.now)}};
}

ItemTitle nextPrayerTitle(const PrayerCourse& course, Date now) {
  const auto next = course.next(now);
  return next ? countdown(*next, now) : glyphAlone(TitleGlyph::mosque);
}

ItemTitle countdown(const CalledPrayer& prayer, Date now) {
  const auto secondsLeft = std::max(Seconds(0), prayer.time - now);
  const std::int64_t minutesLeft =
      std::chrono::duration_cast<std::chrono::minutes>(secondsLeft).count();
  const auto hours = minutesLeft / 60;
  const auto minutes = minutesLeft % 60;
  const std::string name(displayName(prayer.prayer));
  ItemTitle title{.text = name + " ", .compact = {.form = Form::lines, .upper = beginning(name)}};
  if (hours > 0) {
    *title.text += std::to_string(hours) + "h ";
    title.compact.lower = std::to_string(hours) + "h";
    if (hours < kHoursWithMinutes) title.compact.minutes = twoDigits(minutes);
  } else {
    title.compact.lower = std::to_string(minutes) + "m";
  }
  *title.text += std::to_string(minutes) + "m";
  return title;
}

ItemTitle athanTitle(const std::string& activeAthanTitle) {
  auto title = glyphAlone(TitleGlyph::mosque);
  title.text = activeAthanTitle;
  if (!activeAthanTitle.empty()) {
    title.compact = {.form = Form::lines, .upper = beginning(activeAthanTitle), .lower = "now"};
  }
  return title;
}

}  // namespace Hilalor
