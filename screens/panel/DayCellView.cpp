#include "screens/panel/DayCellView.hpp"

#include <QKeyEvent>
#include <QPainter>
#include <utility>
#include <vector>

#include "ui/FocusRing.hpp"
#include "ui/Shapes.hpp"
#include "ui/TextStyle.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr QSize kMargin{1, 2};  // Around the mark.
constexpr double kMarkRadius = 7;
constexpr double kWeekendFillOpacity = 0.1;
constexpr double kOutlineWidth = 1.2;
constexpr double kNoteOutlineOpacity = 0.8;
constexpr double kSelectionWidth = 1.8;
// In high contrast: of the thinnest edge, and how much wider the others are.
constexpr double kEdgeWidth = 0.6;
constexpr double kWider = 1.7;

constexpr int kDayTypeSize = 12;
constexpr int kSecondaryTypeSize = 8;
constexpr int kContentSpacing = 1;
constexpr double kSecondaryTodayOpacity = 0.85;
constexpr double kSecondaryWeekendOpacity = 0.7;

constexpr double kDotSide = 3;
constexpr double kDotSpacing = 2;
constexpr double kDotRowHeight = 4;
constexpr double kTodayDotOpacity = 0.9;

QColor dayInk(const DayCell& cell, const Colors& colors) {
  if (cell.isToday) return colors.white;
  return cell.isWeekend ? colors.accent : colors.primary;
}

QColor secondaryInk(const DayCell& cell, const Colors& colors) {
  if (cell.isToday) return weaker(colors, colors.white, kSecondaryTodayOpacity);
  if (cell.isNewSecondary) return colors.accent;
  if (cell.isWeekend) return weaker(colors, colors.accent, kSecondaryWeekendOpacity);
  return colors.secondary;
}

/// The dots under the numbers, from left to right.
std::vector<QColor> dots(const ShownDay& day, const Colors& colors) {
  const DayCell& cell = day.cell;
  const QColor onToday = weaker(colors, colors.white, kTodayDotOpacity);
  std::vector<QColor> dots;
  if (!cell.holidayLabel.empty()) dots.push_back(cell.isToday ? onToday : colors.accent);
  if (day.hasNote) dots.push_back(cell.isToday ? onToday : colors.yellow);
  return dots;
}

}  // namespace

/// A day in the list of the month's days.
class DayCellView::Spoken final : public SpokenControl {
 public:
  explicit Spoken(DayCellView& cell) : SpokenControl(&cell, QAccessible::ListItem), cell_(cell) {}

  [[nodiscard]] QAccessibleInterface* parent() const override {
    // The list has no other children than its days.
    return QAccessible::queryAccessibleInterface(cell_.parentWidget()->parentWidget());
  }

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name) return SpokenControl::text(kind);
    const bool isSpoken = cell_.day_ && cell_.events_.speech;
    return isSpoken ? QString::fromStdString(cell_.events_.speech(cell_.day_->cell)) : QString();
  }

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = SpokenControl::state();
    state.focusable = state.selectable = true;
    state.selected = cell_.day_ && cell_.day_->isSelected;
    return state;
  }

  [[nodiscard]] QStringList actionNames() const override {
    return {pressAction(), setFocusAction(), kOpenNote};
  }

  [[nodiscard]] QString localizedActionName(const QString& action) const override {
    return action == kOpenNote ? kOpenNote : SpokenControl::localizedActionName(action);
  }

  void doAction(const QString& action) override {
    if (!cell_.day_) return;
    const Date day = cell_.day_->cell.date;
    if (action == pressAction()) return press();
    if (action == setFocusAction() && cell_.events_.onVisit) cell_.events_.onVisit(day);
    if (action == kOpenNote && cell_.events_.onNote) cell_.events_.onNote(day);
  }

 protected:
  void press() override { cell_.click(); }

 private:
  inline static const QString kOpenNote = QStringLiteral("Open note");

  DayCellView& cell_;
};

DayCellView::DayCellView(DayCellEvents events) : events_(std::move(events)) {
  setFixedSize(byType(kSize));
  // Two pixels out of the mark, where no neighbour's begins yet.
  markFocusAround(*this, kMarkRadius, 2 - kMargin.width());
  setMouseTracking(true);
  setFocusPolicy(Qt::NoFocus);
  connect(this, &QAbstractButton::clicked, this, [this] {
    if (day_ && events_.onSelect) events_.onSelect(day_->cell.date);
  });
}

QSize DayCellView::sizeHint() const {
  return byType(kSize);
}

