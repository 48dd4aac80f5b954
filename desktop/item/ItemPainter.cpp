#include "desktop/item/ItemPainter.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "desktop/item/ItemColours.hpp"

namespace Hilalor::Desktop {
namespace {

/// A bar's text is as tall as a desktop's ordinary one, unless the bar is lower than that needs.
constexpr double kTextPoints = 10.0;
constexpr double kTallestText = 0.66;   // of the bar's height
constexpr double kGlyphOfText = 1.3;    // of the text's pixel size
constexpr double kAirAtEnds = 0.45;     // of the text's pixel size
constexpr double kAirAfterGlyph = 0.4;  // of the text's pixel size
/// The lightness from which a ground takes dark letters.
constexpr double kLightGround = 140;

constexpr int kWideHeight = 24;
constexpr double kHaloWidth = 2.5;

QFont barFont(int barHeight) {
  QFont font = QApplication::font();
  font.setPointSizeF(kTextPoints);
  const int ordinary = QFontInfo(font).pixelSize();
  const int tallest = std::max(6, static_cast<int>(barHeight * kTallestText));
  font.setPixelSize(std::min(ordinary, tallest));
  return font;
}

/// Where the parts of a title stand, from its left end.
struct TitleLayout {
  QString text;
  QFont font;
  double glyphSide = 0;
  double textLeft = 0;
  double width = 0;

  TitleLayout(const ItemTitle& title, int barHeight)
      : text(QString::fromStdString(title.words())), font(barFont(barHeight)) {
    const double pixels = font.pixelSize();
    double x = std::round(pixels * kAirAtEnds);
    if (title.glyph != TitleGlyph::none) {
      glyphSide = std::min(std::round(pixels * kGlyphOfText), static_cast<double>(barHeight));
      x += glyphSide;
      if (!text.isEmpty()) x += std::round(pixels * kAirAfterGlyph);
    }
    textLeft = x;
    width = x + std::ceil(QFontMetricsF(font).horizontalAdvance(text)) +
            std::round(pixels * kAirAtEnds);
  }
};

void drawText(QPainter& painter, QPointF baseline, const QString& text, const Ink& ink) {
  if (ink.halo) {
    QPainterPath letters;
    letters.addText(baseline, painter.font(), text);
    painter.strokePath(letters,
                       QPen(*ink.halo, kHaloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  }
  painter.setPen(ink.text);
  painter.drawText(baseline, text);
}

void drawPicture(QPainter& painter, const QRectF& square, const QImage& picture) {
  // A painter's own scaling looks at four pixels for each, too few for pictures so much larger.
  const double side = painter.deviceTransform().mapRect(square).width();
  const int pixels = static_cast<int>(std::lround(side));
  painter.drawImage(
      square, picture.scaled(pixels, pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

}  // namespace

double lightness(const QColor& colour) {
  return 0.299 * colour.red() + 0.587 * colour.green() + 0.114 * colour.blue();
}

QColor meanColour(const QImage& picture) {
  return picture.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
}

Ink Ink::on(const QColor& ground) {
  return {lightness(ground) > kLightGround ? kPrint : kPaper, std::nullopt};
}

int ItemPainter::naturalWidth(const ItemTitle& title, int barHeight) const {
  return static_cast<int>(std::ceil(TitleLayout(title, barHeight).width));
}

void ItemPainter::drawTitle(QPainter& painter, const QRect& rect, const ItemTitle& title,
                            const Ink& ink) const {
  const TitleLayout layout(title, rect.height());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(layout.font);
  const double left = rect.x() + std::floor((rect.width() - layout.width) / 2);
  if (title.glyph != TitleGlyph::none) {
    const double glyphLeft = left + std::round(layout.font.pixelSize() * kAirAtEnds);
    const double top = rect.y() + std::round((rect.height() - layout.glyphSide) / 2);
    drawPicture(painter, QRectF(glyphLeft, top, layout.glyphSide, layout.glyphSide),
                pictures_.picture(title.glyph));
  }
  const double capitals = QFontMetricsF(layout.font).capHeight();
  const double baseline = rect.y() + std::round((rect.height() + capitals) / 2);
  drawText(painter, {left + layout.textLeft, baseline}, layout.text, ink);
}

void ItemPainter::drawCompact(QPainter& painter, const QRect& rect, const ItemTitle& title) const {
  // Small letters need whole pixels of the screen, of which the painter's may be fractions.
  const QTransform toScreen = painter.deviceTransform();
  const QRectF screenRect = toScreen.mapRect(QRectF(rect));
  const int side = static_cast<int>(std::min(screenRect.width(), screenRect.height()));
  if (side <= 0) return;
  const double left = std::floor(screenRect.center().x() - side / 2.0);
  const double top = std::floor(screenRect.center().y() - side / 2.0);
  const QRectF square(left, top, side, side);
  painter.drawImage(toScreen.inverted().mapRect(square), compactPicture(title, side));
}

QImage ItemPainter::compactPicture(const ItemTitle& title, int side) const {
  return squares_.picture(title, side);
}

QImage ItemPainter::widePicture(const ItemTitle& title, int scale) const {
  if (title.words().empty()) return compactPicture(title, kWideHeight * scale);
  const QRect rect(0, 0, naturalWidth(title, kWideHeight) + kWideHeight / 4, kWideHeight);
  QImage image(rect.size() * scale, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.scale(scale, scale);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kGreen);
  painter.drawRoundedRect(rect, kWideHeight * 0.25, kWideHeight * 0.25);
  drawTitle(painter, rect, title, {kPaper, std::nullopt});
  return image;
}

}  // namespace Hilalor::Desktop
