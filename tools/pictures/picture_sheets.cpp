// One sheet of the panel, a note, a menu, a tool tip and the settings for each scheme, and the
// panel alone as the README shows it, without a display: picture_sheets FOLDER APP_ICON SCALE
// [high|usual [POINTS]], the last being the contrast and the size of the desktop's font.
// tools/pictures/sheets makes those of docs/pictures.

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QToolTip>

#include "screens/panel/CalendarView.hpp"
#include "screens/settings/SettingsView.hpp"
#include "tests/fakes/Parts.hpp"
#include "tests/fakes/ScreenContexts.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "ui/Picker.hpp"
#include "ui/PopUpStyle.hpp"
#include "ui/Popover.hpp"
#include "ui/Surface.hpp"

namespace Hilalor {

using namespace Screens;
using namespace Ui;

namespace {

// A Tuesday in Riyadh at 13:00: 17 February 2026.
constexpr Date kNow{1771322400};
constexpr double kDay = 86400;
constexpr QSize kSheet{1000, 1330};

void prepare(FakePlatform& desktop) {
  auto& settings = desktop.settings();
  settings.showSunnahTimes = true;
  settings.prayerNotificationsEnabled = true;
  settings.beepSoundEnabled = true;
  settings.beepLoopEnabled = true;
  settings.athanEnabled = true;
  settings.beepLoopSeconds = 5;
  desktop.notificationManager().playingVoice.assign(AthanVoice::tolsar);
  desktop.notes().setNote("Call the carpenter", Date{kNow.secondsSince1970 - 6 * kDay});
  desktop.notes().setNote("Return the books", Date{kNow.secondsSince1970 + 2 * kDay});
  desktop.notes().setNote("Ask about the fair", Date{kNow.secondsSince1970 + 3 * kDay});
}

void settle(FakePlatform& desktop) {
  constexpr int kPasses = 10;
  for (int pass = 0; pass < kPasses; ++pass) {
    desktop.loop.runPosted();
    QApplication::processEvents();
  }
}

/// The sheet and where the next window goes on it.
class Sheet {
 public:
  Sheet(QSize size, const QColor& ground)
      : picture_(size * qApp->devicePixelRatio() * typeScale(), QImage::Format_ARGB32) {
    picture_.setDevicePixelRatio(qApp->devicePixelRatio());
    picture_.fill(ground);
  }

  void put(QPoint place, QWidget& window) {
    QPainter painter(&picture_);
    painter.drawPixmap(byType(place.x()), byType(place.y()), window.grab());
  }

  void save(const QString& path) const { picture_.save(path, "PNG", 0); }

 private:
  QImage picture_;
};

/// What the panel lies on, as the desktop's window paints it.
class Ground final : public QWidget {
 public:
  explicit Ground(QWidget& content) : QWidget(nullptr, Qt::X11BypassWindowManagerHint) {
    setAttribute(Qt::WA_TranslucentBackground);
    content.setParent(this);
    content.move(kShadow, kShadow);
    content.resize(content.sizeHint());
    resize(content.size() + 2 * QSize(kShadow, kShadow));
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const QRectF body = QRectF(rect()).adjusted(kShadow, kShadow, -kShadow, -kShadow);
    paintSurface(painter, *this, Surface::of(body, 12, kShadow));
  }

 private:
  static constexpr int kShadow = 20;
};

/// The pointer on the button.
void pointAt(Button& button) {
  const QPointF place = QRectF(button.rect()).center();
  QMouseEvent move(QEvent::MouseMove, place, button.mapToGlobal(place), Qt::NoButton, {}, {});
  QApplication::sendEvent(&button, &move);
}

DayCellView& cellOf(const QWidget& panel, int day) {
  for (auto* cell : parts<DayCellView>(panel))
    if (cell->day() && cell->day()->cell.day == day) return *cell;
  qFatal("no such day");
}

void showPanel(Sheet& sheet, FakePlatform& desktop, ColorScheme scheme, Contrast contrast) {
  auto& panel = *new CalendarView(panelContext(desktop), {}, [] {});
  Ground window(panel);
  window.setPalette(windowPalette(scheme, contrast));
  window.show();
  settle(desktop);
  cellOf(panel, 12).click();
  settle(desktop);
  pointAt(*part<Button>(panel));
  sheet.put({10, 20}, window);
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, {});
  QApplication::sendEvent(&panel, &enter);
  settle(desktop);
  if (auto* note = part<Popover>(window)) sheet.put({300, 400}, *note);
}

void showMenu(Sheet& sheet, QWidget& settings) {
  for (auto* picker : parts<GreenPickerButton>(settings)) {
    auto* button = part<Button>(*picker);
    button->click();
    QApplication::processEvents();
    if (auto* menu = part<QMenu>(*picker)) {
      if (menu->actions().size() < 3) continue;
      menu->setActiveAction(menu->actions()[1]);
      sheet.put({320, 40}, *menu);
      menu->close();
      return;
    }
  }
}

void showToolTip(Sheet& sheet, QWidget& owner) {
  QToolTip::showText({}, QStringLiteral("Quit Hilalor"), &owner);
  QApplication::processEvents();
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->inherits("QTipLabel")) sheet.put({320, 300}, *window);
  QToolTip::hideText();
}

