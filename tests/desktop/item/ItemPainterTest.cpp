#include "desktop/item/ItemPainter.hpp"

#include <gtest/gtest.h>

#include <QPainter>
#include <cmath>

#include "desktop/item/ItemMenu.hpp"
#include "desktop/item/PixelLetters.hpp"
#include "rules/bar/MenuBarTitle.hpp"

namespace Hilalor::Desktop {
namespace {

using Adhan::Prayer;

const ItemTitle kCalendar{TitleGlyph::calendar, {}, {.form = CompactTitle::Form::glyph}};
const ItemTitle kMosque{TitleGlyph::mosque, {}, {.form = CompactTitle::Form::glyph}};
const ItemTitle kApril6 = dateTitle(PrimaryCalendar::gregorian, Moment::at({1775476800}));

ItemTitle minutesTo(Prayer prayer, int minutes) {
  return countdown({prayer, Date{60.0 * minutes}}, Date{0});
}

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
  for (const auto& title :
       {minutesTo(Prayer::maghrib, 765), kApril6, kCalendar, athanTitle("Maghrib Athan")}) {
    for (const int height : {12, 16, 22, 30, 64}) {
      SCOPED_TRACE(title.whole() + " on " + std::to_string(height));
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
  const ItemTitle titles[] = {minutesTo(Prayer::maghrib, 65),
                              minutesTo(Prayer::maghrib, 66),
                              minutesTo(Prayer::isha, 45),
                              athanTitle("Isha Athan"),
                              kApril6,
                              dateTitle(PrimaryCalendar::hijri, Moment::at({1775476800})),
                              kCalendar,
                              kMosque};
  for (const int side : {16, 22, 48}) {
    QList<QImage> squares;
    for (const auto& title : titles) {
      SCOPED_TRACE(title.whole() + " of " + std::to_string(side));
      const auto square = painter.compactPicture(title, side);
      EXPECT_EQ(square.size(), QSize(side, side));
      EXPECT_GT(drawnPart(square).height(), side / 2);
      EXPECT_FALSE(squares.contains(square));
      squares.append(square);
    }
  }
}

TEST_F(ItemPainterTest, SmallLettersFitAndKeepTheirPixelsOnEveryScreen) {
  for (const auto prayer :
       {Prayer::fajr, Prayer::dhuhr, Prayer::asr, Prayer::maghrib, Prayer::isha}) {
    for (const int left : {48, 59, 206, 607}) {
      const auto title = minutesTo(prayer, left);
      SCOPED_TRACE(title.whole());
      const auto upper = QString::fromStdString(title.compact.upper);
      const auto lower = QString::fromStdString(title.compact.lower);
      const auto minutes = QString::fromStdString(title.compact.minutes);
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
  painter.drawCompact(onDense, QRect(3, 3, 15, 15), minutesTo(Prayer::asr, 45));
  onDense.end();
  EXPECT_EQ(dense.copy(4, 4, 22, 22).convertToFormat(QImage::Format_ARGB32),
            painter.compactPicture(minutesTo(Prayer::asr, 45), 22)
                .convertToFormat(QImage::Format_ARGB32));
}

TEST_F(ItemPainterTest, AWidePictureIsAsWideAsItsTextAndTheSameAtEveryScale) {
  const auto maghrib = minutesTo(Prayer::maghrib, 65);
  const QSize one = painter.widePicture(maghrib, 1).size();
  EXPECT_GT(one.width(), painter.widePicture(minutesTo(Prayer::asr, 5), 1).width());
  EXPECT_EQ(painter.widePicture(maghrib, 2).size(), 2 * one);
  EXPECT_EQ(painter.widePicture(kCalendar, 2).size(), QSize(2 * one.height(), 2 * one.height()));

  const auto letters = [](const QImage& picture) {
    int count = 0;
    for (int x = 0; x < picture.width(); ++x)
      for (int y = 0; y < picture.height(); ++y)
        if (lightness(picture.pixelColor(x, y)) > 180) ++count;
    return count;
  };
  const int atOne = letters(painter.widePicture(maghrib, 1));
  const int atTwo = letters(painter.widePicture(maghrib, 2));
  EXPECT_GT(atTwo, 3 * atOne) << "letters must grow with the picture";
}

TEST(GlyphPictures, HasOwnPicturesForMachinesWithoutEmoji) {
  const GlyphPictures pictures(HILALOR_ITEM_PICTURES);
  for (const auto glyph : {TitleGlyph::calendar, TitleGlyph::mosque}) {
    const QImage picture(pictures.file(glyph));
    EXPECT_GE(picture.width(), 100);
    EXPECT_EQ(picture.width(), picture.height());
    EXPECT_GT(drawnPart(picture).height(), 100);
  }
  const QImage blank(pictures.file(TitleGlyph::none));
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
