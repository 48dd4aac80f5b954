#include <gtest/gtest.h>

#include <QAccessible>
#include <QMenu>
#include <QTextDocument>

#include "desktop/item/ItemMenu.hpp"
#include "tests/fakes/Parts.hpp"
#include "ui/Button.hpp"
#include "ui/Picker.hpp"
#include "ui/Text.hpp"
#include "ui/Toggle.hpp"

namespace Hilalor::Desktop {

using namespace Ui;

namespace {

const QString kName = QStringLiteral("<b>A</b> & _B");

// What is seen of a text where Qt decides by its looks whether it is HTML.
QString seen(const QString& text) {
  if (!Qt::mightBeRichText(text)) return text;
  QTextDocument document;
  document.setHtml(text);
  return document.toPlainText();
}

// What is seen of a menu's line: a sign marks the next letter, and two are one.
QString seen(QString line, QChar sign) {
  for (qsizetype place = 0; (place = line.indexOf(sign, place)) >= 0; ++place)
    line.remove(place, 1);
  return line;
}

QString spoken(QWidget& widget, QAccessible::Text what) {
  return QAccessible::queryAccessibleInterface(&widget)->text(what);
}

QString inOwnMenu() {
  GreenPickerButton picker([] { return PickerMenu{{kName}, 0}; }, [](int) {});
  picker.show();
  part<Button>(picker)->click();
  return seen(part<QMenu>(picker)->actions().front()->text(), u'&');
}

TEST(PlainNames, AreShownAndSpokenAsTheyAre) {
  Text text({}, kName);
  Button button({}, [] {});
  button.setHelp(kName);
  Toggle toggle(ToggleLook::radio, kName, [](bool) {});
  const MenuItem line{kName.toStdString(), '\0', {}};
  const struct {
    const char* where;
    QString name;
  } cases[] = {
      {"text", text.textFormat() == Qt::PlainText ? text.text() : seen(text.text())},
      {"spoken text", spoken(text, QAccessible::Name)},
      {"tool tip", seen(button.toolTip())},
      {"spoken button", spoken(button, QAccessible::Name)},
      {"spoken tool tip", spoken(button, QAccessible::Description)},
      {"spoken toggle", spoken(toggle, QAccessible::Name)},
      {"picker's menu", inOwnMenu()},
      {"item's menu", seen(ItemMenu::marked(line, u'&'), u'&')},
      {"item's menu in the bar", seen(ItemMenu::marked(line, u'_'), u'_')},
  };
  for (const auto& [where, name] : cases)
    EXPECT_EQ(name.toStdString(), kName.toStdString()) << where;
}

TEST(Controls, HaveTheirRolesAndStatesForScreenReaders) {
  Text text({}, kName);
  Button button({}, [] {});
  Toggle toggle(ToggleLook::switched, kName, [](bool) {});
  SegmentedPicker picker({"one", "two"}, [](int) {});
  picker.setCurrent(1);
  const auto segments = picker.findChildren<QAbstractButton*>();
  const auto of = [](QWidget& part) { return QAccessible::queryAccessibleInterface(&part); };
  EXPECT_EQ(of(text)->role(), QAccessible::StaticText);
  EXPECT_EQ(of(button)->role(), QAccessible::Button);
  EXPECT_EQ(of(toggle)->role(), QAccessible::CheckBox);
  EXPECT_EQ(of(*segments[1])->text(QAccessible::Name), "two");
  EXPECT_TRUE(of(*segments[1])->state().checked);
  EXPECT_FALSE(of(toggle)->state().checked);
  toggle.setOn(true);
  EXPECT_TRUE(of(toggle)->state().checked);
}

}  // namespace
}  // namespace Hilalor::Desktop
