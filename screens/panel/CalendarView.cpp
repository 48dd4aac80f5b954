#include "screens/panel/CalendarView.hpp"

#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>
#include <algorithm>

#include "screens/panel/AdviceLine.hpp"
#include "ui/Containers.hpp"
#include "ui/DoubleClickable.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

using std::chrono::milliseconds;

constexpr int kWidth = 260;
constexpr Insets kPadding{.top = 20, .bottom = 10};
constexpr Insets kSides = Insets::sides(12);
constexpr int kSpacing = 6;
constexpr Insets kInset = Insets::sides(4);

constexpr TextStyle kArrowStyle{.size = 14, .weight = QFont::DemiBold};
constexpr TextStyle kTitleStyle{.size = 13, .weight = QFont::DemiBold};
constexpr TextStyle kYearHintStyle{.size = 8, .color = &Colors::secondary};
constexpr int kTitleSpacing = 2;
constexpr TextStyle kSecondaryStyle{.size = 10, .color = &Colors::secondary};

constexpr GridStyle kColumns{.columns = 7, .columnWidth = 32, .spacing = 2};
constexpr QSize kHeadingSize{32, 16};
constexpr TextStyle kWeekdayStyle{.size = 10, .color = &Colors::secondary};
constexpr TextStyle kWeekendStyle{
    .size = 10, .weight = QFont::Medium, .color = &Colors::accent, .opacity = 0.8};

constexpr TextStyle kHoverStyle{.size = 10, .color = &Colors::secondary};
constexpr milliseconds kHoverFade{150};

constexpr TextStyle kQuitStyle{.size = 13, .color = &Colors::secondary};
constexpr TextStyle kSettingsStyle{.size = 15, .color = &Colors::secondary};
constexpr TextStyle kStopStyle{.size = 11, .weight = QFont::Medium, .color = &Colors::accent};
constexpr int kStopIconSize = 13;
constexpr milliseconds kStopTransition{200};

constexpr int kWeek = 7;
constexpr int kWeekHeight = 40 + kColumns.spacing;

}  // namespace

CalendarView::CalendarView(const PanelContext& context, std::function<void(Size)> onSizeChange,
                           std::function<void()> onOpenSettings, std::optional<Advice> advice)
    : context_(context),
      onOpenSettings_(std::move(onOpenSettings)),
      now_(context_.clock.now()),
      zone_(TimeZone::current()),
      model_(now_, settings_.primaryCalendar),
      identity_{settings_.showCalendar, settings_.showPrayerTimes} {
  setFixedWidth(kWidth);
  atRedraw([this] { refreshPage(); });
  setBody(column({.spacing = kSpacing, .padding = kPadding},
                 {onlyWhile([this] { return settings_.showCalendar.value(); }, headerRow()),
                  onlyWhile([this] { return settings_.showCalendar || settings_.showPrayerTimes; },
                            scrollingPart()),
                  new AdviceLine(std::move(advice)), bottomBar()}));
  if (onSizeChange) {
    onWantedSize = [report = std::move(onSizeChange)](QSize size) {
      report({static_cast<double>(size.width()), static_cast<double>(size.height())});
    };
  }
  observe();
  redraw();
}

QWidget* CalendarView::headerRow() {
  auto* previous =
      new Button({.text = QStringLiteral("<"), .style = kArrowStyle}, [this] { showPrevious(); });
  auto* next =
      new Button({.text = QStringLiteral(">"), .style = kArrowStyle}, [this] { showNext(); });
  atRedraw([this, previous, next] {
    previous->setAccessibleName(yearMode_ ? QStringLiteral("Previous year")
                                          : QStringLiteral("Previous month"));
    next->setAccessibleName(yearMode_ ? QStringLiteral("Next year") : QStringLiteral("Next month"));
  });
  return padded(kSides, row({.padding = kInset},
                            {previous, flexibleSpace(), titleBlock(), flexibleSpace(), next}));
}

QWidget* CalendarView::titleBlock() {
  auto* hint = centred(new Text(kYearHintStyle, QStringLiteral("double-click to exit")));
  auto* lines = column({.spacing = kTitleSpacing},
                       {centred(liveText(kTitleStyle, [this] { return title(); })),
                        onlyWhile([this] { return yearMode_; }, hint)});
  return new DoubleClickable(lines, [this] {
    yearMode_ = !yearMode_;
    redraw();
  });
}

QWidget* CalendarView::scrollingPart() {
  auto* content =
      column({.spacing = kSpacing, .padding = kSides},
             {onlyWhile([this] { return settings_.showCalendar.value(); }, month()),
              onlyWhile([this] { return settings_.showPrayerTimes.value(); }, prayerTimes())});
  content->setFixedWidth(kWidth);
  return new ScrollColumn(content, ScrollKeys::own);
}

QWidget* CalendarView::month() {
  return column(
      {.spacing = kSpacing},
      {onlyWhile([this] { return settings_.showSecondaryCalendar.value(); }, secondaryRow()),
       divider(kInset), weekdayLabels(), dayGrid(), hoverLine()});
}

