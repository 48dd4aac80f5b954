#include "screens/panel/DayGrid.hpp"

#include <algorithm>
#include <vector>

#include "rules/calendar/Weekdays.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr int kHeadingHeight = 16;
constexpr TextStyle kWeekdayStyle{.size = 10, .color = &Colors::secondary};
constexpr TextStyle kWeekendStyle{
    .size = 10, .weight = QFont::Medium, .color = &Colors::accent, .opacity = 0.8};

GridStyle columns() {
  return {.columns = DayGrid::kWeek,
          .columnWidth = byType(DayCellView::kSize.width()),
          .spacing = DayGrid::kSpacing};
}

}  // namespace

/// The list of the days alone: places without one are nothing to a screen reader.
class DayGrid::Spoken final : public QAccessibleWidget {
 public:
  explicit Spoken(DayGrid& grid) : QAccessibleWidget(&grid, QAccessible::List), grid_(grid) {}

  [[nodiscard]] int childCount() const override { return static_cast<int>(days().size()); }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    const auto shown = days();
    const auto place = static_cast<std::size_t>(index);
    return place < shown.size() ? QAccessible::queryAccessibleInterface(shown[place]) : nullptr;
  }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
    const auto shown = days();
    const auto found = std::ranges::find(shown, child->object());
    return found == shown.end() ? -1 : static_cast<int>(found - shown.begin());
  }

 private:
  [[nodiscard]] std::vector<DayCellView*> days() const {
    std::vector<DayCellView*> shown;
    for (DayCellView* cell : grid_.cells_)
      if (cell->day()) shown.push_back(cell);
    return shown;
  }

  DayGrid& grid_;
};

QWidget* DayGrid::weekdays(const Moment& moment) {
  std::vector<QWidget*> headings;
  const auto weekend = weekendWeekdays(moment);
  for (const WeekdayColumn& column : orderedWeekdays(moment)) {
    const auto& style = weekend.contains(column.weekday) ? kWeekendStyle : kWeekdayStyle;
    auto* heading = centred(new Text(style, QString::fromStdString(column.symbol)));
    headings.push_back(framed(heading, byType(DayCellView::kSize.width()), byType(kHeadingHeight)));
  }
  return grid(columns(), headings);
}

int DayGrid::weekHeight() {
  return byType(DayCellView::kSize.height()) + kSpacing;
}

DayGrid::DayGrid(const DayCellEvents& events) {
  for (DayCellView*& cell : cells_)
    cell = new DayCellView(events);
  setBody(grid(columns(), std::vector<QWidget*>(cells_.begin(), cells_.end())));
}

DayCellView* DayGrid::cellOf(Date day) const {
  for (DayCellView* cell : cells_)
    if (cell->day() && cell->day()->cell.date == day) return cell;
  return nullptr;
}

QAccessibleInterface* DayGrid::makeSpoken() {
  return new Spoken(*this);
}

void DayGrid::showWeeks(std::size_t weeks) {
  shownWeeks_ = weeks;
  for (std::size_t index = 0; index < kCells; ++index)
    cells_.at(index)->setVisible(index / kWeek < weeks);
  remeasure(*cells_.front()->parentWidget());
}

}  // namespace Hilalor::Screens
