#include "desktop/item/CompactTitle.hpp"

#include <QRegularExpression>
#include <optional>

namespace Hilalor {
namespace {

QString initials(const QString& text) {
  return text.section(u' ', 0, 0, QString::SectionSkipEmpty).left(2);
}

/// "1h 5m" is "1:05", "45m" is itself.
QString timeLeft(const QString& hours, const QString& minutes) {
  if (hours.isEmpty()) return minutes + u'm';
  return hours + u':' + minutes.rightJustified(2, u'0');
}

std::optional<CompactTitle> countdown(const QString& text) {
  static const QRegularExpression pattern(QStringLiteral("^(\\S.*?) (?:(\\d+)h )?(\\d+)m$"));
  const auto match = pattern.match(text);
  if (!match.hasMatch()) return std::nullopt;
  return CompactTitle{CompactTitle::Form::lines, initials(match.captured(1)),
                      timeLeft(match.captured(2), match.captured(3))};
}

std::optional<CompactTitle> page(const QString& text) {
  static const QRegularExpression pattern(QStringLiteral("^(\\d{1,2}) \\D"));
  const auto match = pattern.match(text);
  if (!match.hasMatch()) return std::nullopt;
  return CompactTitle{CompactTitle::Form::page, match.captured(1), {}};
}

}  // namespace

CompactTitle CompactTitle::of(const QString& title) {
  const auto parts = TitleParts::of(title);
  if (parts.glyph == TitleParts::Glyph::calendar) return {Form::calendar, {}, {}};
  if (parts.glyph == TitleParts::Glyph::mosque) return {Form::mosque, {}, {}};
  if (parts.text.isEmpty()) return {};
  if (auto form = countdown(parts.text)) return *form;
  if (auto form = page(parts.text)) return *form;
  return {Form::lines, initials(parts.text), {}};
}

TitleParts TitleParts::of(const QString& title) {
  static const QString calendar = QString::fromUtf8("\U0001F4C5");
  static const QString mosque = QString::fromUtf8("\U0001F54C");
  const auto rest = [&](const QString& glyph) { return title.mid(glyph.size()).trimmed(); };
  if (title.startsWith(calendar)) return {Glyph::calendar, rest(calendar)};
  if (title.startsWith(mosque)) return {Glyph::mosque, rest(mosque)};
  return {Glyph::none, title.trimmed()};
}

}  // namespace Hilalor
