#include "desktop/item/GlyphPictures.hpp"

#include <fontconfig/fontconfig.h>

#include <QFont>
#include <QPainter>
#include <algorithm>
#include <memory>
#include <optional>

namespace Hilalor::Desktop {
namespace {

/// Colour emoji fonts hold pictures of about this size.
constexpr int kFontPixelSize = 109;
constexpr int kCanvas = 2 * kFontPixelSize;

QString text(TitleGlyph glyph) {
  const auto utf8 = character(glyph);
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;
using CharSet = std::unique_ptr<FcCharSet, decltype(&FcCharSetDestroy)>;

/// The family of the colour font that has the glyph, if the machine has one.
std::optional<QString> colourFamily(TitleGlyph glyph) {
  const FcChar32 wanted = text(glyph).toUcs4().value(0);
  const CharSet charSet(FcCharSetCreate(), &FcCharSetDestroy);
  FcCharSetAddChar(charSet.get(), wanted);
  const Pattern query(FcPatternCreate(), &FcPatternDestroy);
  FcPatternAddCharSet(query.get(), FC_CHARSET, charSet.get());
  FcPatternAddBool(query.get(), FC_COLOR, FcTrue);
  FcConfigSubstitute(nullptr, query.get(), FcMatchPattern);
  FcDefaultSubstitute(query.get());

  FcResult result = FcResultNoMatch;
  const Pattern found(FcFontMatch(nullptr, query.get(), &result), &FcPatternDestroy);
  FcBool isColour = FcFalse;
  FcCharSet* has = nullptr;
  FcChar8* family = nullptr;
  if (!found || FcPatternGetBool(found.get(), FC_COLOR, 0, &isColour) != FcResultMatch ||
      FcPatternGetCharSet(found.get(), FC_CHARSET, 0, &has) != FcResultMatch ||
      FcPatternGetString(found.get(), FC_FAMILY, 0, &family) != FcResultMatch) {
    return std::nullopt;
  }
  if (isColour != FcTrue || FcCharSetHasChar(has, wanted) != FcTrue) return std::nullopt;
  return QString::fromUtf8(reinterpret_cast<const char*>(family));
}

/// The smallest rectangle that holds everything drawn; empty for a blank picture.
QRect drawnPart(const QImage& image) {
  QRect part;
  for (int y = 0; y < image.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(line[x]) > 0) part |= QRect(x, y, 1, 1);
    }
  }
  return part;
}

QImage squared(const QImage& image, QRect part) {
  const int side = std::max(part.width(), part.height());
  const QPoint margin((side - part.width()) / 2, (side - part.height()) / 2);
  return image.copy(QRect(part.topLeft() - margin, QSize(side, side)));
}

/// Blank (no result) also where the font's kind of colour is one that Qt cannot draw.
std::optional<QImage> pictureOfFont(TitleGlyph glyph) {
  const auto family = colourFamily(glyph);
  if (!family) return std::nullopt;
  QImage canvas(kCanvas, kCanvas, QImage::Format_ARGB32_Premultiplied);
  canvas.fill(Qt::transparent);
  QFont font(*family);
  font.setPixelSize(kFontPixelSize);
  {
    QPainter painter(&canvas);
    painter.setFont(font);
    painter.drawText(canvas.rect(), Qt::AlignCenter, text(glyph));
  }
  const QRect part = drawnPart(canvas);
  if (part.isEmpty()) return std::nullopt;
  return squared(canvas, part);
}

}  // namespace

GlyphPictures::GlyphPictures(const std::filesystem::path& folder)
    : folder_(QString::fromStdString(folder.string())) {}

const QImage& GlyphPictures::picture(TitleGlyph glyph) {
  const auto known = pictures_.find(glyph);
  if (known != pictures_.end()) return known->second;
  auto picture = pictureOfFont(glyph);
  if (!picture) {
    picture = QImage(file(glyph)).convertToFormat(QImage::Format_ARGB32_Premultiplied);
  }
  return pictures_.emplace(glyph, std::move(*picture)).first->second;
}

bool GlyphPictures::fontHas(TitleGlyph glyph) {
  return colourFamily(glyph).has_value();
}

QString GlyphPictures::file(TitleGlyph glyph) const {
  switch (glyph) {
    case TitleGlyph::none:
      return folder_ + QStringLiteral("/blank.png");
    case TitleGlyph::calendar:
      return folder_ + QStringLiteral("/calendar.png");
    case TitleGlyph::mosque:
      return folder_ + QStringLiteral("/mosque.png");
  }
  return {};
}

}  // namespace Hilalor::Desktop
