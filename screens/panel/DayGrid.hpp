#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "screens/panel/DayCellView.hpp"
#include "ui/Spoken.hpp"
#include "ui/View.hpp"

namespace Hilalor::Screens {

/// The 42 places for the days of a month, in rows of a week. The last weeks can be left out.
class DayGrid final : public Ui::View, public Ui::SpokenPart {
 public:
  static constexpr std::size_t kWeek = 7;
  static constexpr std::size_t kWeeks = 6;
  static constexpr std::size_t kCells = kWeeks * kWeek;
  static constexpr int kSpacing = 2;

  /// With the space to the next one.
  [[nodiscard]] static int weekHeight();

  /// The headings of its columns, as of the moment.
  [[nodiscard]] static QWidget* weekdays(const Moment& moment);

  /// Every cell tells of its day.
  explicit DayGrid(const DayCellEvents& events);

  void show(std::size_t index, const std::optional<ShownDay>& day) { cells_.at(index)->show(day); }

  /// The cell that shows the day; null for none.
  [[nodiscard]] DayCellView* cellOf(Date day) const;

  /// Leaves out the weeks after so many. Takes effect at once.
  void showWeeks(std::size_t weeks);
  [[nodiscard]] std::size_t shownWeeks() const { return shownWeeks_; }

  [[nodiscard]] QAccessibleInterface* makeSpoken() override;

 private:
  class Spoken;

  std::array<DayCellView*, kCells> cells_{};
  std::size_t shownWeeks_ = kWeeks;
};

}  // namespace Hilalor::Screens
