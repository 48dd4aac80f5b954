#pragma once

#include <QAbstractButton>
#include <functional>
#include <memory>
#include <optional>

#include "rules/calendar/CalendarModel.hpp"
#include "rules/calendar/NotesStore.hpp"
#include "rules/settings/AppSettings.hpp"
#include "ui/Popover.hpp"

namespace Hilalor::Screens {

/// A day as its cell shows it.
struct ShownDay {
  DayCell cell;
  QString hoverLabel;  ///< For the panel's hover line.
  QString spokenName;  ///< For a screen reader; empty while there is none.
  bool showsSecondary = true;
  bool isSelected = false;
  bool hasNote = false;

  friend bool operator==(const ShownDay&, const ShownDay&) = default;
};

/// What a day cell tells the panel.
struct DayCellEvents {
  std::function<void()> onSelect;
  /// A double click ends what its first click began: the selection is as it was before.
  std::function<void()> onSelectUndone;
  /// The text for the hover line; empty when the pointer has left.
  std::function<void(const QString&)> onHolidayHover;
};

/// One day of the month grid, or a place of the grid without a day. A click selects the day, a
/// double click opens its note.
class DayCellView final : public QAbstractButton {
 public:
  DayCellView(NotesStore& store, const AppSettings& settings, DayCellEvents events);

  void show(const std::optional<ShownDay>& day);
  [[nodiscard]] const std::optional<ShownDay>& day() const { return day_; }

  void openNote();

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void reportHover() const;
  void paintMarks(QPainter& painter) const;
  void paintContent(QPainter& painter) const;
  void paintDots(QPainter& painter, double top) const;

  NotesStore& store_;
  const AppSettings& settings_;
  DayCellEvents events_;
  std::optional<ShownDay> day_;
  Ui::Popover* note_ = nullptr;  // While it is open; belongs to the window.
};

}  // namespace Hilalor::Screens
