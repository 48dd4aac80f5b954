#pragma once

#include <string>
#include <vector>

#include "datetime/Date.hpp"
#include "datetime/DateComponents.hpp"

namespace Hilalor {

/// The standard colours that tell the kinds of holiday apart.
enum class HolidayColor {
  teal,   ///< An Eid.
  green,  ///< A national day.
};

struct Holiday {
  std::string name;  ///< English, as it is shown.
  HolidayColor color = HolidayColor::teal;

  friend bool operator==(const Holiday&, const Holiday&) = default;
};

/// The holidays that the calendar marks: the two Eids by the Umm al-Qura calendar, Saudi Arabia's
/// two national days by the Gregorian. Each is a single day. Main thread.
namespace HolidaysProvider {

/// The holidays of the day that the instant lies in, in the machine's time zone, by the calendar's
/// own table; an Eid comes before a national day.
[[nodiscard]] std::vector<Holiday> holidays(Date date);

/// The same for a day whose fields are known in both calendars.
[[nodiscard]] std::vector<Holiday> holidays(const DateComponents& hijri,
                                            const DateComponents& gregorian);

/// What a day cell says of its holidays: their names, joined by a middle dot; empty for none.
[[nodiscard]] std::string label(const std::vector<Holiday>& holidays);

}  // namespace HolidaysProvider

}  // namespace Hilalor
