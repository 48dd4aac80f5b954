#include <gtest/gtest.h>

#include <QApplication>
#include <QScreen>
#include <QTest>

#include "program/ScreenSurfaces.hpp"
#include "screens/settings/SettingsView.hpp"
#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/Parts.hpp"
#include "ui/Containers.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

class SettingsWindowTest : public testing::Test {
 protected:
  ~SettingsWindowTest() override {
    // Its frame goes with the loop's next pass, and what it shows is the fixture's.
    window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  void open() {
    window = surfaces.makeSettingsWindow(nullptr, [this] {
      ++timesClosed;
      window.reset();
    });
    window->makeKeyAndOrderFront();
    QApplication::processEvents();
  }

  [[nodiscard]] static QWidget* frame() {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->isVisible() && widget->windowTitle() == "Hilalor Settings") return widget;
    return nullptr;
  }

  [[nodiscard]] static QColor ground() { return frame()->grab().toImage().pixelColor(4, 4); }

  FakePlatform desktop;
  Program::SharedObjects objects{desktop.platform};
  Program::ScreenSurfaces surfaces{desktop.platform, objects};
  std::unique_ptr<Window> window;
  int timesClosed = 0;
};

TEST_F(SettingsWindowTest, IsOfItsSizeInTheMiddleOfTheScreenAndCannotBeMinimised) {
  open();
  ASSERT_TRUE(frame());
  EXPECT_EQ(frame()->size(), QSize(380, 520));
  EXPECT_EQ(frame()->minimumSize(), QSize(380, 400));
  const QRect screen = frame()->screen()->availableGeometry();
  EXPECT_NEAR(frame()->geometry().center().x(), screen.center().x(), 2);
  EXPECT_NEAR(frame()->geometry().center().y(), screen.center().y(), 2);
  const Qt::WindowFlags flags = frame()->windowFlags();
  EXPECT_FALSE(flags.testFlag(Qt::WindowMinimizeButtonHint));
  EXPECT_FALSE(flags.testFlag(Qt::WindowMaximizeButtonHint));
  EXPECT_TRUE(flags.testFlag(Qt::WindowCloseButtonHint));
  EXPECT_TRUE(flags.testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(SettingsWindowTest, ChangesBetweenLightAndDarkWhileItIsOpen) {
  open();
  window->setAppearance(Appearance::dark);
  EXPECT_EQ(ground(), Ui::Colors::of(Ui::ColorScheme::dark).windowBackground);
  window->setAppearance(Appearance::light);
  EXPECT_EQ(ground(), Ui::Colors::of(Ui::ColorScheme::light).windowBackground);
}

TEST_F(SettingsWindowTest, ThePanelStaysWhereTheWindowCanOpenBesideItAndElseGoes) {
  const QRect screen = QApplication::primaryScreen()->availableGeometry();
  ASSERT_EQ(screen, QRect(0, 0, 800, 800));
  struct Case {
    double panel;  // Its left edge; its width is 260.
    int window;
    bool stays;
  };
  for (const auto& [left, expected, stays] : {Case{540, 540 - 12 - 380, true},
                                              {0, 260 + 12, true},
                                              {80, 340 + 12, true},
                                              {300, 210, false}}) {
    SCOPED_TRACE(left);
    bool isGone = false;
    const auto panel = surfaces.makeCalendarPanel(
        {.onSizeChange = {}, .onOpenSettings = {}, .onDismiss = [&](Dismissal) { isGone = true; }},
        {});
    panel->setFrame({{left, 0}, {260, 590}});
    panel->orderFront(KeyboardAtOpening::leftWhereItIs);
    open();
    EXPECT_NEAR(frame()->geometry().x(), expected, 2);
    EXPECT_EQ(!isGone, stays);
    frame()->move(static_cast<int>(left), 100);
    QApplication::processEvents();
    EXPECT_TRUE(isGone) << "it was moved over the panel";
    window.reset();
  }
}

TEST_F(SettingsWindowTest, AnotherOneBeginsAfresh) {
  open();
  part<ScrollColumn>(*frame())->verticalScrollBar()->setValue(200);
  frame()->close();
  QApplication::processEvents();
  EXPECT_EQ(timesClosed, 1);
  EXPECT_FALSE(frame());
  open();
  EXPECT_EQ(part<ScrollColumn>(*frame())->verticalScrollBar()->value(), 0);
}

}  // namespace
}  // namespace Hilalor::Screens
