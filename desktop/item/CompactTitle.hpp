#pragma once

#include <QString>

namespace Hilalor::Desktop {

/// What a square as small as an icon can say of the item's title. The whole title stays in the
/// tooltip and the accessible name.
struct CompactTitle {
  enum class Form {
    empty,     ///< Nothing to show.
    calendar,  ///< The calendar glyph.
    mosque,    ///< The mosque glyph.
    page,      ///< `upper` is the day of the month: a calendar's page.
    lines,     ///< `upper` over `lower`, which may be empty, and `minutes` right after that.
  };

  Form form = Form::empty;
  QString upper;
  QString lower;
  /// Beside hours; may stand smaller.
  QString minutes;

  /// "6 Apr" is the page 6; "Maghrib 1h 5m" is "Mag" over "1h" with "05", "Isha 45m" is "Isha" over
  /// "45m", and their announcements are "Mag" and "Isha" over "now". From ten hours on there are no
  /// minutes. Any other text is the beginning of its first word.
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

}  // namespace Hilalor::Desktop
