#pragma once

#include <QKeyEvent>
#include <optional>

#include "datetime/Calendar.hpp"

namespace Hilalor::Screens {

/// How far a key moves the selected day of the calendar.
struct Step {
  CalendarUnit unit;
  int amount;
};

/// Arrows step by days and weeks, Page Up and Page Down by months, or with Shift by years. None for
/// other keys.
[[nodiscard]] std::optional<Step> stepOf(const QKeyEvent& event);

}  // namespace Hilalor::Screens
