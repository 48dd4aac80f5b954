#pragma once

#include <QFont>

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
  int size = 13;  ///< Of the type, in logical pixels.
  QFont::Weight weight = QFont::Normal;
  Ink color = &Colors::primary;
  double opacity = 1;  ///< Of the colour.
  Overflow overflow = Overflow::wrap;
  Figures figures = Figures::plain;

  friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

/// The desktop's font in that size (logical pixels) and weight.
[[nodiscard]] QFont systemFont(int size, QFont::Weight weight = QFont::Normal);

}  // namespace Hilalor::Ui
