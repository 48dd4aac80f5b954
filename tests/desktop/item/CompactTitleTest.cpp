#include "desktop/item/CompactTitle.hpp"

#include <gtest/gtest.h>

#include <QString>
#include <ostream>

namespace Hilalor::Desktop {

static std::ostream& operator<<(std::ostream& out, const CompactTitle& compact) {
  return out << static_cast<int>(compact.form) << " \"" << compact.upper.toStdString() << "\" \""
             << compact.lower.toStdString() << "\" \"" << compact.minutes.toStdString() << '"';
}

namespace {

using Form = CompactTitle::Form;

TEST(CompactTitle, KeepsWhatMattersOfEveryTitle) {
  const struct {
    const char* title;
    CompactTitle expected;
  } cases[] = {
      {"Maghrib 1h 5m", {Form::lines, "Mag", "1h", "05"}},
      {"Fajr 1h 0m", {Form::lines, "Fajr", "1h", "00"}},
      {"Dhuhr 9h 59m", {Form::lines, "Dhu", "9h", "59"}},
      {"Fajr 10h 0m", {Form::lines, "Fajr", "10h", ""}},
      {"Isha 45m", {Form::lines, "Isha", "45m", ""}},
      {"Asr 0m", {Form::lines, "Asr", "0m", ""}},
      {"\U0001F54C Maghrib Athan", {Form::lines, "Mag", "now", ""}},
      {"\U0001F54C Asr Athan", {Form::lines, "Asr", "now", ""}},
      {"\U0001F54C", {Form::mosque, "", "", ""}},
      {"\U0001F54C ", {Form::mosque, "", "", ""}},
      {"6 Apr", {Form::page, "6", "", ""}},
      {"29 Rab. II", {Form::page, "29", "", ""}},
      {"10 Dhuʻl-Q.", {Form::page, "10", "", ""}},
      {"\U0001F4C5", {Form::calendar, "", "", ""}},
      {"  ", {Form::empty, "", "", ""}},
      {"Hilalor", {Form::lines, "Hil", "", ""}},
      {"123 Apr", {Form::lines, "123", "", ""}},
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
}  // namespace Hilalor::Desktop
