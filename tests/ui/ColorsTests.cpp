#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "ui/Colors.hpp"
#include "ui/Icon.hpp"

namespace Hilalor::Ui {
namespace {

/// The colour as it is seen on an opaque background.
QColor seenOn(const QColor& background, const QColor& color) {
  const auto mix = [&](float over, float under) {
    return over * color.alphaF() + under * (1 - color.alphaF());
  };
  return QColor::fromRgbF(mix(color.redF(), background.redF()),
                          mix(color.greenF(), background.greenF()),
                          mix(color.blueF(), background.blueF()));
}

double luminance(const QColor& color) {
  const auto linear = [](double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

/// The contrast ratio of WCAG 2.1.
double contrast(const QColor& color, const QColor& background) {
  const double one = luminance(seenOn(background, color));
  const double other = luminance(background);
  return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

TEST(Colors, TextsCanBeReadInLightAndDark) {
  for (const auto scheme : {ColorScheme::light, ColorScheme::dark}) {
    SCOPED_TRACE(scheme == ColorScheme::light ? "light" : "dark");
    const Colors& colors = Colors::of(scheme);
    for (const QColor& ground :
         {colors.windowBackground, colors.controlBackground, colors.textBackground}) {
      EXPECT_GE(contrast(colors.primary, ground), 7);
      EXPECT_GE(contrast(colors.secondary, ground), 4.5);
    }
    EXPECT_GE(contrast(colors.accent, colors.windowBackground), 3);
    EXPECT_GE(contrast(colors.white, colors.accent), 4.5);
  }
}

TEST(Icon, EveryIconFillsItsSquareWithoutLeavingIt) {
  for (int index = 0; index <= static_cast<int>(Icon::checkMark); ++index) {
    SCOPED_TRACE(index);
    const QRectF bounds = iconPath(static_cast<Icon>(index)).boundingRect();
    EXPECT_TRUE(QRectF(0, 0, 1, 1).contains(bounds));
    EXPECT_GT(std::max(bounds.width(), bounds.height()), 0.6);
  }
}

}  // namespace
}  // namespace Hilalor::Ui
