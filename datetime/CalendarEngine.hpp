#pragma once

#include <unicode/calendar.h>

#include <memory>

namespace Hilalor {

/// ICU's calendar, always set to GMT and fed with local time: the zones are ours (see TimeZone).
struct CalendarEngine {
  std::unique_ptr<icu::Calendar> calendar;  // null when ICU's data are missing
};

}  // namespace Hilalor
