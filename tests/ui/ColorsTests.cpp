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

TEST(Colors, CanBeReadOnEveryGroundOfTheirScheme) {
  struct Claim {
    const char* what;
    Ink ink;
    double opacity;
    double least;
  };
  constexpr Claim kClaims[] = {
      {"text", &Colors::primary, 1, 7},
      {"text that matters less", &Colors::secondary, 1, 4.5},
      {"the name of the place, a button that is off", &Colors::secondary, 0.7, 4.5},
      {"controls at rest", &Colors::tertiary, 1, 3},
      {"the program's green", &Colors::accent, 1, 3},
      {"a note's outline", &Colors::yellow, 0.8, 3},
      {"a warning", &Colors::orange, 1, 3},
      {"the pin", &Colors::red, 1, 3},
  };
  using enum Contrast;
  for (const auto& [scheme, level] : {std::pair(ColorScheme::light, usual),
                                      {ColorScheme::dark, usual},
                                      {ColorScheme::light, high},
                                      {ColorScheme::dark, high}}) {
    const Colors& colors = Colors::of(scheme, level);
    EXPECT_EQ(Ui::contrast(windowPalette(scheme, level)), level);
    const double factor = level == high ? 2 : 1;
    EXPECT_GE(contrast(colors.white, colors.accent), 4.5);
    for (const QColor& ground :
         {colors.windowBackground, colors.controlBackground, colors.textBackground}) {
      for (const auto& [what, ink, opacity, least] : kClaims) {
        EXPECT_GE(contrast(weaker(colors, colors.*ink, opacity), ground), least * factor)
            << what << (scheme == ColorScheme::light ? " in light on " : " in dark on ")
            << ground.name().toStdString();
      }
    }
  }
}

TEST(Icon, EveryIconFillsItsSquareWithoutLeavingIt) {
  for (int index = 0; index <= static_cast<int>(Icon::magnifyingGlass); ++index) {
    for (const int side : {12, 18}) {
      SCOPED_TRACE(index);
      const QRectF bounds = iconPath(static_cast<Icon>(index), side).boundingRect();
      EXPECT_TRUE(QRectF(0, 0, side, side).contains(bounds));
      EXPECT_GT(std::max(bounds.width(), bounds.height()), 0.6 * side);
    }
  }
}

}  // namespace
}  // namespace Hilalor::Ui
