#pragma once

#include <QFont>
#include <QSize>

#include "ui/Colors.hpp"

namespace Hilalor::Ui {

/// What becomes of a text that is longer than its line.
enum class Overflow {
  wrap,      ///< It goes on in a line below.
  ellipsis,  ///< It ends in an ellipsis; the pointer that rests on it is told the whole.
};

enum class Figures {
  plain,
  columns,  ///< Of a time: they stand below those of other times.
};

/// How a text is set: in the desktop's own font.
struct TextStyle {
  int size = 13;  ///< Of the type where the desktop's is of the usual size, in logical pixels.
  QFont::Weight weight = QFont::Normal;
  Ink color = &Colors::primary;
  double opacity = 1;  ///< Of the colour.
  Overflow overflow = Overflow::wrap;
  Figures figures = Figures::plain;

  friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

/// How many times the usual the desktop's type is, by the size of its font: 1 up to 11 points, then
/// up to 2.
[[nodiscard]] double typeScale();

/// What a length or size among type of the usual size becomes with the desktop's (logical pixels).
[[nodiscard]] int byType(int length);
[[nodiscard]] QSize byType(QSize size);

/// The desktop's font in a weight, and in that size where its type is of the usual one.
[[nodiscard]] QFont systemFont(int size, QFont::Weight weight = QFont::Normal);

}  // namespace Hilalor::Ui
