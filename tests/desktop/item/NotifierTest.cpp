#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop/item/NotifierMenu.hpp"
#include "desktop/item/NotifierTraits.hpp"
#include "desktop/item/NotifierTypes.hpp"

namespace Hilalor::Desktop {
namespace {

using testing::ElementsAre;

TEST(NotifierTraits, KnowsBarsByTheirProcess) {
  EXPECT_EQ(NotifierTraits::of("waybar").drawing, NotifierDrawing::wide);
  // The kernel cuts the names of processes.
  EXPECT_EQ(NotifierTraits::of("ayatana-indicat").drawing, NotifierDrawing::label);
  EXPECT_EQ(NotifierTraits::of("lxqt-panel"), (NotifierTraits{NotifierDrawing::square, true}));
  EXPECT_EQ(NotifierTraits::of("some-new-bar"), NotifierTraits());
  EXPECT_EQ(NotifierTraits::of(""), NotifierTraits());
}

TEST(NotifierPixmap, IsArgbInNetworkByteOrderWithPlainColours) {
  QImage image(2, 1, QImage::Format_ARGB32_Premultiplied);
  image.setPixelColor(0, 0, QColor(0x11, 0x22, 0x33, 0xFF));
  image.setPixelColor(1, 0, QColor(0xFF, 0xFF, 0xFF, 0x80));
  const auto pixmap = NotifierPixmap::of(image);
  EXPECT_EQ(pixmap.width, 2);
  EXPECT_EQ(pixmap.height, 1);
  EXPECT_EQ(pixmap.bytes.toHex(), "ff11223380ffffff");
}

class NotifierMenuTest : public testing::Test {
 protected:
  const Menu menu{{"Quit Hilalor", 'q', [this] { told.emplace_back("quit"); }}, {}};
  NotifierMenu notifierMenu{menu, [this] { told.emplace_back("about to show"); }};
  std::vector<std::string> told;
};

TEST_F(NotifierMenuTest, LaysOutItsLinesUnderTheRoot) {
  MenuNode root;
  notifierMenu.GetLayout(0, -1, {}, root);
  ASSERT_EQ(root.children.size(), 2);
  const auto line = root.children.front().variant().value<MenuNode>();
  EXPECT_EQ(line.properties.value("label").toString(), "_Quit Hilalor");
  EXPECT_EQ(notifierMenu.GetProperty(2, "type").variant().toString(), "separator");

  MenuNode unknown;
  notifierMenu.GetLayout(7, -1, {}, unknown);
  EXPECT_TRUE(unknown.properties.isEmpty());
  EXPECT_EQ(notifierMenu.GetGroupProperties({0, 1, 7}, {}).size(), 2);
}

TEST_F(NotifierMenuTest, AClickOnALineRunsIt) {
  notifierMenu.Event(1, "hovered", {}, 0);
  notifierMenu.Event(0, "clicked", {}, 0);
  notifierMenu.Event(-1, "clicked", {}, 0);
  notifierMenu.Event(2, "clicked", {}, 0);
  EXPECT_THAT(notifierMenu.EventGroup({{3, "clicked", {}, 0}}), ElementsAre(3));
  EXPECT_TRUE(told.empty());

  notifierMenu.Event(1, "clicked", {}, 0);
  notifierMenu.EventGroup({{1, "clicked", {}, 0}});
  EXPECT_THAT(told, ElementsAre("quit", "quit"));
}

TEST_F(NotifierMenuTest, TellsOfEveryOpeningOnceWhateverTheBarSays) {
  QList<int> unknown;
  notifierMenu.AboutToShowGroup({0, 9}, unknown);
  notifierMenu.AboutToShowGroup({0}, unknown);
  EXPECT_EQ(told.size(), 2U) << "bars that announce only";
  EXPECT_THAT(unknown, ElementsAre(9));

  notifierMenu.Event(0, "opened", {}, 0);
  notifierMenu.Event(0, "closed", {}, 0);
  EXPECT_EQ(told.size(), 2U) << "bars that announce, then open";

  notifierMenu.Event(0, "opened", {}, 0);
  EXPECT_EQ(told.size(), 3U) << "bars that only open";
}

}  // namespace
}  // namespace Hilalor::Desktop
