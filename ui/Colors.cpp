#include "ui/Colors.hpp"

#include <QWidget>

namespace Hilalor::Ui {
namespace {

const Colors kLight{
    .primary = {0, 0, 0, 235},
    .secondary = {0, 0, 0, 197},
    .tertiary = {0, 0, 0, 120},
    .separator = {0, 0, 0, 34},
    .windowBackground = {250, 250, 250},
    .controlBackground = {255, 255, 255},
    .textBackground = {255, 255, 255},
    .yellow = {161, 111, 0},
    .orange = {184, 92, 0},
    .red = {215, 0, 21},
};

const Colors kDark{
    .primary = {255, 255, 255, 230},
    .secondary = {255, 255, 255, 173},
    .tertiary = {255, 255, 255, 97},
    .separator = {255, 255, 255, 43},
    .windowBackground = {13, 14, 15},
    .controlBackground = {22, 23, 25},
    .textBackground = {22, 23, 25},
    .yellow = {255, 214, 10},
    .orange = {255, 159, 10},
    .red = {255, 69, 58},
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
