#pragma once

#include <QColor>
#include <QPalette>

class QWidget;

namespace Hilalor::Ui {

enum class ColorScheme { light, dark };

/// High where the desktop asks for it: all text and every edge in full ink, black and white.
enum class Contrast { usual, high };

/// Colours by what they are for. On every background of the scheme the texts reach a contrast of
/// 4.5, the secondary one also at seven tenths of its opacity; marks and the accent reach 3, yellow
/// also at eight tenths.
struct Colors {
  QColor primary;    ///< Text.
  QColor secondary;  ///< Text that matters less.
  QColor tertiary;   ///< Marks and outlines of controls at rest.
  QColor separator;  ///< Lines between parts and around grounds.
  QColor windowBackground;
  QColor controlBackground;  ///< Behind groups of controls.
  QColor textBackground;     ///< Behind text that can be edited.
  QColor yellow;
  QColor orange;
  QColor red;
  QColor accent{34, 120, 70};   ///< The program's own green, the same in light and in dark.
  QColor white{255, 255, 255};  ///< What is written on the accent; black on one that is white.
  Contrast contrast = Contrast::usual;

  [[nodiscard]] static const Colors& of(ColorScheme scheme, Contrast contrast = Contrast::usual);

  /// Those of the window that the widget is in.
  [[nodiscard]] static const Colors& of(const QWidget& widget);
};

/// One of the colours, to be looked up when it is drawn.
using Ink = QColor Colors::*;

/// The ink for what matters less, that much of its opacity left; whole in high contrast.
[[nodiscard]] QColor weaker(const Colors& colors, const QColor& ink, double opacity);

/// The colour, that much of its own opacity left.
[[nodiscard]] QColor faded(QColor color, double opacity);

/// Whether the palette writes light on dark.
[[nodiscard]] ColorScheme colorScheme(const QPalette& palette);

/// Whether the palette writes about black on about white, or the other way round.
[[nodiscard]] Contrast contrast(const QPalette& palette);

/// The palette that puts a window and all in it into the scheme. A window without one of its own
/// follows the application's.
[[nodiscard]] QPalette windowPalette(ColorScheme scheme, Contrast contrast = Contrast::usual);

}  // namespace Hilalor::Ui
