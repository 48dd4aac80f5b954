#include "command/Help.hpp"

namespace Hilalor {

std::string_view helpText() {
  return R"(Usage: hilalor [COMMAND [OPTION...]]

Without a command, puts the item into the bar, or opens the panel of the copy that runs.

Answers from the stored settings, without a display and without a running copy:
  title [--follow]                   what the item in the bar says
  day [DATE]                         the prayer times of a day
  next                               the next prayer
  month [YYYY-MM | hijri YYYY-MM]    a month of either calendar
  convert DATE                       a date in the other calendar
  qibla                              the direction of prayer, clockwise from true north

To the copy that runs:
  panel, settings, quit

A DATE is YYYY-MM-DD or hijri YYYY-MM-DD.

Options:
  --json                             one line of JSON
  --waybar                           title and next: one line for a module of Waybar
  --follow                           title: goes on with a line at each change
  --place LAT,LON --zone ZONE        for another place, in degrees, and its time zone
  --method NAME                      by another method, for example muslimWorldLeague
  --help, --version
  --diagnose                         what the program finds here, for a report of a fault
)";
}

}  // namespace Hilalor
