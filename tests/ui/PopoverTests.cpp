#include <gtest/gtest.h>

#include <QMenu>
#include <QPointer>
#include <QScreen>
#include <QTest>

#include "ui/Popover.hpp"
#include "ui/Stack.hpp"

namespace Hilalor::Ui {
namespace {

class PopoverTest : public testing::Test {
 protected:
  PopoverTest() {
    window.resize(300, 300);
    anchor.setGeometry(130, 20, 32, 40);
    content->setFocusPolicy(Qt::StrongFocus);
    popover.onDismiss = [this] { ++dismissals; };
  }

  void openAt(QPoint place) {
    window.move(place);
    window.show();
    popover.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&popover));
  }

  QWidget window{nullptr, Qt::Tool | Qt::FramelessWindowHint};
  QWidget anchor{&window};
  QWidget* content = framed(new QWidget, 264, 100);
  Popover popover{anchor, content};
  int dismissals = 0;
};

TEST_F(PopoverTest, PointsAtItsAnchorFromBelow) {
  openAt({200, 100});
  EXPECT_EQ(popover.y(), 100 + 20 + 40);
  EXPECT_EQ(popover.x() + popover.width() / 2, 200 + 130 + 16);
  EXPECT_TRUE(content->hasFocus());
}

TEST_F(PopoverTest, StandsAboveWhereThereIsNoRoomBelow) {
  const QRect screen = window.screen()->availableGeometry();
  openAt({200, screen.bottom() - 100});
  EXPECT_EQ(popover.geometry().bottom() + 1, anchor.mapToGlobal(QPoint(0, 0)).y());
}

TEST_F(PopoverTest, StaysOnTheScreen) {
  openAt({-120, 100});
  EXPECT_EQ(popover.x(), 0);
}

TEST_F(PopoverTest, IsDarkWhereItsOwnerIs) {
  window.setPalette(QPalette(Qt::black));
  openAt({200, 100});
  EXPECT_EQ(content->palette().color(QPalette::Window), QColor(Qt::black));
  window.setPalette(QPalette(Qt::white));
  EXPECT_EQ(content->palette().color(QPalette::Window), QColor(Qt::white));
}

TEST_F(PopoverTest, StaysOpenWhileAMenuOfItsContentIsUsed) {
  openAt({200, 100});
  QMenu menu(content);
  QAction* paste = menu.addAction("Paste");
  menu.popup(content->mapToGlobal(QPoint(5, 5)));
  QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(paste).center());
  EXPECT_TRUE(popover.isVisible());
}

TEST_F(PopoverTest, ClosesByEscape) {
  openAt({200, 100});
  QTest::keyClick(content, Qt::Key_Escape);
  EXPECT_FALSE(popover.isVisible());
  EXPECT_EQ(dismissals, 1);
}

TEST_F(PopoverTest, ClosesByAPressElsewhereButNotByOneInside) {
  openAt({200, 100});
  QTest::mousePress(content, Qt::LeftButton);
  EXPECT_TRUE(popover.isVisible());
  QTest::mousePress(&anchor, Qt::LeftButton);
  EXPECT_FALSE(popover.isVisible());
  EXPECT_EQ(dismissals, 1);
}

TEST_F(PopoverTest, ClosesWithItsOwner) {
  openAt({200, 100});
  window.hide();
  EXPECT_FALSE(popover.isVisible());
  EXPECT_EQ(dismissals, 1);
}

}  // namespace
}  // namespace Hilalor::Ui
