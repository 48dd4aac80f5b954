// Pictures of the panel in many states, without a display: screen_pictures FOLDER [SCALE].

#include <QApplication>
#include <QDir>
#include <QMouseEvent>
#include <functional>

#include "app/CalendarView.hpp"
#include "tests/fakes/FakePlatform.hpp"
#include "tests/fakes/Parts.hpp"
#include "tests/fakes/SystemTimeZone.hpp"
#include "ui/DoubleClickable.hpp"

namespace Hilalor {
namespace {

// 2026-02-22 13:00 in Riyadh: a national day, in Ramadan.
constexpr Date kFoundingDay{1771754400};

struct Picture {
  const char* name;
  ColorScheme scheme;
  std::function<void()> prepare;
};

void doubleClick(QWidget& on) {
  const QPointF middle = QRectF(on.rect()).center();
  QMouseEvent event(QEvent::MouseButtonDblClick, middle, on.mapToGlobal(middle), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&on, &event);
}

void take(const Picture& picture, const QDir& folder) {
  FakePlatform desktop(kFoundingDay);
  picture.prepare();
  CalendarView view({}, {});
  view.setPalette(windowPalette(picture.scheme));
  view.setAutoFillBackground(true);
  view.show();
  QApplication::processEvents();
  if (QString(picture.name).contains("year")) {
    doubleClick(*part<DoubleClickable>(view));
    QApplication::processEvents();
  }
  view.adjustSize();
  QApplication::processEvents();
  view.grab().save(folder.filePath(QString(picture.name) + ".png"));
}

void withNotes() {
  auto& notes = NotesStore::shared();
  notes.setNote("A note", kFoundingDay - Seconds(5 * 86400.0));
  notes.setNote("A note", kFoundingDay + Seconds(86400.0));
  notes.setNote("A note", kFoundingDay);
}

int run(const QDir& folder) {
  const SystemTimeZone zone("Asia/Riyadh");
  const Picture pictures[] = {
      {"gregorian-light", ColorScheme::light, withNotes},
      {"gregorian-dark", ColorScheme::dark, withNotes},
      {"hijri-light", ColorScheme::light,
       [] { AppSettings::shared().primaryCalendar = PrimaryCalendar::hijri; }},
      {"hijri-dark-sunnah", ColorScheme::dark,
       [] {
         AppSettings::shared().primaryCalendar = PrimaryCalendar::hijri;
         AppSettings::shared().showSunnahTimes = true;
       }},
      {"year-light", ColorScheme::light, [] {}},
      {"athan-light", ColorScheme::light,
       [] { PrayerNotificationManager::shared().playingVoice.assign(AthanVoice::vemran); }},
      {"supplication-dark-times-only", ColorScheme::dark,
       [] {
         AppSettings::shared().showCalendar = false;
         PrayerNotificationManager::shared().playingDua.assign(true);
       }},
      {"bar-only", ColorScheme::light,
       [] {
         AppSettings::shared().showCalendar = false;
         AppSettings::shared().showPrayerTimes = false;
       }},
  };
  for (const auto& picture : pictures)
    take(picture, folder);
  return 0;
}

}  // namespace
}  // namespace Hilalor

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  if (argc > 2) qputenv("QT_SCALE_FACTOR", argv[2]);
  const QApplication application(argc, argv);
  const QDir folder(argc > 1 ? argv[1] : ".");
  return Hilalor::run(folder);
}