void take(ColorScheme scheme, Contrast contrast, const QPixmap& icon, const QString& path) {
  FakePlatform desktop({kNow});
  prepare(desktop);
  Sheet sheet(kSheet, scheme == ColorScheme::dark ? QColor(70, 74, 82) : QColor(214, 219, 226));
  showPanel(sheet, desktop, scheme, contrast);
  SettingsView settings(settingsContext(desktop), &desktop.updater, icon);
  settings.setPalette(windowPalette(scheme, contrast));
  settings.resize(byType(QSize(380, 1290)));
  settings.show();
  settle(desktop);
  sheet.put({600, 20}, settings);
  showMenu(sheet, settings);
  showToolTip(sheet, settings);
  sheet.save(path);
}

/// The panel alone, or under the open note of a day.
void takePanel(ColorScheme scheme, PrimaryCalendar primary, int noteDay, const QString& path) {
  FakePlatform desktop({kNow});
  prepare(desktop);
  desktop.notificationManager().playingVoice.assign(std::nullopt);
  desktop.settings().showSunnahTimes = false;
  desktop.settings().primaryCalendar = primary;
  desktop.settings().choosePlace({21.4225, 39.8262}, "Mecca", *TimeZone::named("Asia/Riyadh"));
  auto& panel = *new CalendarView(panelContext(desktop), {}, [] {});
  Ground window(panel);
  window.setPalette(windowPalette(scheme));
  window.move(100, 0);
  window.show();
  settle(desktop);
  if (auto* focused = QApplication::focusWidget()) focused->clearFocus();
  Sheet sheet({400, 640}, Qt::transparent);
  const QPoint place(50, 0);
  sheet.put(place, window);
  if (noteDay > 0) {
    cellOf(panel, noteDay).click();
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, {});
    QApplication::sendEvent(&panel, &enter);
    settle(desktop);
    sheet.put(place, window);
    if (auto* note = part<Popover>(window)) sheet.put(place + note->pos() - window.pos(), *note);
  }
  sheet.save(path);
}

}  // namespace
}  // namespace Hilalor

int main(int argc, char** argv) {
  if (argc < 4) return 2;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_SCALE_FACTOR", argv[3]);
  const QApplication application(argc, argv);
  QApplication::setStyle(new Hilalor::Ui::PopUpStyle({[] { return true; }, [] { return true; }}));
  const Hilalor::SystemTimeZone zone("Asia/Riyadh");
  const QPixmap icon(argv[2]);
  const QDir folder(argv[1]);
  const bool isHigh = argc > 4 && QString(argv[4]) == "high";
  const auto contrast = isHigh ? Hilalor::Ui::Contrast::high : Hilalor::Ui::Contrast::usual;
  if (argc > 5) {
    QFont font = QApplication::font();
    font.setPointSizeF(std::atof(argv[5]));
    QApplication::setFont(font);
  }
  const QString end = QStringLiteral("-%1x.png").arg(argv[3]);
  using enum Hilalor::Ui::ColorScheme;
  Hilalor::take(light, contrast, icon, folder.filePath("looks-light" + end));
  Hilalor::take(dark, contrast, icon, folder.filePath("looks-dark" + end));
  using enum Hilalor::PrimaryCalendar;
  Hilalor::takePanel(light, gregorian, 0, folder.filePath("panel-light" + end));
  Hilalor::takePanel(light, gregorian, 19, folder.filePath("panel-note" + end));
  Hilalor::takePanel(dark, hijri, 0, folder.filePath("panel-dark" + end));
  return 0;
}