QWidget* CalendarView::secondaryRow() {
  return padded(kInset, centred(liveText(kSecondaryStyle, [this] {
                  return QString::fromStdString(page_.secondaryMonthHeader);
                })));
}

QWidget* CalendarView::weekdayLabels() {
  std::vector<QWidget*> headings;
  const auto weekend = weekendWeekdays(now_);
  for (const WeekdayColumn& column : orderedWeekdays()) {
    const auto& style = weekend.contains(column.weekday) ? kWeekendStyle : kWeekdayStyle;
    auto* heading = centred(new Text(style, QString::fromStdString(column.symbol)));
    headings.push_back(framed(heading, kHeadingSize.width(), kHeadingSize.height()));
  }
  return grid(kColumns, headings);
}

QWidget* CalendarView::dayGrid() {
  std::vector<QWidget*> cells;
  for (std::size_t index = 0; index < kCells; ++index)
    cells.push_back(dayCell(index));
  atRedraw([this] { showDays(); });
  return grid(kColumns, cells);
}

DayCellView* CalendarView::dayCell(std::size_t index) {
  auto* cell = new DayCellView(notes_, settings_,
                               {.onSelect = [this, index] { toggleSelection(index); },
                                .onSelectUndone = [this] { undoSelection(); },
                                .onHolidayHover = [this](const QString& text) { hover(text); }});
  cells_[index] = cell;
  return cell;
}

QWidget* CalendarView::hoverLine() {
  auto* line = centred(liveText(kHoverStyle, [this] {
    return hoveredHoliday_.isEmpty() ? QStringLiteral(" ") : hoveredHoliday_;
  }));
  atRedraw([this, line] { line->fadeTo(hoveredHoliday_.isEmpty() ? 0 : 1, kHoverFade); });
  return line;
}

QWidget* CalendarView::prayerTimes() {
  auto* times = new PrayerTimesView(now_, context_);
  atRedraw([this, times] { times->setDisplayDate(selectedDate_.value_or(now_)); });
  return times;
}

QWidget* CalendarView::bottomBar() {
  auto* quit = new Button({.icon = Icon::power, .style = kQuitStyle},
                          [this] { context_.application.terminate(); });
  auto* settings = new Button({.icon = Icon::gear, .style = kSettingsStyle}, [this] {
    if (onOpenSettings_) onOpenSettings_();
  });
  return row({.padding = kSides},
             {helped(QStringLiteral("Quit Hilalor"), quit), flexibleSpace(), stopButton(),
              flexibleSpace(), helped(QStringLiteral("Settings"), settings)});
}

Button* CalendarView::stopButton() {
  auto* stop = new Button({}, [this] { stopSound(); });
  atRedraw([this, stop] {
    const QString title = stopTitle();
    if (!title.isEmpty()) {
      stop->setLabel({.icon = Icon::stopCircle,
                      .text = title,
                      .style = kStopStyle,
                      .iconSize = kStopIconSize});
    }
    stop->appear(!title.isEmpty(), kStopTransition);
  });
  return stop;
}

void CalendarView::observe() {
  const auto changed = [this] { setNeedsRedraw(); };
  changes_.push_back(settings_.willChange.subscribe(changed));
  changes_.push_back(notificationManager_.willChange.subscribe(changed));
  changes_.push_back(notes_.willChange.subscribe(changed));
}

void CalendarView::refreshPage() {
  now_ = context_.clock.now();
  const std::array<bool, 2> identity{settings_.showCalendar, settings_.showPrayerTimes};
  if (identity != identity_) {
    identity_ = identity;
    hoveredHoliday_.clear();
    resetModel();
  }
  if (const auto zone = TimeZone::current(); zone != zone_) {
    zone_ = zone;
    resetModel();
  }
  if (settings_.primaryCalendar != model_.primaryCalendar) resetModel();
  if (!settings_.showCalendar) return;
  page_ = model_.page(now_, settings_.showHolidays ? HolidayLabels::shown : HolidayLabels::hidden);
}

void CalendarView::showDays() {
  speech_.reset();
  if (QAccessible::isActive()) speech_.emplace();
  for (std::size_t index = 0; index < kCells; ++index)
    cells_[index]->show(shownDay(index));
  fitWeeks();
}

void CalendarView::setGreatestHeight(int height) {
  View::setGreatestHeight(height);
  fitWeeks();
}

std::size_t CalendarView::neededWeeks() const {
  const auto last = std::find_if(page_.cells.rbegin(), page_.cells.rend(),
                                 [](const auto& cell) { return cell.has_value(); });
  return (static_cast<std::size_t>(page_.cells.rend() - last) + kWeek - 1) / kWeek;
}

void CalendarView::fitWeeks() {
  if (!settings_.showCalendar || maximumHeight() == QWIDGETSIZE_MAX) return;
  std::size_t weeks = kCells / kWeek;
  int height = naturalSize().height() + static_cast<int>(weeks - shownWeeks_) * kWeekHeight;
  for (; weeks > neededWeeks() && height > maximumHeight(); --weeks)
    height -= kWeekHeight;
  if (weeks == shownWeeks_) return;
  shownWeeks_ = weeks;
  for (std::size_t index = 0; index < kCells; ++index)
    cells_[index]->setVisible(index / kWeek < weeks);
  remeasure(*cells_.front()->parentWidget());
}

