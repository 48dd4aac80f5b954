#pragma once

#include <QString>

namespace Hilalor {

/// What a square as small as an icon can say of the item's title. The whole title stays in the
/// tooltip and the accessible name.
struct CompactTitle {
  enum class Form {
    empty,     ///< Nothing to show.
    calendar,  ///< The calendar glyph.
    mosque,    ///< The mosque glyph, alone or leading a text.
    page,      ///< `upper` is the day of the month: a calendar's page.
    lines,     ///< `upper` over `lower`, which may be empty.
  };

  Form form = Form::empty;
  QString upper;
  QString lower;

  /// "6 Apr" is the page 6; "Maghrib 1h 5m" is "Ma" over "1:05", "Isha 45m" is "Is" over "45m";
  /// any other text is the first two characters of its first word.
  [[nodiscard]] static CompactTitle of(const QString& title);

  friend bool operator==(const CompactTitle&, const CompactTitle&) = default;
};

/// A title taken apart: the glyph it leads with and the text after it.
struct TitleParts {
  enum class Glyph { none, calendar, mosque };

  Glyph glyph = Glyph::none;
  QString text;

  [[nodiscard]] static TitleParts of(const QString& title);

  friend bool operator==(const TitleParts&, const TitleParts&) = default;
};

}  // namespace Hilalor
