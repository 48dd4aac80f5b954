#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QTest>
#include <memory>

#include "screens/panel/CalendarView.hpp"
#include "screens/panel/NoteEditorView.hpp"
#include "screens/panel/PrayerTimesView.hpp"
#include "tests/fakes/Parts.hpp"
#include "tests/fakes/ScreenContexts.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "ui/Containers.hpp"
#include "ui/DoubleClickable.hpp"

namespace Hilalor::Screens {

// A Sunday in Riyadh at 13:00: 22 February 2026, 5 Ramadan 1447, a national day.
inline constexpr Date kNow{1771754400};

/// A panel over fakes, shown without a display, in light.
class ScreenTest : public testing::Test {
 protected:
  void show() {
    panel = std::make_unique<CalendarView>(
        panelContext(desktop), [this](Size size) { sizes.push_back(size); },
        [this] { ++settingsOpened; });
    panel->setPalette(windowPalette(Ui::ColorScheme::light));
    panel->setAutoFillBackground(true);
    panel->resize(panel->sizeHint());
    panel->show();
    settle();
  }

  /// Lets what was asked for happen: redraws, layouts, sizes.
  static void settle() {
    // A change of size goes up through the layouts, one pass a level.
    constexpr int kPasses = 10;
    for (int pass = 0; pass < kPasses; ++pass)
      QApplication::processEvents();
  }

  [[nodiscard]] QString titleText() const { return part<Ui::Text>(titleBlock())->text(); }

  [[nodiscard]] QWidget& titleBlock() const { return *part<Ui::DoubleClickable>(*panel); }

  /// The cell of that day of the shown month.
  [[nodiscard]] DayCellView& cell(int day) const {
    for (DayCellView* found : parts<DayCellView>(*panel))
      if (found->day() && found->day()->cell.day == day) return *found;
    throw std::out_of_range("no such day");
  }

  /// The button of that accessible name, if it is shown.
  [[nodiscard]] Ui::Button* button(const char* name) const {
    for (Ui::Button* found : parts<Ui::Button>(*panel))
      if (found->accessibleName() == name && found->isVisible()) return found;
    return nullptr;
  }

  /// Every text that is shown, from top to bottom and from left to right.
  [[nodiscard]] QStringList texts() const {
    auto shown = parts<Ui::Text>(*panel);
    std::erase_if(shown, [](const Ui::Text* text) { return !text->isVisible(); });
    std::ranges::stable_sort(shown, {}, [this](const Ui::Text* text) {
      const QPoint place = text->mapTo(panel.get(), QPoint(0, 0));
      return std::pair(place.y(), place.x());
    });
    QStringList texts;
    for (const Ui::Text* text : shown)
      texts.append(text->text());
    return texts;
  }

  static void click(QWidget& widget) {
    QTest::mouseClick(&widget, Qt::LeftButton);
    settle();
  }

  /// As a pointer does it: press, release, double click, release.
  static void doubleClick(QWidget& widget) {
    QTest::mouseClick(&widget, Qt::LeftButton);
    QTest::mouseDClick(&widget, Qt::LeftButton);
    settle();
  }

  [[nodiscard]] QRect frame(const QWidget& part) const {
    return {part.mapTo(panel.get(), QPoint(0, 0)), part.size()};
  }

  SystemTimeZone zone{"Asia/Riyadh"};
  FakePlatform desktop{kNow};
  std::unique_ptr<CalendarView> panel;
  std::vector<Size> sizes;
  int settingsOpened = 0;
};

}  // namespace Hilalor::Screens
