#include "screens/panel/PrayerTimesView.hpp"

#include <QPainter>
#include <algorithm>

#include "ui/FocusRing.hpp"
#include "ui/Shapes.hpp"
#include "ui/Spoken.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr int kSpacing = 5;
constexpr Insets kDividerInset = Insets::sides(4);
constexpr int kHeaderSpacing = 2;
constexpr Insets kHeaderPadding{.top = 2, .bottom = 2};
constexpr TextStyle kGregorianStyle{.size = 11, .weight = QFont::Medium};
constexpr TextStyle kHijriStyle{.size = 10, .color = &Colors::secondary};
constexpr TextStyle kPlaceStyle{
    .size = 9, .color = &Colors::secondary, .opacity = 0.7, .overflow = Overflow::ellipsis};
constexpr TextStyle kChooseStyle{.size = 11, .weight = QFont::DemiBold, .color = &Colors::accent};
constexpr int kRowSpacing = 1;
constexpr Insets kSunnahDividerPadding{.top = 2, .leading = 6, .bottom = 2, .trailing = 6};
constexpr Insets kRowPadding{.top = 4, .leading = 6, .bottom = 4, .trailing = 6};
constexpr int kRowTypeSize = 11;
constexpr double kRowRadius = 6;
constexpr Seconds kMinute{60};

TextStyle rowStyle(const PrayerRow& row) {
  TextStyle style{.size = kRowTypeSize};
  if (row.isActive) {
    style.weight = QFont::DemiBold;
    style.color = &Colors::white;
  } else if (isSunnah(row.listed) || row.isPast) {
    style.color = &Colors::secondary;
  }
  return style;
}

/// The name of a prayer at one end, its time at the other.
class PrayerRowView final : public View {
 public:
  PrayerRowView() {
    speakAsOne(*this, QAccessible::ListItem);
    markFocusAround(*this, kRowRadius);
    setBody(row({.padding = kRowPadding}, {name_, flexibleSpace(), time_}));
  }

  void show(const PrayerRow& row) {
    isActive_ = row.isActive;
    TextStyle style = rowStyle(row);
    name_->setStyle(style);
    style.figures = Figures::columns;
    time_->setStyle(style);
    const auto name = displayName(row.listed);
    name_->setText(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    time_->setText(QString::fromStdString(row.time));
    const QString next = row.isActive ? QStringLiteral(", the next prayer") : QString();
    setAccessibleName(name_->text() + u' ' + time_->text() + next);
    // A stop of the keyboard for those only to whom it is read.
    setFocusPolicy(QAccessible::isActive() ? Qt::TabFocus : Qt::NoFocus);
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    if (!isActive_) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Colors::of(*this).accent);
    painter.drawPath(smoothRect(rect(), kRowRadius));
  }

 private:
  Text* name_ = new Text({.size = kRowTypeSize});
  Text* time_ = new Text({.size = kRowTypeSize, .figures = Figures::columns});
  bool isActive_ = false;
};

}  // namespace

PrayerTimesView::PrayerTimesView(Date displayDate, const PanelContext& context,
                                 std::function<void()> onChoosePlace)
    : settings_(context.settings),
      clock_(context.clock),
      loop_(context.loop),
      course_(context.settings),
      displayDate_(displayDate),
      now_(clock_.now()) {
  atRedraw([this] { prayers_ = prayerList(course_, displayDate_, now_); });
  setBody(column({.spacing = kSpacing}, {divider(kDividerInset), header(std::move(onChoosePlace)),
                                         divider(kDividerInset), prayerRows()}));

  const auto changed = [this](const auto&...) { setNeedsRedraw(); };
  changes_.push_back(context.settings.willChange.subscribe(changed));
  auto& place = context.locationManager;
  changes_.push_back(place.coordinate.subscribe(changed));
  changes_.push_back(place.locationName.subscribe(changed));
  changes_.push_back(place.detectedTimeZone.subscribe(changed));
  changes_.push_back(place.authStatus.subscribe(changed));
  redraw();
}

PrayerTimesView::~PrayerTimesView() = default;

void PrayerTimesView::setDisplayDate(Date displayDate) {
  if (displayDate == displayDate_) return;
  displayDate_ = displayDate;
  // Past midnight another day is today.
  now_ = clock_.now();
  redraw();
}

QWidget* PrayerTimesView::header(std::function<void()> onChoosePlace) {
  const auto line = [this](const TextStyle& style, std::string PrayerList::*text) {
    return centred(
        liveText(style, [this, text] { return QString::fromStdString(prayers_.*text); }));
  };
  return column(
      {.spacing = kHeaderSpacing, .padding = kHeaderPadding},
      {line(kGregorianStyle, &PrayerList::gregorianDate), line(kHijriStyle, &PrayerList::hijriDate),
       onlyWhile([this] { return settings_.isPlaceKnown(); },
                 line(kPlaceStyle, &PrayerList::placeName)),
       onlyWhile([this] { return !settings_.isPlaceKnown(); }, place(std::move(onChoosePlace)))});
}

QWidget* PrayerTimesView::place(std::function<void()> onChoosePlace) {
  auto* choose = new Button(
      {},
      [choose = std::move(onChoosePlace)] {
        if (choose) choose();
      },
      ButtonLook::link);
  atRedraw([this, choose] {
    const auto text = QString::fromStdString(prayers_.placeName) + ": choose your place";
    choose->setLabel({.text = text, .style = kChooseStyle});
  });
  return row({}, {flexibleSpace(), choose, flexibleSpace()});
}

QWidget* PrayerTimesView::prayerRows() {
  using enum ListedTime;
  auto* beforeSunnah = onlyWhile([this] { return shownRow(middleOfTheNight) != nullptr; },
                                 divider(kSunnahDividerPadding));
  return column(
      {.spacing = kRowSpacing},
      {prayerRow(fajr), prayerRow(sunrise), prayerRow(dhuhr), prayerRow(asr), prayerRow(maghrib),
       prayerRow(isha), beforeSunnah, prayerRow(middleOfTheNight), prayerRow(lastThirdOfTheNight)});
}

QWidget* PrayerTimesView::prayerRow(ListedTime listed) {
  auto* row = onlyWhile([this, listed] { return shownRow(listed) != nullptr; }, new PrayerRowView);
  atRedraw([this, listed, row] {
    if (const auto* shown = shownRow(listed)) row->show(*shown);
  });
  return row;
}

const PrayerRow* PrayerTimesView::shownRow(ListedTime listed) const {
  const auto row = std::ranges::find(prayers_.rows, listed, &PrayerRow::listed);
  return row != prayers_.rows.end() ? &*row : nullptr;
}

void PrayerTimesView::refreshNow() {
  now_ = clock_.now();
  redraw();
}

void PrayerTimesView::showEvent(QShowEvent* event) {
  View::showEvent(event);
  refreshNow();
  minuteTimer_ = loop_.repeating(kMinute, [this] { refreshNow(); });
}

void PrayerTimesView::hideEvent(QHideEvent* event) {
  View::hideEvent(event);
  minuteTimer_.reset();
}

}  // namespace Hilalor::Screens
