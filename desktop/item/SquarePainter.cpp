#include "desktop/item/SquarePainter.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "desktop/item/ItemColours.hpp"
#include "desktop/item/PixelLetters.hpp"

namespace Hilalor::Desktop {
namespace {

using Form = CompactTitle::Form;

const QColor kPaperEdge(109, 122, 114);

constexpr int kNarrowest = 75;  // percent

/// The sides of the squares that have letters drawn by hand. Larger ones have the pixels for a
/// font's.
constexpr int kLeastLight = 16;
constexpr int kLeastBold = 22;
constexpr int kLeastFont = 28;

/// What stands on a plate in two lines.
struct Lines {
  QString upper;
  QString lower;
  QString minutes;

  explicit Lines(const CompactTitle& title)
      : upper(QString::fromStdString(title.upper)),
        lower(QString::fromStdString(title.lower)),
        minutes(QString::fromStdString(title.minutes)) {}
};

int part(int side, double share) {
  return static_cast<int>(std::lround(side * share));
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

void drawPage(QPainter& painter, int side, const QString& day) {
  const int edge = part(side, 0.04);
  const QRect page = QRect(0, 0, side, side).adjusted(edge, edge, -edge, -edge);
  const double radius = side * 0.14;
  const int band = part(side, 0.27);
  QPainterPath outline;
  outline.addRoundedRect(QRectF(page).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  painter.fillPath(outline, kPaper);
  painter.save();
  painter.setClipPath(outline);
  painter.fillRect(QRect(page.x(), page.y(), page.width(), band), kGreen);
  painter.restore();
  painter.strokePath(outline, QPen(kPaperEdge, std::max(1.0, side / 32.0)));

  painter.setPen(kPrint);
  const QRect body(page.x(), page.y() + band, page.width(), page.height() - band);
  const int air = std::max(2, part(side, 0.09));
  drawFitting(painter, QRectF(body).adjusted(air, air, -air, -air), day);
}

void drawLinesOfFont(QPainter& painter, int side, const Lines& lines) {
  const double air = std::max(1.0, side * 0.05);
  const QRectF inside = QRectF(0, 0, side, side).adjusted(air, 1.5 * air, -air, -1.5 * air);
  // Between the lines there is room for what hangs below letters.
  const double line = (inside.height() - 2.5 * air) / 2;
  QRectF box(inside.x(), inside.y(), inside.width(), line);
  drawFitting(painter, box, lines.upper);
  box.moveBottom(inside.bottom());
  drawFitting(painter, box, lines.lower + lines.minutes);
}

void drawLightLines(QPainter& painter, int side, const Lines& lines) {
  const auto& letters = PixelLetters::light();
  const int top = (side - kLeastLight) / 2;
  const auto drawLine = [&](int y, const QString& text) {
    letters.draw(painter, {(side - letters.width(text)) / 2, top + y}, text);
  };
  drawLine(1, lines.upper);
  drawLine(9, lines.lower + lines.minutes);
}

void drawBoldLines(QPainter& painter, int side, const Lines& lines) {
  const auto& letters = PixelLetters::bold();
  const auto& raised = PixelLetters::raised();
  const int top = (side - kLeastBold) / 2;
  letters.draw(painter, {(side - letters.width(lines.upper)) / 2, top}, lines.upper);

  const int hours = letters.width(lines.lower);
  const int gap = lines.minutes.isEmpty() ? 0 : 1;
  const int left = (side - hours - gap - raised.width(lines.minutes) + 1) / 2;
  letters.draw(painter, {left, top + 12}, lines.lower);
  raised.draw(painter, {left + hours + gap, top + 12}, lines.minutes);
}

bool hasPixelLetters(int side, const Lines& lines) {
  if (side < kLeastLight || side >= kLeastFont) return false;
  const auto& letters = side < kLeastBold ? PixelLetters::light() : PixelLetters::bold();
  const QString all = lines.upper + lines.lower;
  return letters.has(all) && letters.width(lines.upper) <= side &&
         PixelLetters::raised().has(lines.minutes);
}

void drawLines(QPainter& painter, int side, const Lines& lines) {
  const double radius = side * 0.2;
  painter.setPen(Qt::NoPen);
  painter.setBrush(kGreen);
  painter.drawRoundedRect(0, 0, side, side, radius, radius);

  painter.setPen(kPaper);
  if (!hasPixelLetters(side, lines)) return drawLinesOfFont(painter, side, lines);
  if (side < kLeastBold) return drawLightLines(painter, side, lines);
  drawBoldLines(painter, side, lines);
}

}  // namespace

QImage SquarePainter::picture(const ItemTitle& title, int side) const {
  const auto form = title.compact.form;
  if (form == Form::glyph) {
    return pictures_.picture(title.glyph)
        .scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  if (form == Form::page) drawPage(painter, side, QString::fromStdString(title.compact.upper));
  if (form == Form::lines) drawLines(painter, side, Lines(title.compact));
  return image;
}

}  // namespace Hilalor::Desktop
