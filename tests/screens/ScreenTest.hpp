#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <algorithm>
#include <memory>
#include <stdexcept>

#include "tests/fakes/Parts.hpp"
#include "tests/fakes/ScreenContexts.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "ui/Button.hpp"
#include "ui/Colors.hpp"
#include "ui/Text.hpp"

namespace Hilalor::Screens {

// A Sunday in Riyadh at 13:00: 22 February 2026, 5 Ramadan 1447, a national day.
inline constexpr Date kNow{1771754400};

/// A screen over fakes, shown without a display, in light.
template <typename Screen>
class ScreenTest : public testing::Test {
 protected:
  /// Shows the screen, at its own size where none is given.
  void show(std::unique_ptr<Screen> shown, QSize size = {}) {
    screen = std::move(shown);
    screen->setPalette(windowPalette(Ui::ColorScheme::light));
    screen->setAutoFillBackground(true);
    screen->resize(size.isValid() ? size : screen->sizeHint());
    screen->show();
    settle();
  }

  /// Lets what was asked for happen: answers, redraws, layouts, sizes.
  void settle() {
    // A change of size goes up through the layouts, one pass a level.
    constexpr int kPasses = 10;
    for (int pass = 0; pass < kPasses; ++pass) {
      desktop.loop.runPosted();
      QApplication::processEvents();
    }
  }

  /// The first part that is shown and that the condition holds for; null for none.
  template <typename Part, typename Condition>
  [[nodiscard]] Part* find(Condition condition) const {
    for (Part* found : parts<Part>(*screen))
      if (found->isVisible() && condition(*found)) return found;
    return nullptr;
  }

  /// The shown button that a screen reader calls that; null for none.
  [[nodiscard]] Ui::Button* button(const QString& name) const {
    return find<Ui::Button>(
        [&](const Ui::Button& found) { return found.accessibleName() == name; });
  }

  [[nodiscard]] bool showsText(const QString& text) const {
    return find<Ui::Text>([&](const Ui::Text& found) { return found.text() == text; }) != nullptr;
  }

  /// Every text that is shown, from top to bottom and from left to right.
  [[nodiscard]] QStringList texts() const {
    auto shown = parts<Ui::Text>(*screen);
    std::erase_if(shown, [](const Ui::Text* text) { return !text->isVisible(); });
    std::ranges::stable_sort(shown, {}, [this](const Ui::Text* text) {
      const QPoint place = frame(*text).topLeft();
      return std::pair(place.y(), place.x());
    });
    QStringList texts;
    for (const Ui::Text* text : shown)
      texts.append(text->text());
    return texts;
  }

  void click(QWidget* widget) {
    if (widget == nullptr) throw std::out_of_range("nothing to click on");
    // At its beginning: rows may have nothing in their middle.
    QTest::mouseClick(widget, Qt::LeftButton, {},
                      QPoint(std::min(8, widget->width() / 2), widget->height() / 2));
    settle();
  }

  /// As a pointer does it: press, release, double click, release.
  void doubleClick(QWidget& widget) {
    QTest::mouseClick(&widget, Qt::LeftButton);
    QTest::mouseDClick(&widget, Qt::LeftButton);
    settle();
  }

  [[nodiscard]] QRect frame(const QWidget& part) const {
    return {part.mapTo(screen.get(), QPoint(0, 0)), part.size()};
  }

  [[nodiscard]] AppSettings& settings() { return desktop.settings(); }

  SystemTimeZone zone{"Asia/Riyadh"};
  FakePlatform desktop{kNow};
  std::unique_ptr<Screen> screen;
};

}  // namespace Hilalor::Screens