void DayCellView::show(const std::optional<ShownDay>& day) {
  if (day == day_) return;
  const bool wasSelected = day_ && day_->isSelected;
  day_ = day;
  setEnabled(day.has_value());
  update();
  QAccessibleEvent renamed(this, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&renamed);
  if (const bool isSelected = day && day->isSelected; isSelected != wasSelected) {
    QAccessibleEvent changed(this,
                             isSelected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    QAccessible::updateAccessibility(&changed);
  }
}

QAccessibleInterface* DayCellView::makeSpoken() {
  return new Spoken(*this);
}

void DayCellView::paintEvent(QPaintEvent*) {
  if (!day_) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  paintMarks(painter);
  paintContent(painter);
}

void DayCellView::paintMarks(QPainter& painter) const {
  const Colors& colors = Colors::of(*this);
  const QRectF mark = QRectF(rect()).adjusted(kMargin.width(), kMargin.height(), -kMargin.width(),
                                              -kMargin.height());
  const auto fill = [&](const QColor& color) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPath(smoothRect(mark, kMarkRadius));
  };
  const bool isHigh = colors.contrast == Contrast::high;
  const auto outline = [&](const QColor& color, double width) {
    const QPen pen(color, isHigh ? width * kWider : width);
    isHigh ? strokeWithin(painter, mark, kMarkRadius, pen)
           : strokeSmoothRect(painter, mark, kMarkRadius, pen);
  };

  const DayCell& cell = day_->cell;
  if (cell.isToday) return fill(colors.accent);
  if (cell.isWeekend) fill(faded(colors.accent, kWeekendFillOpacity));
  if (cell.isWeekend && isHigh) outline(colors.primary, kEdgeWidth);
  if (cell.isNewSecondary) outline(colors.accent, kOutlineWidth);
  if (day_->hasNote && !cell.isNewSecondary && !day_->isSelected)
    outline(weaker(colors, colors.yellow, kNoteOutlineOpacity), kOutlineWidth);
  if (day_->isSelected) outline(colors.accent, kSelectionWidth);
}

void DayCellView::paintContent(QPainter& painter) const {
  const Colors& colors = Colors::of(*this);
  const DayCell& cell = day_->cell;
  const QFont dayFont = systemFont(kDayTypeSize, cell.isToday ? QFont::DemiBold : QFont::Normal);
  const QFont secondaryFont =
      systemFont(kSecondaryTypeSize, cell.isNewSecondary ? QFont::Bold : QFont::Normal);
  const bool hasSecondary = day_->showsSecondary;
  const double dayHeight = QFontMetricsF(dayFont).height();
  const double secondaryHeight = hasSecondary ? QFontMetricsF(secondaryFont).height() : 0;
  const bool hasDots = !cell.holidayLabel.empty() || day_->hasNote;
  const double height = dayHeight + (hasSecondary ? kContentSpacing + secondaryHeight : 0) +
                        kContentSpacing + (hasDots ? kDotRowHeight : 0);

  double top = (this->height() - height) / 2;
  const auto line = [&](const QFont& font, const QColor& ink, double lineHeight,
                        const QString& text) {
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(QRectF(0, top, this->width(), lineHeight), Qt::AlignCenter, text);
    top += lineHeight + kContentSpacing;
  };
  line(dayFont, dayInk(cell, colors), dayHeight, QString::number(cell.day));
  if (hasSecondary) {
    line(secondaryFont, secondaryInk(cell, colors), secondaryHeight,
         QString::fromStdString(cell.secondaryDay));
  }
  paintDots(painter, top);
}

void DayCellView::paintDots(QPainter& painter, double top) const {
  const auto row = dots(*day_, Colors::of(*this));
  const auto count = static_cast<double>(row.size());
  const double width = count * kDotSide + (count - 1) * kDotSpacing;
  QRectF dot((this->width() - width) / 2, top + (kDotRowHeight - kDotSide) / 2, kDotSide, kDotSide);
  painter.setPen(Qt::NoPen);
  for (const QColor& color : row) {
    painter.setBrush(color);
    painter.drawEllipse(dot);
    dot.translate(kDotSide + kDotSpacing, 0);
  }
}

void DayCellView::reportHover() const {
  if (day_) events_.onHolidayHover(day_->hoverLabel);
}

void DayCellView::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  reportHover();
}

void DayCellView::mouseMoveEvent(QMouseEvent* event) {
  QAbstractButton::mouseMoveEvent(event);
  if (rect().contains(event->position().toPoint())) reportHover();
}

void DayCellView::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  events_.onHolidayHover("");
}

void DayCellView::mouseDoubleClickEvent(QMouseEvent* event) {
  // Not a second press: its release must not count as a click.
  event->accept();
  if (!day_ || event->button() != Qt::LeftButton) return;
  events_.onOpen(day_->cell.date);
}

void DayCellView::keyPressEvent(QKeyEvent* event) {
  // Arrow keys move the selection, which is the panel's to do.
  if (event->key() == Qt::Key_Space) return QAbstractButton::keyPressEvent(event);
  event->ignore();
}

}  // namespace Hilalor::Screens
