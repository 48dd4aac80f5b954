#pragma once

#include <QFont>

#include "ui/Colors.hpp"

namespace Hilalor::Ui {

/// How a text is set: in the desktop's own font.
struct TextStyle {
  int size = 13;  ///< Of the type, in logical pixels.
  QFont::Weight weight = QFont::Normal;
  Ink color = &Colors::primary;
  double opacity = 1;  ///< Of the colour.

  friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

/// The desktop's font in that size (logical pixels) and weight.
[[nodiscard]] QFont systemFont(int size, QFont::Weight weight = QFont::Normal);

}  // namespace Hilalor::Ui
