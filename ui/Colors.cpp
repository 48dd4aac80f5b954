#include "ui/Colors.hpp"

#include <QWidget>
#include <algorithm>
#include <cmath>

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

Colors highContrast(const QColor& ink, const QColor& ground) {
  const bool isDark = ground == QColor(Qt::black);
  return {.primary = ink,
          .secondary = ink,
          .tertiary = ink,
          .separator = ink,
          .windowBackground = ground,
          .controlBackground = ground,
          .textBackground = ground,
          .yellow = isDark ? QColor(255, 214, 10) : QColor(97, 66, 0),
          .orange = isDark ? QColor(255, 184, 77) : QColor(112, 56, 0),
          .red = isDark ? QColor(255, 130, 120) : QColor(140, 0, 14),
          .accent = ink,
          .white = ground,
          .contrast = Contrast::high};
}

const Colors kHighLight = highContrast(Qt::black, Qt::white);
const Colors kHighDark = highContrast(Qt::white, Qt::black);

// Black on white has 21; the usual grounds of desktops are some way from both.
constexpr double kLeastHighContrast = 20;

/// As WCAG 2.1 reckons it.
double luminance(const QColor& color) {
  const auto linear = [](double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

}  // namespace

const Colors& Colors::of(ColorScheme scheme, Contrast contrast) {
  if (contrast == Contrast::high) return scheme == ColorScheme::dark ? kHighDark : kHighLight;
  return scheme == ColorScheme::dark ? kDark : kLight;
}

const Colors& Colors::of(const QWidget& widget) {
  return of(colorScheme(widget.palette()), Ui::contrast(widget.palette()));
}

QColor weaker(const Colors& colors, const QColor& ink, double opacity) {
  return colors.contrast == Contrast::high ? ink : faded(ink, opacity);
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

Contrast contrast(const QPalette& palette) {
  const double text = luminance(palette.color(QPalette::WindowText));
  const double ground = luminance(palette.color(QPalette::Window));
  const double ratio = (std::max(text, ground) + 0.05) / (std::min(text, ground) + 0.05);
  return ratio >= kLeastHighContrast ? Contrast::high : Contrast::usual;
}

QPalette windowPalette(ColorScheme scheme, Contrast contrast) {
  const Colors& colors = Colors::of(scheme, contrast);
  // Controls that the desktop's style draws want opaque colours.
  const QColor usual = scheme == ColorScheme::dark ? QColor(228, 228, 228) : QColor(38, 38, 38);
  const QColor text = contrast == Contrast::high ? colors.primary : usual;
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
