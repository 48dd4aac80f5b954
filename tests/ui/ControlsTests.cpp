#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <QToolTip>

#include "tests/fakes/Parts.hpp"
#include "ui/Picker.hpp"
#include "ui/PopUpStyle.hpp"
#include "ui/Stack.hpp"
#include "ui/Stepper.hpp"
#include "ui/TextEditor.hpp"
#include "ui/Toggle.hpp"

namespace Hilalor::Ui {
namespace {

TEST(Button, ActsOnAClickAndLeavesTheKeyboardWhereItIs) {
  int presses = 0;
  Button button({.icon = Icon::power}, [&] { ++presses; });
  button.setHelp(QStringLiteral("Quit"));
  button.show();
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(presses, 1);
  EXPECT_FALSE(button.hasFocus());
  EXPECT_EQ(button.toolTip(), QStringLiteral("Quit"));
  EXPECT_EQ(button.accessibleName(), QStringLiteral("Quit"));
}

TEST(Button, AnswersAroundItselfWhereNothingElseDoes) {
  int presses = 0;
  QWidget window;
  window.resize(100, 100);
  auto* small = framed(new Button({.text = QStringLiteral("<")}, [&] { ++presses; }), 12, 16);
  small->setParent(&window);
  small->move(40, 40);
  int changes = 0;
  auto* other = framed(new Toggle(ToggleLook::checkbox, {}, [&](bool) { ++changes; }), 16, 16);
  other->setParent(&window);
  other->move(52, 40);
  window.show();
  for (const auto& [place, answers] : {std::pair(QPoint(34, 36), true),
                                       {QPoint(46, 60), true},
                                       {QPoint(30, 48), false},
                                       {QPoint(54, 48), false}}) {
    QWidget* under = window.childAt(place);
    QWidget& target = under == nullptr ? window : *under;
    presses = 0;
    QTest::mouseClick(&target, Qt::LeftButton, {}, target.mapFrom(&window, place));
    EXPECT_EQ(presses, answers ? 1 : 0) << place.x() << ", " << place.y();
  }
  changes = 0;
  QTest::mousePress(&window, Qt::LeftButton, {}, {34, 36});  // Of which nobody hears the end.
  QTest::mouseClick(window.childAt(60, 48), Qt::LeftButton);
  EXPECT_EQ(changes, 1);
}

TEST(Button, IsHiddenOnlyWhenItHasFaded) {
  Button button({.text = QStringLiteral("Stop")}, [] {});
  button.show();
  button.appear(false, std::chrono::milliseconds(20));
  EXPECT_FALSE(button.isHidden());
  EXPECT_TRUE(QTest::qWaitFor([&] { return button.isHidden(); }, 1000));
  button.appear(true, std::chrono::milliseconds(20));
  EXPECT_FALSE(button.isHidden());
}

TEST(Toggle, ShowsWhatItIsToldAndAsksForTheRest) {
  for (const auto look : {ToggleLook::switched, ToggleLook::checkbox, ToggleLook::radio}) {
    std::vector<bool> asked;
    Toggle toggle(look, QStringLiteral("Show calendar"), [&](bool on) { asked.push_back(on); });
    toggle.show();
    QTest::mouseClick(&toggle, Qt::LeftButton);
    EXPECT_FALSE(toggle.isOn());
    toggle.setOn(true);
    const auto role = QAccessible::queryAccessibleInterface(&toggle)->role();
    EXPECT_EQ(role == QAccessible::RadioButton, look == ToggleLook::radio);
    QTest::mouseClick(&toggle, Qt::LeftButton);
    EXPECT_TRUE(toggle.isOn());
    EXPECT_EQ(asked, (std::vector{true, false}));
    toggle.resize(toggle.width() + 100, toggle.height());
    QTest::mouseClick(&toggle, Qt::LeftButton, {}, QPoint(toggle.width() - 5, 5));
    EXPECT_EQ(asked.size() == 3, look == ToggleLook::switched) << "the end of the row";
  }
}

TEST(Stepper, StaysInItsRange) {
  constexpr StepperRange kRange{.lowest = 5, .highest = 120, .step = 5};
  EXPECT_EQ(kRange.next(10, 1), 15);
  EXPECT_EQ(kRange.next(10, -1), 5);
  EXPECT_EQ(kRange.next(5, -1), 5);
  EXPECT_EQ(kRange.next(120, 1), 120);
  EXPECT_EQ(kRange.next(118, 1), 120);

  std::vector<int> changes;
  Stepper stepper(
      kRange, [](int value) { return QString::number(value); },
      [&](int value) { changes.push_back(value); });
  stepper.setValue(120);
  const auto buttons = parts<Button>(stepper);
  EXPECT_FALSE(buttons[1]->isEnabled());
  QTest::mouseClick(buttons[0], Qt::LeftButton);
  EXPECT_EQ(changes, std::vector({115}));
}

TEST(PopUpStyle, PopUpsTakeTheColoursOfTheirWindowAndTickTheirChoiceAlone) {
  QApplication::setStyle(new PopUpStyle({[] { return true; }, [] { return true; }}));
  const QColor ground = Colors::of(ColorScheme::dark).windowBackground;
  QWidget window;
  window.setPalette(windowPalette(ColorScheme::dark));
  QMenu menu(&window);
  for (const bool isChosen : {true, false}) {
    QAction* option = menu.addAction(QString());
    option->setCheckable(true);
    option->setChecked(isChosen);
  }
  menu.ensurePolished();
  menu.resize(menu.sizeHint());
  const QImage picture = menu.grab().toImage();
  const auto isBare = [&](QAction* option) {
    for (const QRect rect = menu.actionGeometry(option); const int x : {10, 13, 16, 19, 22})
      for (int y = rect.top(); y < rect.bottom(); ++y)
        if (picture.pixelColor(rect.left() + x, y) != ground) return false;
    return true;
  };
  EXPECT_FALSE(isBare(menu.actions()[0]));
  EXPECT_TRUE(isBare(menu.actions()[1]));

  QToolTip::showText({}, QStringLiteral("Settings"), &window);
  const auto* tip = window.findChild<QLabel*>();
  ASSERT_NE(tip, nullptr);
  EXPECT_EQ(tip->palette().color(QPalette::Window), ground);
  QToolTip::hideText();
  QApplication::setStyle(new QProxyStyle);
}

TEST(TextEditor, GivesBackWhatWasTypedToTheCharacter) {
  TextEditor editor(13);
  QStringList edits;
  editor.onEdit = [&](const QString& text) { edits.append(text); };
  const QString text = QStringLiteral("  two\u00A0words\n\nand a line ");
  editor.setText(text);
  EXPECT_EQ(editor.text(), text);
  EXPECT_TRUE(edits.isEmpty());
  QTest::keyClicks(editor.focusProxy(), QStringLiteral("!"));
  QTest::keyClick(editor.focusProxy(), Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(edits, (QStringList{text + u'!', text + QStringLiteral("!\n")}));
}

}  // namespace
}  // namespace Hilalor::Ui
