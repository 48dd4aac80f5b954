#include "desktop/item/CompactTitle.hpp"

#include <gtest/gtest.h>

#include <QString>
#include <ostream>

namespace Hilalor {

static std::ostream& operator<<(std::ostream& out, const CompactTitle& compact) {
  return out << static_cast<int>(compact.form) << " \"" << compact.upper.toStdString() << "\" \""
             << compact.lower.toStdString() << '"';
}

namespace {

using Form = CompactTitle::Form;

TEST(CompactTitle, KeepsWhatMattersOfEveryTitle) {
  const struct {
    const char* title;
    CompactTitle expected;
  } cases[] = {
      {"Maghrib 1h 5m", {Form::lines, "Ma", "1:05"}},
      {"Fajr 12h 45m", {Form::lines, "Fa", "12:45"}},
      {"Fajr 1h 0m", {Form::lines, "Fa", "1:00"}},
      {"Isha 45m", {Form::lines, "Is", "45m"}},
      {"Isha 0m", {Form::lines, "Is", "0m"}},
      {"6 Apr", {Form::page, "6", ""}},
      {"29 Rab. II", {Form::page, "29", ""}},
      {"10 Dhuʻl-Q.", {Form::page, "10", ""}},
      {"\U0001F4C5", {Form::calendar, "", ""}},
      {"\U0001F54C", {Form::mosque, "", ""}},
      {"\U0001F54C ", {Form::mosque, "", ""}},
      {"\U0001F54C Maghrib Athan", {Form::mosque, "", ""}},
      {"", {Form::empty, "", ""}},
      {"  ", {Form::empty, "", ""}},
      {"Hilalor", {Form::lines, "Hi", ""}},
      {"1h 5m", {Form::lines, "1h", "5m"}},
      {"45m", {Form::lines, "45", ""}},
      {"123 Apr", {Form::lines, "12", ""}},
  };
  for (const auto& [title, expected] : cases) {
    SCOPED_TRACE(title);
    EXPECT_EQ(CompactTitle::of(QString::fromUtf8(title)), expected);
  }
}

TEST(TitleParts, PartsTheLeadingGlyphFromTheText) {
  using Glyph = TitleParts::Glyph;
  EXPECT_EQ(TitleParts::of(QString::fromUtf8("\U0001F54C Maghrib Athan")),
            (TitleParts{Glyph::mosque, "Maghrib Athan"}));
  EXPECT_EQ(TitleParts::of(QString::fromUtf8("\U0001F54C ")), (TitleParts{Glyph::mosque, ""}));
  EXPECT_EQ(TitleParts::of(QString::fromUtf8("\U0001F4C5")), (TitleParts{Glyph::calendar, ""}));
  EXPECT_EQ(TitleParts::of("6 Apr"), (TitleParts{Glyph::none, "6 Apr"}));
}

}  // namespace
}  // namespace Hilalor
