#include "desktop/item/PixelLetters.hpp"

#include <QPainter>
#include <QStringList>
#include <algorithm>

#include "desktop/item/PixelLetterSheets.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr int kGap = 1;

}  // namespace

const PixelLetters& PixelLetters::bold() {
  static const PixelLetters letters(PixelLetterSheets::kBold);
  return letters;
}

const PixelLetters& PixelLetters::light() {
  static const PixelLetters letters(PixelLetterSheets::kLight);
  return letters;
}

const PixelLetters& PixelLetters::raised() {
  static const PixelLetters letters(PixelLetterSheets::kRaised);
  return letters;
}

PixelLetters::PixelLetters(const char* sheet) {
  for (const auto& strip : QString::fromLatin1(sheet).split(QStringLiteral("\n\n")))
    read(strip);
}

void PixelLetters::read(const QString& strip) {
  const auto lines = strip.split(u'\n', Qt::SkipEmptyParts);
  const QString& names = lines.front();
  for (int row = 1; row < lines.size(); ++row) {
    const auto pieces = lines[row].split(u' ');
    for (int index = 0; index < names.size(); ++index) {
      Letter& letter = letters_[names[index]];
      letter.width = static_cast<int>(pieces[index].size());
      for (int column = 0; column < letter.width; ++column) {
        if (pieces[index][column] == u'#') letter.ink.emplace_back(column, row - 1);
      }
    }
  }
}

bool PixelLetters::has(const QString& text) const {
  return std::all_of(text.begin(), text.end(),
                     [this](QChar letter) { return letters_.count(letter) == 1; });
}

int PixelLetters::width(const QString& text) const {
  int width = -kGap;
  for (const QChar letter : text)
    width += letters_.at(letter).width + kGap;
  return std::max(0, width);
}

void PixelLetters::draw(QPainter& painter, QPoint corner, const QString& text) const {
  for (const QChar name : text) {
    const Letter& letter = letters_.at(name);
    for (const QPoint& pixel : letter.ink)
      painter.fillRect(QRect(corner + pixel, QSize(1, 1)), painter.pen().color());
    corner.rx() += letter.width + kGap;
  }
}

}  // namespace Hilalor::Desktop
