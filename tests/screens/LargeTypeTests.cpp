#include "screens/map/MapPickerView.hpp"
#include "tests/screens/panel/PanelTest.hpp"
#include "tests/screens/settings/SettingsTest.hpp"

namespace Hilalor::Screens {
namespace {

/// With the desktop's font at 18 points, as it is from the first window on.
template <typename Screen>
class LargeType : public Screen {
 protected:
  LargeType() {
    QFont font = usual;
    font.setPointSizeF(18);
    QApplication::setFont(font);
  }
  ~LargeType() override { QApplication::setFont(usual); }

  /// Every text has the room that its lines take, and every button its label's.
  void expectNothingCut() const {
    for (const auto* text : parts<Ui::Text>(*this->screen)) {
      if (!text->isVisible()) continue;
      const QRect room(0, 0, text->width(), QWIDGETSIZE_MAX);
      const QRect taken = text->fontMetrics().boundingRect(room, Qt::TextWordWrap, text->text());
      EXPECT_LE(taken.width(), text->width()) << text->text().toStdString();
      EXPECT_LE(taken.height(), text->height()) << text->text().toStdString();
    }
    for (const auto* button : parts<QAbstractButton>(*this->screen)) {
      // Icons stand in frames of their own.
      if (!button->isVisible() || button->minimumSize() == button->maximumSize()) continue;
      const int needed = button->hasHeightForWidth() ? button->heightForWidth(button->width())
                                                     : button->sizeHint().height();
      EXPECT_GE(button->height(), needed) << button->accessibleName().toStdString();
      EXPECT_GE(button->width(), button->hasHeightForWidth() ? 0 : button->sizeHint().width());
    }
  }

  const QFont usual = QApplication::font();
};

using LargePanel = LargeType<PanelTest>;
using LargeSettings = LargeType<SettingsTest>;
using LargeMap = LargeType<ScreenTest<MapPickerView>>;

TEST_F(LargePanel, GrowsWithTheType) {
  show();
  expectNothingCut();
  EXPECT_EQ(cell(1).size(), QSize(52, 65));
  EXPECT_EQ(frame(cell(28)).right() + 1, screen->width() - 12);
  cell(12).setFocus();
  QTest::keyClick(&cell(12), Qt::Key_Return);
  settle();
  expectNothingCut();
}

TEST_F(LargeSettings, GrowWithTheType) {
  showEveryRow();
  ScreenTest::show(std::make_unique<SettingsView>(settingsContext(desktop), nullptr, QPixmap()),
                   {622, 2600});
  expectNothingCut();
}

TEST_F(LargeMap, KeepsItsSizeAndCutsNothing) {
  show(std::make_unique<MapPickerView>(mapContext(desktop), std::nullopt, nullptr));
  expectNothingCut();
}

}  // namespace
}  // namespace Hilalor::Screens
