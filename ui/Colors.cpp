#include "ui/Colors.hpp"

#include <QWidget>

namespace Hilalor::Ui {
namespace {

const Colors kLight{
    .primary = {0, 0, 0, 217},
    .secondary = {0, 0, 0, 166},
    .tertiary = {0, 0, 0, 89},
    .separator = {0, 0, 0, 31},
    .windowBackground = {246, 246, 246},
    .controlBackground = {255, 255, 255},
    .textBackground = {255, 255, 255},
    .yellow = {255, 204, 0},
    .orange = {255, 149, 0},
    .red = {255, 59, 48},
    .teal = {48, 176, 199},
    .green = {40, 205, 65},
};

const Colors kDark{
    .primary = {255, 255, 255, 222},
    .secondary = {255, 255, 255, 166},
    .tertiary = {255, 255, 255, 89},
    .separator = {255, 255, 255, 38},
    .windowBackground = {30, 30, 30},
    .controlBackground = {22, 22, 23},
    .textBackground = {22, 22, 22},
    .yellow = {255, 214, 10},
    .orange = {255, 159, 10},
    .red = {255, 69, 58},
    .teal = {64, 200, 224},
    .green = {50, 215, 75},
};

}  // namespace

const Colors& Colors::of(ColorScheme scheme) {
  return scheme == ColorScheme::dark ? kDark : kLight;
}

const Colors& Colors::of(const QWidget& widget) {
  return of(colorScheme(widget.palette()));
}

QColor faded(QColor color, double opacity) {
  color.setAlphaF(static_cast<float>(color.alphaF() * opacity));
  return color;
}

ColorScheme colorScheme(const QPalette& palette) {
  const int text = palette.color(QPalette::WindowText).lightness();
  const int background = palette.color(QPalette::Window).lightness();
  return text > background ? ColorScheme::dark : ColorScheme::light;
}

QPalette windowPalette(ColorScheme scheme) {
  const Colors& colors = Colors::of(scheme);
  // Controls that the desktop's style draws want opaque colours.
  const QColor text = scheme == ColorScheme::dark ? QColor(228, 228, 228) : QColor(38, 38, 38);
  QPalette palette(colors.controlBackground, colors.windowBackground);
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Text, text);
  palette.setColor(QPalette::ButtonText, text);
  palette.setColor(QPalette::Base, colors.textBackground);
  palette.setColor(QPalette::AlternateBase, colors.controlBackground);
  palette.setColor(QPalette::PlaceholderText, colors.secondary);
  palette.setColor(QPalette::Highlight, colors.accent);
  palette.setColor(QPalette::HighlightedText, colors.white);
  palette.setColor(QPalette::ToolTipBase, colors.controlBackground);
  palette.setColor(QPalette::ToolTipText, text);
  return palette;
}

}  // namespace Hilalor::Ui
