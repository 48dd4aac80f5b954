#pragma once

#include <QMenu>
#include <string>
#include <variant>
#include <vector>

#include "screens/settings/SettingsView.hpp"
#include "tests/screens/ScreenTest.hpp"

namespace Hilalor::Screens {

class SettingsTest : public ScreenTest<SettingsView> {
 protected:
  void show(Updater* updater = nullptr, const QPixmap& icon = {}) {
    ScreenTest::show(std::make_unique<SettingsView>(settingsContext(desktop), updater, icon),
                     {380, 520});
  }

  /// Everything that can be shown or not.
  void showEveryRow() {
    settings().prayerNotificationsEnabled = true;
    settings().beepSoundEnabled = true;
    settings().beepLoopEnabled = true;
    settings().athanEnabled = true;
  }

  /// What the store holds under the key, as text.
  [[nodiscard]] std::string stored(const char* key) const {
    const auto value = desktop.defaults.value(key);
    if (!value) return "nothing";
    if (const auto* flag = std::get_if<bool>(&*value)) return *flag ? "true" : "false";
    if (const auto* number = std::get_if<std::int64_t>(&*value)) return std::to_string(*number);
    if (const auto* number = std::get_if<double>(&*value)) return std::to_string(*number);
    return std::get<std::string>(*value);
  }

  /// The shown switch, box or ring of that label; null for none.
  [[nodiscard]] Ui::Toggle* toggle(const QString& label) const {
    return find<Ui::Toggle>(
        [&](const Ui::Toggle& found) { return found.accessibleName() == label; });
  }

  /// The shown preview buttons from top to bottom: "Stop" or "Preview".
  [[nodiscard]] std::vector<Ui::Button*> previews() const {
    std::vector<Ui::Button*> found;
    for (Ui::Button* one : parts<Ui::Button>(*screen))
      if (one->isVisible() && (one->toolTip() == "Stop" || one->toolTip() == "Preview"))
        found.push_back(one);
    return found;
  }

  /// Opens the picker that shows that text.
  [[nodiscard]] QMenu* openMenu(const QString& shown) {
    click(button(shown));
    QMenu* open = nullptr;
    for (QMenu* menu : screen->findChildren<QMenu*>())
      if (menu->isVisible()) open = menu;
    if (open == nullptr) throw std::out_of_range("no menu");
    return open;
  }

  void choose(QMenu* menu, const QString& option) {
    for (QAction* action : menu->actions()) {
      if (action->text() != option) continue;
      QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
      return settle();
    }
    throw std::out_of_range("no such option");
  }
};

}  // namespace Hilalor::Screens
