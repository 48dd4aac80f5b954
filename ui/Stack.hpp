#pragma once

#include <QWidget>
#include <initializer_list>
#include <utility>
#include <vector>

namespace Hilalor::Ui {

/// Room left free inside an edge, in logical pixels.
struct Insets {
  int top = 0;
  int leading = 0;
  int bottom = 0;
  int trailing = 0;

  [[nodiscard]] static constexpr Insets all(int width) { return {width, width, width, width}; }
  [[nodiscard]] static constexpr Insets sides(int width) { return {0, width, 0, width}; }
};

/// How a row or a column holds its parts. Parts that are hidden take neither room nor spacing.
struct StackStyle {
  int spacing = 0;  ///< Between neighbours.
  Insets padding = {};
  /// Where a part stands across the stack that has a size of its own; the others fill it.
  Qt::Alignment alignment = Qt::AlignCenter;
};

/// The parts from top to bottom. Qt's parenthood owns them.
[[nodiscard]] QWidget* column(const StackStyle& style, std::initializer_list<QWidget*> parts);

/// The parts side by side.
[[nodiscard]] QWidget* row(const StackStyle& style, std::initializer_list<QWidget*> parts);

/// What a row or a column has left, taken up by nothing.
[[nodiscard]] QWidget* flexibleSpace();

/// Columns of one width, filled row by row.
struct GridStyle {
  int columns = 1;
  int columnWidth = 0;
  int spacing = 0;  ///< Between columns and between rows.
};

[[nodiscard]] QWidget* grid(const GridStyle& style, const std::vector<QWidget*>& cells);

/// A thin line across, with room around it.
[[nodiscard]] QWidget* divider(const Insets& padding = {});

/// The part with room around it.
[[nodiscard]] QWidget* padded(const Insets& padding, QWidget* part);

/// The part, as wide as its surroundings let it.
template <typename Part>
[[nodiscard]] Part* fullWidth(Part* part) {
  part->setSizePolicy(QSizePolicy::Expanding, part->sizePolicy().verticalPolicy());
  return part;
}

/// The part in a frame of that size.
template <typename Part>
[[nodiscard]] Part* framed(Part* part, int width, int height) {
  part->setFixedSize(width, height);
  return part;
}

/// The text centred in its frame.
template <typename Part>
[[nodiscard]] Part* centred(Part* part) {
  part->setAlignment(Qt::AlignCenter);
  return part;
}

}  // namespace Hilalor::Ui
