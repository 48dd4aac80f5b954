#include "ui/Stack.hpp"

#include <QBoxLayout>
#include <QGridLayout>
#include <QPainter>

#include "ui/Colors.hpp"

namespace Hilalor::Ui {
namespace {

constexpr int kDividerThickness = 1;

class Divider final : public QWidget {
 public:
  Divider() {
    setFixedHeight(kDividerThickness);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter(this).fillRect(rect(), Colors::of(*this).separator);
  }
};

class FlexibleSpace final : public QWidget {};

bool isFlexible(const QWidget* part) {
  return dynamic_cast<const FlexibleSpace*>(part) != nullptr;
}

QMargins margins(const Insets& insets) {
  return {insets.leading, insets.top, insets.trailing, insets.bottom};
}

/// Nothing for a part that fills the stack, so that the layout stretches it.
Qt::Alignment across(const StackStyle& style, const QWidget* part, Qt::Orientation along) {
  const bool isColumn = along == Qt::Vertical;
  const QSizePolicy policy = part->sizePolicy();
  const auto across = isColumn ? policy.horizontalPolicy() : policy.verticalPolicy();
  if (across != QSizePolicy::Fixed) return {};
  return style.alignment & (isColumn ? Qt::AlignHorizontal_Mask : Qt::AlignVertical_Mask);
}

QWidget* stack(Qt::Orientation along, const StackStyle& style,
               std::initializer_list<QWidget*> parts) {
  auto* stack = new QWidget;
  auto* layout = new QBoxLayout(
      along == Qt::Vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, stack);
  layout->setContentsMargins(margins(style.padding));
  layout->setSpacing(style.spacing);
  for (QWidget* part : parts)
    layout->addWidget(part, isFlexible(part) ? 1 : 0, across(style, part, along));
  return stack;
}

}  // namespace

QWidget* column(const StackStyle& style, std::initializer_list<QWidget*> parts) {
  return stack(Qt::Vertical, style, parts);
}

QWidget* row(const StackStyle& style, std::initializer_list<QWidget*> parts) {
  return stack(Qt::Horizontal, style, parts);
}

QWidget* flexibleSpace() {
  return new FlexibleSpace;
}

QWidget* grid(const GridStyle& style, const std::vector<QWidget*>& cells) {
  auto* grid = new QWidget;
  auto* layout = new QGridLayout(grid);
  layout->setContentsMargins({});
  layout->setSpacing(style.spacing);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  for (int column = 0; column < style.columns; ++column)
    layout->setColumnMinimumWidth(column, style.columnWidth);
  int index = 0;
  for (QWidget* cell : cells) {
    layout->addWidget(cell, index / style.columns, index % style.columns);
    ++index;
  }
  return grid;
}

QWidget* divider(const Insets& padding) {
  return padded(padding, new Divider);
}

QWidget* padded(const Insets& padding, QWidget* part) {
  return column({.padding = padding}, {part});
}

}  // namespace Hilalor::Ui
