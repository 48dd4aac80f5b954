#include "desktop/item/ItemPainter.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace Hilalor {
namespace {

using Glyph = TitleParts::Glyph;

const QColor kGreen(34, 120, 70);
const QColor kPaper(255, 255, 255);
const QColor kPaperEdge(109, 122, 114);
const QColor kPrint(32, 36, 34);

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
constexpr int kNarrowest = 75;  // percent

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
  QFont font;
  double glyphSide = 0;
  double textLeft = 0;
  double width = 0;

  TitleLayout(const TitleParts& parts, int barHeight) : font(barFont(barHeight)) {
    const double pixels = font.pixelSize();
    double x = std::round(pixels * kAirAtEnds);
    if (parts.glyph != Glyph::none) {
      glyphSide = std::min(std::round(pixels * kGlyphOfText), static_cast<double>(barHeight));
      x += glyphSide;
      if (!parts.text.isEmpty()) x += std::round(pixels * kAirAfterGlyph);
    }
    textLeft = x;
    width = x + std::ceil(QFontMetricsF(font).horizontalAdvance(parts.text)) +
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

QRect centredSquare(const QRect& rect) {
  const int side = std::min(rect.width(), rect.height());
  return {rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2, side, side};
}

int part(const QRect& square, double share) {
  return static_cast<int>(std::lround(square.width() * share));
}

/// The largest font at which the text's capitals and figures fill the box; narrowed a little rather
/// than made smaller.
QFont fittingFont(const QString& text, const QRectF& box) {
  QFont font = QApplication::font();
  font.setWeight(QFont::Bold);
  for (int pixels = static_cast<int>(box.height() * 1.5); pixels > 5; --pixels) {
    font.setPixelSize(pixels);
    for (const int stretch : {100, 87, kNarrowest}) {
      font.setStretch(stretch);
      const QFontMetricsF metrics(font);
      if (metrics.capHeight() <= box.height() + 0.5 &&
          metrics.tightBoundingRect(text).width() <= box.width()) {
        return font;
      }
    }
  }
  return font;
}

/// Draws the text with its capitals in the middle of the box.
void drawFitting(QPainter& painter, const QRectF& box, const QString& text) {
  const QFont font = fittingFont(text, box);
  const QFontMetricsF metrics(font);
  const QRectF letters = metrics.tightBoundingRect(text);
  const double x = box.center().x() - letters.center().x();
  const double y = box.center().y() + metrics.capHeight() / 2;
  painter.setFont(font);
  painter.drawText(QPointF(std::round(x), std::round(y)), text);
}

QImage transparentImage(int width, int height) {
  QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
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

int ItemPainter::naturalWidth(const QString& title, int barHeight) const {
  return static_cast<int>(std::ceil(TitleLayout(TitleParts::of(title), barHeight).width));
}

void ItemPainter::drawTitle(QPainter& painter, const QRect& rect, const QString& title,
                            const Ink& ink) const {
  const auto parts = TitleParts::of(title);
  const TitleLayout layout(parts, rect.height());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(layout.font);
  const double left = rect.x() + std::floor((rect.width() - layout.width) / 2);
  if (parts.glyph != Glyph::none) {
    const double glyphLeft = left + std::round(layout.font.pixelSize() * kAirAtEnds);
    const double top = rect.y() + std::round((rect.height() - layout.glyphSide) / 2);
    drawPicture(painter, QRectF(glyphLeft, top, layout.glyphSide, layout.glyphSide),
                pictures_.picture(parts.glyph));
  }
  const double capitals = QFontMetricsF(layout.font).capHeight();
  const double baseline = rect.y() + std::round((rect.height() + capitals) / 2);
  drawText(painter, {left + layout.textLeft, baseline}, parts.text, ink);
}

void ItemPainter::drawCompact(QPainter& painter, const QRect& rect, const QString& title) const {
  const auto compact = CompactTitle::of(title);
  const QRect square = centredSquare(rect);
  painter.setRenderHint(QPainter::Antialiasing);
  switch (compact.form) {
    case CompactTitle::Form::empty:
      return;
    case CompactTitle::Form::calendar:
      drawPicture(painter, square, pictures_.picture(Glyph::calendar));
      return;
    case CompactTitle::Form::mosque:
      drawPicture(painter, square, pictures_.picture(Glyph::mosque));
      return;
    case CompactTitle::Form::page:
      drawPage(painter, square, compact.upper);
      return;
    case CompactTitle::Form::lines:
      drawLines(painter, square, compact);
      return;
  }
}

void ItemPainter::drawPage(QPainter& painter, const QRect& square, const QString& day) const {
  const int side = part(square, 0.04);
  const QRect page = square.adjusted(side, part(square, 0.04), -side, -part(square, 0.04));
  const double radius = square.width() * 0.14;
  const int band = part(square, 0.27);
  QPainterPath outline;
  outline.addRoundedRect(QRectF(page).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  painter.fillPath(outline, kPaper);
  painter.save();
  painter.setClipPath(outline);
  painter.fillRect(QRect(page.x(), page.y(), page.width(), band), kGreen);
  painter.restore();
  painter.strokePath(outline, QPen(kPaperEdge, std::max(1.0, square.width() / 32.0)));

  painter.setPen(kPrint);
  const QRect body(page.x(), page.y() + band, page.width(), page.height() - band);
  const int air = std::max(2, part(square, 0.09));
  drawFitting(painter, QRectF(body).adjusted(air, air, -air, -air), day);
}

void ItemPainter::drawLines(QPainter& painter, const QRect& square,
                            const CompactTitle& compact) const {
  const double radius = square.width() * 0.2;
  painter.setPen(Qt::NoPen);
  painter.setBrush(kGreen);
  painter.drawRoundedRect(square, radius, radius);

  painter.setPen(kPaper);
  const double air = std::max(1.0, square.width() * 0.05);
  const QRectF inside = QRectF(square).adjusted(air, 2 * air, -air, -2 * air);
  if (compact.lower.isEmpty()) {
    drawFitting(painter, inside, compact.upper);
    return;
  }
  const double line = (inside.height() - 1.5 * air) / 2;
  QRectF box(inside.x(), inside.y(), inside.width(), line);
  drawFitting(painter, box, compact.upper);
  box.moveBottom(inside.bottom());
  drawFitting(painter, box, compact.lower);
}

QImage ItemPainter::compactPicture(const QString& title, int side) const {
  QImage image = transparentImage(side, side);
  QPainter painter(&image);
  drawCompact(painter, image.rect(), title);
  return image;
}

QImage ItemPainter::widePicture(const QString& title, int scale) const {
  if (TitleParts::of(title).text.isEmpty()) return compactPicture(title, kWideHeight * scale);
  const QRect rect(0, 0, naturalWidth(title, kWideHeight) + kWideHeight / 4, kWideHeight);
  QImage image = transparentImage(rect.width() * scale, rect.height() * scale);
  QPainter painter(&image);
  painter.scale(scale, scale);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kGreen);
  painter.drawRoundedRect(rect, kWideHeight * 0.25, kWideHeight * 0.25);
  drawTitle(painter, rect, title, {kPaper, std::nullopt});
  return image;
}

}  // namespace Hilalor
