#include "command/Answers.hpp"

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <string_view>

#include "Adhan/Qibla.hpp"
#include "datetime/DateFormatter.hpp"
#include "rules/bar/MenuBarTitle.hpp"
#include "rules/calendar/CalendarModel.hpp"
#include "rules/calendar/HolidaysProvider.hpp"
#include "rules/calendar/Weekdays.hpp"
#include "rules/prayer/PrayerList.hpp"
#include "rules/prayer/PrayerTimesCalculator.hpp"

namespace Hilalor {
namespace {

using Json = nlohmann::ordered_json;

constexpr auto kGregorian = CalendarIdentifier::gregorian;
constexpr auto kHijri = CalendarIdentifier::islamicUmmAlQura;

/// An answer for people and for programs.
struct Answer {
  std::string text;
  Json json;
};

std::string line(const Json& json) {
  // A place's name may hold any bytes.
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// The names of times in JSON, in the order of ListedTime.
constexpr std::array<std::string_view, 8> kTimeIds{"fajr",
                                                   "sunrise",
                                                   "dhuhr",
                                                   "asr",
                                                   "maghrib",
                                                   "isha",
                                                   "middleOfTheNight",
                                                   "lastThirdOfTheNight"};

std::string idOf(ListedTime time) {
  return std::string(kTimeIds.at(static_cast<std::size_t>(time)));
}

std::string_view wordFor(PlaceSource source) {
  constexpr std::array<std::string_view, 4> kWords{"given", "settings", "located", "fallback"};
  return kWords.at(static_cast<std::size_t>(source));
}

// The zone whose days the answer speaks of. A date is the same in the other calendar everywhere,
// also where the clocks left it out.
TimeZone zoneOf(const Request& request, const Course& course, const Moment& moment) {
  if (request.verb == Verb::day) return course.settings().effectiveLocation().timeZone;
  return request.verb == Verb::convert ? TimeZone::named("UTC").value_or(moment.zone) : moment.zone;
}

// The day that the request names, in the user's own calendar; today where it names none. None where
// the zone has no such day.
std::optional<Date> shownDay(const Request& request, const Course& course, const Moment& moment) {
  if (!request.date) return moment.now;
  return noonOf(*request.date, zoneOf(request, course, moment),
                course.settings().hijriCalendar().hijriDaysAhead());
}

Json placeOf(const Course& course) {
  const auto place = course.settings().effectiveLocation();
  return {{"name", place.name},
          {"latitude", place.latitude},
          {"longitude", place.longitude},
          {"zone", place.timeZone.identifier()},
          {"source", wordFor(course.source())}};
}

// The instant of a time that the day has.
Date instantOf(const PrayerDay& day, ListedTime time) {
  if (time == ListedTime::middleOfTheNight) return day.sunnahTimes()->middleOfTheNight;
  if (time == ListedTime::lastThirdOfTheNight) return day.sunnahTimes()->lastThirdOfTheNight;
  return *day.time(static_cast<Adhan::Prayer>(time));
}

std::string textOf(const PrayerList& list) {
  constexpr std::size_t kNameWidth = 17;
  std::string text = list.gregorianDate + "\n" + list.hijriDate + "\n" + list.placeName;
  for (const auto& row : list.rows) {
    std::string name(displayName(row.listed));
    name.resize(kNameWidth, ' ');
    text += (row.isActive ? "\n> " : "\n  ") + name + row.time;
  }
  if (list.rows.empty()) text += "\nThe sun gives no times on this day.";
  return text;
}

Answer dayAnswer(const Request& request, const Course& course, const Moment& moment) {
  const auto zone = course.settings().effectiveLocation().timeZone;
  const Date shown = shownDay(request, course, moment).value_or(moment.now);
  const auto list = prayerList(course.prayers(), shown, moment.now);
  Json times = Json::array();
  const auto day = course.prayers().day(shown);
  for (const auto& row : list.rows) {
    times.push_back({{"id", idOf(row.listed)},
                     {"name", displayName(row.listed)},
                     {"time", isoText(instantOf(*day, row.listed), zone)},
                     {"past", row.isPast},
                     {"next", row.isActive}});
  }
  return {textOf(list),
          {{"date", isoText(civilDateOf(shown, Calendar(kGregorian, zone)))},
           {"hijriDate", isoText(civilDateOf(shown, course.settings().hijriCalendar(zone)))},
           {"gregorian", list.gregorianDate},
           {"hijri", list.hijriDate},
           {"place", placeOf(course)},
           {"method", rawValue(course.settings().calculationMethod.value())},
           {"asr", rawValue(course.settings().asrCalculation.value())},
           {"times", times}}};
}

Answer titleAnswer(const Course& course, const Moment& moment) {
  const auto& announced = course.announcement();
  const auto title =
      (announced ? athanTitle(*announced) : menuBarTitle(course.prayers(), moment)).whole();
  return {title, {{"title", title}, {"now", isoText(moment.now, moment.zone)}}};
}

Answer nextAnswer(const Course& course, const Moment& moment) {
  const auto title = nextPrayerTitle(course.prayers(), moment.now).whole();
  Json json{{"id", nullptr}, {"name", nullptr}, {"time", nullptr}, {"title", title}};
  if (const auto next = course.prayers().next(moment.now)) {
    json["id"] = idOf(listed(next->prayer));
    json["name"] = displayName(next->prayer);
    json["time"] = isoText(next->time, course.settings().effectiveLocation().timeZone);
  }
  json["place"] = placeOf(course);
  return {title, json};
}

std::string monthText(const MonthPage& page, const std::vector<WeekdayColumn>& columns) {
  std::string text =
      page.monthName + " " + std::to_string(page.year) + "\n" + page.secondaryMonthHeader + "\n";
  for (const auto& column : columns)
    text += " " + column.symbol + " ";
  text.pop_back();
  std::string row;
  for (std::size_t i = 0; i < page.cells.size(); ++i) {
    if (i % columns.size() == 0) row = "\n";
    const auto& cell = page.cells[i];
    const auto number = cell ? std::to_string(cell->day) : "";
    row += std::string(3 - number.size(), ' ') + number + (cell && cell->isToday ? "*" : " ");
    if (i % columns.size() + 1 < columns.size()) continue;
    row.resize(row.find_last_not_of("\n ") + 1);
    text += row;
  }
  return text;
}

Answer monthAnswer(const Request& request, const Course& course, const Moment& moment) {
  auto calendar = course.settings().primaryCalendar.value();
  if (request.date) {
    calendar =
        request.date->calendar == kHijri ? PrimaryCalendar::hijri : PrimaryCalendar::gregorian;
  }
  const CalendarModel model(shownDay(request, course, moment).value_or(moment.now), calendar,
                            course.settings().hijriCalendar(moment.zone));
  const auto page = model.page(moment, HolidayLabels::shown);
  Json days = Json::array();
  for (const auto& cell : page.cells) {
    if (!cell) continue;
    days.push_back({{"date", isoText(civilDateOf(cell->date, model.gregorianCalendar))},
                    {"hijriDate", isoText(civilDateOf(cell->date, model.hijriCalendar))},
                    {"day", cell->day},
                    {"holiday", cell->holidayLabel},
                    {"today", cell->isToday},
                    {"weekend", cell->isWeekend}});
  }
  return {monthText(page, orderedWeekdays(moment)),
          {{"calendar", rawValue(calendar)},
           {"name", page.monthName},
           {"year", page.year},
           {"beside", page.secondaryMonthHeader},
           {"days", days}}};
}

Answer convertAnswer(const Request& request, const Course& course, const Moment& moment) {
  const auto zone = zoneOf(request, course, moment);
  const Date noon = shownDay(request, course, moment).value_or(moment.now);
  const Calendar gregorianCalendar(kGregorian, zone);
  const auto hijriCalendar = course.settings().hijriCalendar(zone);
  const auto gregorian = DateFormatter("EEEE, d MMMM yyyy", gregorianCalendar);
  const auto hijri = DateFormatter("EEEE, d MMMM yyyy", hijriCalendar);
  const auto isHijri = request.date->calendar == kHijri;
  return {(isHijri ? gregorian : hijri).string(noon),
          {{"date", isoText(civilDateOf(noon, gregorianCalendar))},
           {"hijriDate", isoText(civilDateOf(noon, hijriCalendar))},
           {"gregorian", gregorian.string(noon)},
           {"hijri", hijri.string(noon)},
           {"holiday", HolidaysProvider::label(HolidaysProvider::holidays(
                           hijriCalendar.components(noon), gregorianCalendar.components(noon)))}}};
}

Answer qiblaAnswer(const Course& course) {
  const auto place = course.settings().effectiveLocation();
  const Adhan::Qibla qibla(adhanCoordinates(place));
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.1f\u00b0", qibla.direction);
  return {text.data(), {{"direction", qibla.direction}, {"place", placeOf(course)}}};
}

Answer answerOf(const Request& request, const Course& course, const Moment& moment) {
  switch (request.verb) {
    case Verb::day:
      return dayAnswer(request, course, moment);
    case Verb::next:
      return nextAnswer(course, moment);
    case Verb::month:
      return monthAnswer(request, course, moment);
    case Verb::convert:
      return convertAnswer(request, course, moment);
    case Verb::qibla:
      return qiblaAnswer(course);
    default:
      return titleAnswer(course, moment);
  }
}

// Waybar reads its texts as Pango's markup.
std::string markup(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '&') {
      result += "&amp;";
    } else if (c == '<') {
      result += "&lt;";
    } else if (c == '>') {
      result += "&gt;";
    } else {
      result += c;
    }
  }
  return result;
}

std::string waybarLine(const Answer& shown, const Course& course, const Moment& moment) {
  const auto next = course.prayers().next(moment.now);
  const auto today = textOf(prayerList(course.prayers(), moment.now, moment.now));
  return line({{"text", markup(shown.text)},
               {"tooltip", markup(today)},
               {"class", next ? idOf(listed(next->prayer)) : "none"}});
}

// Whether the answer depends on the place.
bool isOfPlace(const Request& request, const Course& course) {
  switch (request.verb) {
    case Verb::day:
    case Verb::next:
    case Verb::qibla:
      return true;
    case Verb::title:
      return request.form == AnswerForm::waybar ||
             course.settings().menuBarStyle == MenuBarStyle::nextPrayer;
    default:
      return false;
  }
}

}  // namespace

std::string answer(const Request& request, const Course& course, const Moment& moment) {
  const auto found = answerOf(request, course, moment);
  switch (request.form) {
    case AnswerForm::json:
      return line(found.json);
    case AnswerForm::waybar:
      return waybarLine(found, course, moment);
    case AnswerForm::text:
      break;
  }
  return found.text;
}

std::optional<std::string> refusal(const Request& request, const Course& course,
                                   const Moment& moment) {
  if (shownDay(request, course, moment)) return std::nullopt;
  return "there is no " + isoText(*request.date) + " in " +
         zoneOf(request, course, moment).identifier();
}

std::optional<std::string> warning(const Request& request, const Course& course) {
  if (course.source() != PlaceSource::fallback || !isOfPlace(request, course)) return std::nullopt;
  return "this is for Riyadh: choose your place on the map in the settings, or give --place and "
         "--zone";
}

}  // namespace Hilalor