std::optional<ShownDay> CalendarView::shownDay(std::size_t index) const {
  if (index >= page_.cells.size() || !page_.cells[index]) return std::nullopt;
  const DayCell& cell = *page_.cells[index];
  const bool showsSecondary = settings_.showSecondaryCalendar;
  const auto secondary = showsSecondary ? SecondaryCalendar::shown : SecondaryCalendar::hidden;
  const std::string spoken = speech_ ? speech_->of(cell, notes_.note(cell.date)) : "";
  return ShownDay{.cell = cell,
                  .hoverLabel = QString::fromStdString(hoverLabel(cell, secondary)),
                  .spokenName = QString::fromStdString(spoken),
                  .showsSecondary = showsSecondary,
                  .isSelected = selectedDate_ == cell.date,
                  .hasNote = notes_.hasNote(cell.date)};
}

QString CalendarView::title() const {
  const QString year = QString::number(page_.year);
  return yearMode_ ? year : QString::fromStdString(page_.monthName) + u' ' + year;
}

QString CalendarView::stopTitle() const {
  if (notificationManager_.playingVoice.value()) return QStringLiteral("Stop Athan");
  if (notificationManager_.playingDua.value()) return QStringLiteral("Stop Supplication");
  return {};
}

void CalendarView::stopSound() {
  if (notificationManager_.playingVoice.value()) return notificationManager_.stopAll();
  notificationManager_.stopDua();
}

void CalendarView::hover(const QString& text) {
  if (text == hoveredHoliday_) return;
  hoveredHoliday_ = text;
  setNeedsRedraw();
}

void CalendarView::resetModel() {
  now_ = context_.clock.now();
  model_ = CalendarModel(now_, settings_.primaryCalendar);
  yearMode_ = false;
  selectedDate_.reset();
}

void CalendarView::showPrevious() {
  model_ = yearMode_ ? model_.previousYear() : model_.previousMonth();
  redraw();
}

void CalendarView::showNext() {
  model_ = yearMode_ ? model_.nextYear() : model_.nextMonth();
  redraw();
}

void CalendarView::toggleSelection(std::size_t index) {
  const Date day = page_.cells[index]->date;
  selectedBefore_ = selectedDate_;
  if (selectedDate_ == day) {
    selectedDate_.reset();
  } else {
    selectedDate_ = day;
  }
  redraw();
}

void CalendarView::undoSelection() {
  selectedDate_ = selectedBefore_;
  redraw();
}

Date CalendarView::keyboardDay() const {
  if (selectedDate_) return *selectedDate_;
  const auto day = model_.date(model_.todayDay(now_).value_or(1));
  return day.value_or(model_.displayDate);
}

void CalendarView::moveSelection(CalendarUnit unit, int amount) {
  const bool isHijri = model_.primaryCalendar == PrimaryCalendar::hijri;
  const Calendar& calendar = isHijri ? model_.hijriCalendar : model_.gregorianCalendar;
  const auto moved = calendar.adding(unit, amount, keyboardDay());
  if (moved) select(calendar.startOfDay(*moved));
}

void CalendarView::select(Date day) {
  selectedDate_ = day;
  model_ = CalendarModel(day, model_.primaryCalendar);
  redraw();
  focusOn(day);
}

void CalendarView::focusOn(Date day) {
  // A week that has just come back has no place to scroll to yet.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  for (DayCellView* cell : cells_)
    if (cell->day() && cell->day()->cell.date == day) cell->setFocus(Qt::TabFocusReason);
}

void CalendarView::openNote() {
  // Another time zone has other days.
  redraw();
  const Date day = keyboardDay();
  for (DayCellView* cell : cells_)
    if (cell->day() && cell->day()->cell.date == day) cell->openNote();
}

bool CalendarView::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) fitWeeks();
  return View::event(event);
}

void CalendarView::keyPressEvent(QKeyEvent* event) {
  if (!settings_.showCalendar) return View::keyPressEvent(event);
  const bool isShifted = event->modifiers().testFlag(Qt::ShiftModifier);
  const CalendarUnit page = isShifted ? CalendarUnit::year : CalendarUnit::month;
  switch (event->key()) {
    case Qt::Key_Left:
      return moveSelection(CalendarUnit::day, -1);
    case Qt::Key_Right:
      return moveSelection(CalendarUnit::day, 1);
    case Qt::Key_Up:
      return moveSelection(CalendarUnit::day, -kWeek);
    case Qt::Key_Down:
      return moveSelection(CalendarUnit::day, kWeek);
    case Qt::Key_PageUp:
      return moveSelection(page, -1);
    case Qt::Key_PageDown:
      return moveSelection(page, 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return openNote();
    case Qt::Key_Home:
      resetModel();
      redraw();
      return focusOn(keyboardDay());
    default:
      View::keyPressEvent(event);
  }
}

void CalendarView::focusInEvent(QFocusEvent* event) {
  View::focusInEvent(event);
  focusOn(keyboardDay());
}

}  // namespace Hilalor::Screens
