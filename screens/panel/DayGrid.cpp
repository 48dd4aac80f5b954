#include "screens/panel/DayGrid.hpp"

#include <vector>

#include "rules/calendar/Weekdays.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr QSize kHeadingSize{32, 16};
constexpr TextStyle kWeekdayStyle{.size = 10, .color = &Colors::secondary};
constexpr TextStyle kWeekendStyle{
    .size = 10, .weight = QFont::Medium, .color = &Colors::accent, .opacity = 0.8};

}  // namespace

QWidget* DayGrid::weekdays(const Moment& moment) {
  std::vector<QWidget*> headings;
  const auto weekend = weekendWeekdays(moment);
  for (const WeekdayColumn& column : orderedWeekdays(moment)) {
    const auto& style = weekend.contains(column.weekday) ? kWeekendStyle : kWeekdayStyle;
    auto* heading = centred(new Text(style, QString::fromStdString(column.symbol)));
    headings.push_back(framed(heading, kHeadingSize.width(), kHeadingSize.height()));
  }
  return grid(kColumns, headings);
}

DayGrid::DayGrid(const DayCellEvents& events) {
  for (DayCellView*& cell : cells_)
    cell = new DayCellView(events);
  setBody(grid(kColumns, std::vector<QWidget*>(cells_.begin(), cells_.end())));
}

DayCellView* DayGrid::cellOf(Date day) const {
  for (DayCellView* cell : cells_)
    if (cell->day() && cell->day()->cell.date == day) return cell;
  return nullptr;
}

void DayGrid::showWeeks(std::size_t weeks) {
  shownWeeks_ = weeks;
  for (std::size_t index = 0; index < kCells; ++index)
    cells_.at(index)->setVisible(index / kWeek < weeks);
  remeasure(*cells_.front()->parentWidget());
}

}  // namespace Hilalor::Screens
