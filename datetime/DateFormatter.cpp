#include "datetime/DateFormatter.hpp"

#include <unicode/smpdtfmt.h>

#include <cmath>

namespace Hilalor {

// ICU's format, always set to GMT and fed with local time: the zones are ours (see TimeZone).
struct FormatEngine {
  std::unique_ptr<icu::DateFormat> format;  // null when ICU's data are missing
  Calendar calendar;                        // answers in which zone the local time is
};

namespace {

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
          FormatEngine{patternFormat(pattern, calendar.identifier()), calendar})) {}

DateFormatter::DateFormatter(std::unique_ptr<FormatEngine> engine) : engine_(std::move(engine)) {}

DateFormatter DateFormatter::longStyle() {
  std::unique_ptr<icu::DateFormat> format(
      icu::DateFormat::createDateInstance(icu::DateFormat::kLong, icu::Locale("en_US")));
  return DateFormatter(std::make_unique<FormatEngine>(
      FormatEngine{inGMT(std::move(format)), Calendar(CalendarIdentifier::gregorian)}));
}

DateFormatter::DateFormatter(DateFormatter&&) noexcept = default;
DateFormatter& DateFormatter::operator=(DateFormatter&&) noexcept = default;
DateFormatter::~DateFormatter() = default;

std::string DateFormatter::string(Date date) const {
  if (!engine_->format || !std::isfinite(date.secondsSince1970)) return {};
  const int offset = engine_->calendar.timeZone().secondsFromUTC(date);
  const double localMilliseconds = std::floor((date.secondsSince1970 + offset) * 1000);
  icu::UnicodeString text;
  engine_->format->format(localMilliseconds, text);
  std::string result;
  text.toUTF8String(result);
  return result;
}

}  // namespace Hilalor
