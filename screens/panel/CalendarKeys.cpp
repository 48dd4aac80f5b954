#include "screens/panel/CalendarKeys.hpp"

#include "screens/panel/DayGrid.hpp"

namespace Hilalor::Screens {

std::optional<Step> stepOf(const QKeyEvent& event) {
  constexpr int kWeek = DayGrid::kWeek;
  const bool isShifted = event.modifiers().testFlag(Qt::ShiftModifier);
  const CalendarUnit page = isShifted ? CalendarUnit::year : CalendarUnit::month;
  switch (event.key()) {
    case Qt::Key_Left:
      return Step{CalendarUnit::day, -1};
    case Qt::Key_Right:
      return Step{CalendarUnit::day, 1};
    case Qt::Key_Up:
      return Step{CalendarUnit::day, -kWeek};
    case Qt::Key_Down:
      return Step{CalendarUnit::day, kWeek};
    case Qt::Key_PageUp:
      return Step{page, -1};
    case Qt::Key_PageDown:
      return Step{page, 1};
    default:
      return std::nullopt;
  }
}

}  // namespace Hilalor::Screens
