#include "datetime/Date.hpp"

#include <cmath>
#include <iomanip>
#include <ostream>

#include "datetime/DateComponents.hpp"

namespace Hilalor {
namespace {

void writeField(std::ostream& out, const std::optional<int>& field, int width, char before) {
  if (before != '\0') out << before;
  if (field) {
    out << std::setw(width) << std::setfill('0') << *field;
  } else {
    out << '-';
  }
}

}  // namespace

std::ostream& operator<<(std::ostream& out, Date date) {
  using namespace std::chrono;
  constexpr double kFarthest = 1e11;
  if (!(std::abs(date.secondsSince1970) < kFarthest)) return out << date.secondsSince1970 << " s";
  const double whole = std::floor(date.secondsSince1970);
  const sys_seconds instant{seconds(static_cast<std::int64_t>(whole))};
  const auto midnight = floor<days>(instant);
  const year_month_day day(midnight);
  const hh_mm_ss time(instant - midnight);
  DateComponents fields{static_cast<int>(day.year()),
                        static_cast<int>(static_cast<unsigned>(day.month())),
                        static_cast<int>(static_cast<unsigned>(day.day())),
                        static_cast<int>(time.hours().count()),
                        static_cast<int>(time.minutes().count()),
                        static_cast<int>(time.seconds().count())};
  out << fields;
  if (whole != date.secondsSince1970) out << " + " << date.secondsSince1970 - whole << " s";
  return out << " UTC";
}

std::ostream& operator<<(std::ostream& out, const DateComponents& components) {
  writeField(out, components.year, 4, '\0');
  writeField(out, components.month, 2, '-');
  writeField(out, components.day, 2, '-');
  writeField(out, components.hour, 2, ' ');
  writeField(out, components.minute, 2, ':');
  writeField(out, components.second, 2, ':');
  return out;
}

}  // namespace Hilalor
