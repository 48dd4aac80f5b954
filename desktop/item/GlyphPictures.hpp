#pragma once

#include <QImage>
#include <QString>
#include <filesystem>
#include <map>

#include "platform/ItemTitle.hpp"

namespace Hilalor::Desktop {

/// The glyphs that lead a title, as pictures: of the machine's colour emoji font, else our own.
class GlyphPictures {
 public:
  /// `folder` holds calendar.png, mosque.png and blank.png.
  explicit GlyphPictures(const std::filesystem::path& folder);

  /// A square picture at least 100 pixels wide, to be scaled down; read on first use and kept.
  [[nodiscard]] const QImage& picture(TitleGlyph glyph);

  /// Whether programs that draw text themselves find the glyph in a font.
  [[nodiscard]] static bool fontHas(TitleGlyph glyph);

  /// Whether the pictures stand in for the glyph with programs that draw text themselves.
  [[nodiscard]] static bool standInFor(TitleGlyph glyph) {
    return glyph != TitleGlyph::none && !fontHas(glyph);
  }

  /// Our own picture as a file, for bars that want a path; of no glyph, a transparent one.
  [[nodiscard]] QString file(TitleGlyph glyph) const;

 private:
  QString folder_;
  std::map<TitleGlyph, QImage> pictures_;
};

}  // namespace Hilalor::Desktop
