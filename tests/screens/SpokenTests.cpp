#include <QAccessible>

#include "screens/map/MapPickerView.hpp"
#include "tests/screens/panel/PanelTest.hpp"
#include "tests/screens/settings/SettingsTest.hpp"

namespace Hilalor::Screens {
namespace {

using ::testing::Contains;
using ::testing::StartsWith;

QAccessibleInterface* spoken(QObject* object) {
  return QAccessible::queryAccessibleInterface(object);
}

/// What a screen reader comes past below there, each with its role: "13 List item". What the
/// keyboard can reach is to have both.
std::vector<std::string> heard(QAccessibleInterface* from) {
  std::vector<std::string> all;
  for (int index = 0; index < from->childCount(); ++index) {
    QAccessibleInterface* part = from->child(index);
    const QAccessible::State state = part->state();
    if (state.invisible) continue;
    EXPECT_EQ(from->indexOfChild(part), index);
    const std::string name = part->text(QAccessible::Name).toStdString();
    if (state.focusable) {
      EXPECT_FALSE(name.empty()) << part->object()->metaObject()->className();
      EXPECT_NE(part->role(), QAccessible::Client) << name;
    }
    if (!name.empty()) all.push_back(std::to_string(part->role()) + ' ' + name);
    std::ranges::copy(heard(part), std::back_inserter(all));
  }
  return all;
}

std::string as(QAccessible::Role role, const char* name) {
  return std::to_string(role) + ' ' + name;
}

using SpokenPanel = PanelTest;

TEST_F(SpokenPanel, ReadsDaysPrayersAndWhatCanBePressed) {
  show();
  const auto lines = heard(spoken(screen.get()));
  for (const auto& expected :
       {as(QAccessible::List, "February 2026"),
        as(QAccessible::ListItem,
           "Sunday, 22 February 2026, 5 Ramadan 1447, today, Saudi Founding Day"),
        as(QAccessible::ListItem, "Asr 03:25 PM, the next prayer"),
        as(QAccessible::Button, "Next month"), as(QAccessible::Button, "Settings")})
    EXPECT_THAT(lines, Contains(expected));
  const auto days = std::ranges::count_if(lines, [](const std::string& line) {
    return line.starts_with(as(QAccessible::ListItem, "")) &&
           line.find(" February 2026, ") != std::string::npos;
  });
  EXPECT_EQ(days, 28) << "and no empty places";
}

TEST_F(SpokenPanel, ADayIsSelectedVisitedAndOpenedByActions) {
  show();
  auto* day = spoken(&cell(12))->actionInterface();
  day->doAction(day->pressAction());
  EXPECT_TRUE(spoken(&cell(12))->state().selected);
  day->doAction(day->setFocusAction());
  EXPECT_TRUE(cell(12).hasFocus());
  EXPECT_EQ(selection(), "12 February 2026");
  day->doAction("Open note");
  const auto* note = part<Ui::Popover>(*screen);
  ASSERT_NE(note, nullptr);
  EXPECT_THAT(heard(spoken(const_cast<Ui::Popover*>(note))),
              Contains(as(QAccessible::EditableText, "Note of February 12, 2026")));
}

TEST_F(SettingsTest, ReadsEveryControlAndSetsTheNumbers) {
  showEveryRow();
  show();
  const auto lines = heard(spoken(screen.get()));
  for (const auto& expected :
       {as(QAccessible::CheckBox, "Show calendar"),
        as(QAccessible::RadioButton, "Use system location"), as(QAccessible::Grouping, "Theme"),
        as(QAccessible::RadioButton, "Dark"), as(QAccessible::SpinBox, "Loop for"),
        as(QAccessible::Button, "Play Athan, Sh. Tolsar · Riyadh Grand Mosque"),
        as(QAccessible::Button, "Play Supplication"),
        as(QAccessible::ButtonMenu, "Umm Al-Qura, Makkah")})
    EXPECT_THAT(lines, Contains(expected));
  auto* fajr = find<Ui::Stepper>([](const auto& one) { return one.accessibleName() == "Fajr"; });
  auto* number = spoken(fajr)->valueInterface();
  for (const auto& [asked, given] : {std::pair(7, "7"), {90, "60"}}) {
    number->setCurrentValue(asked);
    settle();
    EXPECT_EQ(stored("fajrMinutes"), given);
  }
  QTest::keyClick(fajr, Qt::Key_Down);
  settle();
  EXPECT_EQ(number->currentValue(), 59);
}

class SpokenMap : public ScreenTest<MapPickerView> {};

TEST_F(SpokenMap, HasANameForAllThatTheKeyboardReaches) {
  show(std::make_unique<MapPickerView>(mapContext(desktop), std::nullopt, nullptr));
  EXPECT_THAT(heard(spoken(screen.get())), Contains(as(QAccessible::Graphic, "Map")));
}

}  // namespace
}  // namespace Hilalor::Screens
