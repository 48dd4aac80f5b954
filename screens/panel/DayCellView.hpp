#pragma once

#include <QAbstractButton>
#include <functional>
#include <optional>
#include <string>

#include "rules/calendar/CalendarModel.hpp"
#include "ui/Spoken.hpp"

namespace Hilalor::Screens {

/// A day as its cell shows it.
struct ShownDay {
  DayCell cell;
  std::string hoverLabel;  ///< For the panel's hover line.
  bool showsSecondary = true;
  bool isSelected = false;
  bool hasNote = false;

  friend bool operator==(const ShownDay&, const ShownDay&) = default;
};

/// What a day cell tells the panel.
struct DayCellEvents {
  std::function<void(Date)> onSelect;  ///< A click on the day.
  std::function<void(Date)> onOpen;    ///< A double click, after the click it begins with.
  /// The text for the hover line; empty when the pointer has left.
  std::function<void(const std::string&)> onHolidayHover;
  /// What a screen reader says of the day.
  std::function<std::string(const DayCell&)> speech = {};
  /// A screen reader wants to be at the day, and then at its note.
  std::function<void(Date)> onVisit = {};
  std::function<void(Date)> onNote = {};
};

/// One day of the month grid, or a place of the grid without a day.
class DayCellView final : public QAbstractButton, public Ui::SpokenPart {
 public:
  /// Among type of the usual size.
  static constexpr QSize kSize{32, 40};

  explicit DayCellView(DayCellEvents events);

  void show(const std::optional<ShownDay>& day);
  [[nodiscard]] const std::optional<ShownDay>& day() const { return day_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QAccessibleInterface* makeSpoken() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  class Spoken;

  void reportHover() const;
  void paintMarks(QPainter& painter) const;
  void paintContent(QPainter& painter) const;
  void paintDots(QPainter& painter, double top) const;

  DayCellEvents events_;
  std::optional<ShownDay> day_;
};

}  // namespace Hilalor::Screens
