#include "datetime/DateFormatter.hpp"

#include <unicode/smpdtfmt.h>

#include <cmath>
#include <cstdint>

#include "datetime/UmmAlQura.hpp"

namespace Hilalor {

// ICU's format, always set to GMT and fed with local time: the zones are ours (see TimeZone).
struct FormatEngine {
  std::unique_ptr<icu::DateFormat> format;  // null when ICU's data are missing
  Calendar calendar;                        // answers in which zone the local time is
  std::unique_ptr<icu::Calendar> hijri;     // ICU's Umm al-Qura calendar, null for Gregorian ones
  icu::UnicodeString pattern;               // as it was given
};

namespace {

constexpr double kMillisecondsPerDay = 86'400'000;

// The pattern with figures in place of its letters for the day of the month.
icu::UnicodeString withDay(const icu::UnicodeString& pattern, int day) {
  const auto figures = icu::UnicodeString::fromUTF8(std::to_string(day));
  icu::UnicodeString result;
  bool quoted = false;
  std::int32_t letters = 0;  // of the run of d that ends here
  for (std::int32_t at = 0; at < pattern.length(); ++at) {
    if (pattern[at] == u'\'') quoted = !quoted;
    if (quoted || pattern[at] != u'd') {
      result.append(pattern[at]);
      continue;
    }
    ++letters;
    if (at + 1 < pattern.length() && pattern[at + 1] == u'd') continue;
    for (; letters > figures.length(); --letters)
      result.append(u'0');
    result.append(figures);
    letters = 0;
  }
  return result;
}

// Makes the format write a day that ICU's own calendar does not have so: month,
// year and weekday through a day that looks like it there. Returns the time to write then.
double asLibraryHasIt(FormatEngine& engine, double localMilliseconds) {
  auto& format = static_cast<icu::SimpleDateFormat&>(*engine.format);
  format.applyPattern(engine.pattern);
  constexpr double kFarthestDay = 1e9;
  const double dayStart = std::floor(localMilliseconds / kMillisecondsPerDay);
  if (!(std::abs(dayStart) < kFarthestDay)) return localMilliseconds;
  const auto day = static_cast<std::int64_t>(dayStart);
  UmmAlQura months(*engine.hijri, engine.calendar.hijriDaysAhead());
  if (months.isLibrarys(day)) return localMilliseconds;
  const auto month = months.monthOf(day);
  const auto like = months.libraryDayLike(day);
  if (!month || !like) return localMilliseconds;
  format.applyPattern(withDay(engine.pattern, static_cast<int>(day - month->firstDay) + 1));
  return localMilliseconds + static_cast<double>(*like - day) * kMillisecondsPerDay;
}

std::unique_ptr<icu::DateFormat> inGMT(std::unique_ptr<icu::DateFormat> format) {
  if (format) format->setTimeZone(*icu::TimeZone::getGMT());
  return format;
}

std::unique_ptr<icu::DateFormat> patternFormat(std::string_view pattern,
                                               CalendarIdentifier calendar) {
  const bool hijri = calendar == CalendarIdentifier::islamicUmmAlQura;
  const icu::Locale locale(hijri ? "en_US@calendar=islamic-umalqura" : "en_US");
  const icu::StringPiece text(pattern.data(), static_cast<std::int32_t>(pattern.size()));
  UErrorCode status = U_ZERO_ERROR;
  auto format =
      std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString::fromUTF8(text), locale, status);
  return U_SUCCESS(status) ? inGMT(std::move(format)) : nullptr;
}

}  // namespace

DateFormatter::DateFormatter(std::string_view pattern)
    : DateFormatter(pattern, Calendar(CalendarIdentifier::gregorian)) {}

DateFormatter::DateFormatter(std::string_view pattern, const Calendar& calendar)
    : DateFormatter(std::make_unique<FormatEngine>(
          FormatEngine{patternFormat(pattern, calendar.identifier()), calendar, nullptr, {}})) {
  if (!engine_->format || calendar.identifier() != CalendarIdentifier::islamicUmmAlQura) return;
  engine_->hijri.reset(engine_->format->getCalendar()->clone());
  static_cast<icu::SimpleDateFormat&>(*engine_->format).toPattern(engine_->pattern);
}

DateFormatter::DateFormatter(std::unique_ptr<FormatEngine> engine) : engine_(std::move(engine)) {}

DateFormatter DateFormatter::longStyle() {
  std::unique_ptr<icu::DateFormat> format(
      icu::DateFormat::createDateInstance(icu::DateFormat::kLong, icu::Locale("en_US")));
  return DateFormatter(std::make_unique<FormatEngine>(FormatEngine{
      inGMT(std::move(format)), Calendar(CalendarIdentifier::gregorian), nullptr, {}}));
}

DateFormatter::DateFormatter(DateFormatter&&) noexcept = default;
DateFormatter& DateFormatter::operator=(DateFormatter&&) noexcept = default;
DateFormatter::~DateFormatter() = default;

std::string DateFormatter::string(Date date) const {
  if (!engine_->format || !std::isfinite(date.secondsSince1970)) return {};
  const int offset = engine_->calendar.timeZone().secondsFromUTC(date);
  double localMilliseconds = std::floor((date.secondsSince1970 + offset) * 1000);
  if (engine_->hijri) localMilliseconds = asLibraryHasIt(*engine_, localMilliseconds);
  icu::UnicodeString text;
  engine_->format->format(localMilliseconds, text);
  std::string result;
  text.toUTF8String(result);
  return result;
}

}  // namespace Hilalor
