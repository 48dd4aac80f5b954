#include "desktop/item/ItemPainter.hpp"

#include <gtest/gtest.h>

#include <QPainter>
#include <cmath>

#include "desktop/item/ItemMenu.hpp"
#include "desktop/item/PixelLetters.hpp"

namespace Hilalor::Desktop {
namespace {

const QString kCalendar = QString::fromUtf8("\U0001F4C5");
const QString kMosque = QString::fromUtf8("\U0001F54C");
const QString kAthan = kMosque + " Maghrib Athan";

/// The part of a picture that is not transparent.
QRect drawnPart(const QImage& image) {
  QRect part;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixelColor(x, y).alpha() > 0) part |= QRect(x, y, 1, 1);
  return part;
}

class ItemPainterTest : public testing::Test {
 protected:
  GlyphPictures pictures{HILALOR_ITEM_PICTURES};
  ItemPainter painter{pictures};
};

TEST_F(ItemPainterTest, ATitleFitsItsNaturalWidthOnEveryBar) {
  for (const auto& title : {QString("Maghrib 12h 45m"), QString("29 Rab. II"), kCalendar, kAthan}) {
    for (const int height : {12, 16, 22, 30, 64}) {
      SCOPED_TRACE(title.toStdString() + " on " + std::to_string(height));
      const int width = painter.naturalWidth(title, height);
      QImage bar(width + 40, height, QImage::Format_ARGB32_Premultiplied);
      bar.fill(Qt::transparent);
      QPainter onBar(&bar);
      painter.drawTitle(onBar, QRect(20, 0, width, height), title, {Qt::black, std::nullopt});
      onBar.end();
      const QRect part = drawnPart(bar);
      EXPECT_FALSE(part.isEmpty());
      EXPECT_TRUE(QRect(20, 0, width, height).contains(part));
      EXPECT_LE(std::abs(part.center().x() - bar.rect().center().x()), 2);
    }
  }
}

TEST_F(ItemPainterTest, EveryTitleHasASquareOfItsOwn) {
  const QStringList titles = {"Maghrib 1h 5m", "Maghrib 1h 6m", "Isha 45m", "6 Apr",
                              "7 Apr",         kCalendar,       kMosque};
  for (const int side : {16, 22, 48}) {
    QList<QImage> squares;
    for (const auto& title : titles) {
      SCOPED_TRACE(title.toStdString() + " of " + std::to_string(side));
      const auto square = painter.compactPicture(title, side);
      EXPECT_EQ(square.size(), QSize(side, side));
      EXPECT_GT(drawnPart(square).height(), side / 2);
      EXPECT_FALSE(squares.contains(square));
      squares.append(square);
    }
  }
}

TEST_F(ItemPainterTest, SmallLettersFitAndKeepTheirPixelsOnEveryScreen) {
  for (const QString title : {"Fajr", "Dhuhr", "Asr", "Maghrib", "Isha"}) {
    for (const QString left : {" 48m", " 59m", " 3h 26m", " 10h 7m"}) {
      SCOPED_TRACE((title + left).toStdString());
      const auto [form, upper, lower, minutes] = CompactTitle::of(title + left);
      EXPECT_LE(PixelLetters::light().width(upper), 16);
      EXPECT_LE(PixelLetters::light().width(lower + minutes), 16);
      EXPECT_LE(PixelLetters::bold().width(upper), 22);
      EXPECT_LE(PixelLetters::bold().width(lower) + PixelLetters::raised().width(minutes), 21);
      EXPECT_TRUE(PixelLetters::light().has(upper + lower + minutes + "now"));
      EXPECT_TRUE(PixelLetters::bold().has(upper + lower + "now"));
    }
  }
  QImage dense(60, 40, QImage::Format_ARGB32_Premultiplied);
  dense.setDevicePixelRatio(1.5);
  dense.fill(Qt::transparent);
  QPainter onDense(&dense);
  painter.drawCompact(onDense, QRect(3, 3, 15, 15), "Asr 45m");
  onDense.end();
  EXPECT_EQ(dense.copy(4, 4, 22, 22).convertToFormat(QImage::Format_ARGB32),
            painter.compactPicture("Asr 45m", 22).convertToFormat(QImage::Format_ARGB32));
}

TEST_F(ItemPainterTest, AWidePictureIsAsWideAsItsTextAndTheSameAtEveryScale) {
  const QSize one = painter.widePicture("Maghrib 1h 5m", 1).size();
  EXPECT_GT(one.width(), painter.widePicture("Asr 5m", 1).width());
  EXPECT_EQ(painter.widePicture("Maghrib 1h 5m", 2).size(), 2 * one);
  EXPECT_EQ(painter.widePicture(kCalendar, 2).size(), QSize(2 * one.height(), 2 * one.height()));

  const auto letters = [](const QImage& picture) {
    int count = 0;
    for (int x = 0; x < picture.width(); ++x)
      for (int y = 0; y < picture.height(); ++y)
        if (lightness(picture.pixelColor(x, y)) > 180) ++count;
    return count;
  };
  const int atOne = letters(painter.widePicture("Maghrib 1h 5m", 1));
  const int atTwo = letters(painter.widePicture("Maghrib 1h 5m", 2));
  EXPECT_GT(atTwo, 3 * atOne) << "letters must grow with the picture";
}

TEST(GlyphPictures, HasOwnPicturesForMachinesWithoutEmoji) {
  const GlyphPictures pictures(HILALOR_ITEM_PICTURES);
  for (const auto glyph : {TitleParts::Glyph::calendar, TitleParts::Glyph::mosque}) {
    const QImage picture(pictures.file(glyph));
    EXPECT_GE(picture.width(), 100);
    EXPECT_EQ(picture.width(), picture.height());
    EXPECT_GT(drawnPart(picture).height(), 100);
  }
  const QImage blank(pictures.file(TitleParts::Glyph::none));
  ASSERT_FALSE(blank.isNull());
  EXPECT_TRUE(drawnPart(blank).isEmpty());
}

TEST(Ink, StandsOutFromItsGround) {
  for (int grey = 0; grey <= 255; ++grey) {
    const QColor ground(grey, grey, grey);
    EXPECT_GT(std::abs(lightness(Ink::on(ground).text) - lightness(ground)), 100) << grey;
  }
}

TEST(ItemMenu, MarksTheLetterThatChoosesALine) {
  EXPECT_EQ(ItemMenu::marked({"Quit Hilalor", 'q', {}}, u'&'), "&Quit Hilalor");
  EXPECT_EQ(ItemMenu::marked({"Hilalor", 'q', {}}, u'&'), "Hilalor");
  EXPECT_EQ(ItemMenu::marked({"Quit Hilalor", '\0', {}}, u'&'), "Quit Hilalor");
}

}  // namespace
}  // namespace Hilalor::Desktop
