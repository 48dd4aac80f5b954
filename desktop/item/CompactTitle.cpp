#include "desktop/item/CompactTitle.hpp"

#include <QRegularExpression>
#include <optional>

namespace Hilalor::Desktop {
namespace {

/// A square has room for four letters, but half a name reads better with three.
constexpr int kMostLetters = 4;
constexpr int kLettersOfMore = 3;

/// Two figures for the hours leave no room for the minutes.
constexpr int kHoursWithMinutes = 10;

QString beginning(const QString& text) {
  const QString word = text.section(u' ', 0, 0, QString::SectionSkipEmpty);
  return word.size() <= kMostLetters ? word : word.left(kLettersOfMore);
}

std::optional<CompactTitle> countdown(const QString& text) {
  static const QRegularExpression pattern(QStringLiteral("^(\\S.*?) (?:(\\d+)h )?(\\d+)m$"));
  const auto match = pattern.match(text);
  if (!match.hasMatch()) return std::nullopt;
  const QString prayer = beginning(match.captured(1));
  const QString hours = match.captured(2);
  const QString minutes = match.captured(3);
  if (hours.isEmpty()) return CompactTitle{CompactTitle::Form::lines, prayer, minutes + u'm', {}};
  return CompactTitle{
      CompactTitle::Form::lines, prayer, hours + u'h',
      hours.toInt() < kHoursWithMinutes ? minutes.rightJustified(2, u'0') : QString()};
}

CompactTitle announcement(const QString& text) {
  static const QString athan = QStringLiteral(" Athan");
  if (!text.endsWith(athan)) return {CompactTitle::Form::mosque, {}, {}, {}};
  return {CompactTitle::Form::lines, beginning(text), QStringLiteral("now"), {}};
}

std::optional<CompactTitle> page(const QString& text) {
  static const QRegularExpression pattern(QStringLiteral("^(\\d{1,2}) \\D"));
  const auto match = pattern.match(text);
  if (!match.hasMatch()) return std::nullopt;
  return CompactTitle{CompactTitle::Form::page, match.captured(1), {}, {}};
}

}  // namespace

CompactTitle CompactTitle::of(const QString& title) {
  const auto parts = TitleParts::of(title);
  if (parts.glyph == TitleParts::Glyph::calendar) return {Form::calendar, {}, {}, {}};
  if (parts.glyph == TitleParts::Glyph::mosque) return announcement(parts.text);
  if (parts.text.isEmpty()) return {};
  if (auto form = countdown(parts.text)) return *form;
  if (auto form = page(parts.text)) return *form;
  return {Form::lines, beginning(parts.text), {}, {}};
}

TitleParts TitleParts::of(const QString& title) {
  static const QString calendar = QString::fromUtf8("\U0001F4C5");
  static const QString mosque = QString::fromUtf8("\U0001F54C");
  const auto rest = [&](const QString& glyph) { return title.mid(glyph.size()).trimmed(); };
  if (title.startsWith(calendar)) return {Glyph::calendar, rest(calendar)};
  if (title.startsWith(mosque)) return {Glyph::mosque, rest(mosque)};
  return {Glyph::none, title.trimmed()};
}

}  // namespace Hilalor::Desktop
