#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>
#include <QTest>
#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "screens/settings/SettingsView.hpp"
#include "tests/fakes/Parts.hpp"
#include "tests/fakes/ScreenContexts.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "ui/Text.hpp"

namespace Hilalor::Screens {

/// The settings window's screen over fakes, shown without a display, in light.
class SettingsTest : public testing::Test {
 protected:
  void show(Updater* updater = nullptr, const QPixmap& icon = {}) {
    view = std::make_unique<SettingsView>(settingsContext(desktop), updater, icon);
    view->setPalette(windowPalette(Ui::ColorScheme::light));
    view->resize(380, 520);
    view->show();
    settle();
  }

  /// Lets what was asked for happen: answers, redraws, layouts.
  void settle() {
    constexpr int kPasses = 8;
    for (int pass = 0; pass < kPasses; ++pass) {
      desktop.loop.runPosted();
      QApplication::processEvents();
    }
  }

  /// Everything that can be shown or not.
  void showEveryRow() {
    settings().prayerNotificationsEnabled = true;
    settings().beepSoundEnabled = true;
    settings().beepLoopEnabled = true;
    settings().athanEnabled = true;
  }

  [[nodiscard]] AppSettings& settings() { return desktop.settings(); }

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

  /// The shown button that a screen reader calls that; null for none.
  [[nodiscard]] Ui::Button* button(const QString& name) const {
    return find<Ui::Button>(
        [&](const Ui::Button& found) { return found.accessibleName() == name; });
  }

  [[nodiscard]] bool showsText(const QString& text) const {
    return find<Ui::Text>([&](const Ui::Text& found) { return found.text() == text; }) != nullptr;
  }

  /// The shown preview buttons from top to bottom: "Stop" or "Preview".
  [[nodiscard]] std::vector<Ui::Button*> previews() const {
    std::vector<Ui::Button*> found;
    for (Ui::Button* one : parts<Ui::Button>(*view))
      if (one->isVisible() && (one->toolTip() == "Stop" || one->toolTip() == "Preview"))
        found.push_back(one);
    return found;
  }

  void click(QWidget* widget) {
    if (widget == nullptr) throw std::out_of_range("nothing to click on");
    // At its beginning: rows may have nothing in their middle.
    QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(8, widget->height() / 2));
  }

  /// Opens the picker that shows that text.
  [[nodiscard]] QMenu* openMenu(const QString& shown) {
    click(button(shown));
    QMenu* open = nullptr;
    for (QMenu* menu : view->findChildren<QMenu*>())
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

  [[nodiscard]] QRect frame(const QWidget& part) const {
    return {part.mapTo(view.get(), QPoint(0, 0)), part.size()};
  }

  SystemTimeZone zone{"Asia/Riyadh"};
  FakePlatform desktop{{1771754400}};
  std::unique_ptr<SettingsView> view;

 private:
  template <typename Part, typename Condition>
  [[nodiscard]] Part* find(Condition condition) const {
    for (Part* found : parts<Part>(*view))
      if (found->isVisible() && condition(*found)) return found;
    return nullptr;
  }
};

}  // namespace Hilalor::Screens
