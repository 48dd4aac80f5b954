#include "screens/panel/CalendarView.hpp"

#include <QCoreApplication>
#include <QKeyEvent>
#include <utility>

#include "rules/calendar/DayTexts.hpp"
#include "screens/panel/AdviceLine.hpp"
#include "screens/panel/BottomBar.hpp"
#include "screens/panel/CalendarKeys.hpp"
#include "screens/panel/MonthHeader.hpp"
#include "screens/panel/NoteEditorView.hpp"
#include "screens/panel/PrayerTimesView.hpp"
#include "ui/Containers.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

using std::chrono::milliseconds;

constexpr int kWidth = 260;
constexpr Insets kPadding{.top = 20, .bottom = 10};
constexpr Insets kSides = Insets::sides(12);
constexpr int kSpacing = 6;
constexpr Insets kInset = Insets::sides(4);

constexpr TextStyle kSecondaryStyle{.size = 10, .color = &Colors::secondary};

constexpr TextStyle kHoverStyle{.size = 10, .color = &Colors::secondary};
constexpr milliseconds kHoverFade{150};

/// What the grid takes of it, and the room at its sides, which stays.
int panelWidth() {
  constexpr int kDays = DayGrid::kWeek;
  return kWidth + kDays * (byType(DayCellView::kSize.width()) - DayCellView::kSize.width());
}

}  // namespace

CalendarView::CalendarView(const PanelContext& context, std::function<void(Size)> onSizeChange,
                           std::function<void()> onOpenSettings, std::optional<Advice> advice,
                           std::function<void()> onChoosePlace)
    : context_(context),
      onChoosePlace_(std::move(onChoosePlace)),
      settings_(context.settings),
      model_(settings_, Moment::at(context.clock.now())) {
  setFixedWidth(panelWidth());
  atRedraw([this] { model_.refresh(Moment::at(context_.clock.now())); });
  setBody(column(
      {.spacing = kSpacing, .padding = kPadding},
      {onlyWhile([this] { return model_.sections().calendar; }, header()),
       onlyWhile(
           [this] {
             return model_.sections() != PanelSections{false, false};
           },
           scrollingPart()),
       new AdviceLine(std::move(advice)), new BottomBar(context_, std::move(onOpenSettings))}));
  if (onSizeChange) {
    onWantedSize = [report = std::move(onSizeChange)](QSize size) {
      report({static_cast<double>(size.width()), static_cast<double>(size.height())});
    };
  }
  changes_.push_back(context.settings.willChange.subscribe([this] { setNeedsRedraw(); }));
  changes_.push_back(context.notes.willChange.subscribe([this] { setNeedsRedraw(); }));
  redraw();
}

CalendarView::~CalendarView() {
  // It is hidden with the panel, and would tell so after the model has gone.
  if (note_ != nullptr) note_->onDismiss = nullptr;
}

QWidget* CalendarView::header() {
  auto* header = new MonthHeader(model_, [this] { redraw(); });
  atRedraw([header] { header->redraw(); });
  return header;
}

QWidget* CalendarView::scrollingPart() {
  auto* content =
      column({.spacing = kSpacing, .padding = kSides},
             {onlyWhile([this] { return model_.sections().calendar; }, month()),
              onlyWhile([this] { return model_.sections().prayerTimes; }, prayerTimes())});
  content->setFixedWidth(panelWidth());
  auto* scrolling = new ScrollColumn(content, ScrollKeys::own);
  scrolling->setAccessibleName(QStringLiteral("Month and prayer times"));
  return scrolling;
}

QWidget* CalendarView::month() {
  return column(
      {.spacing = kSpacing},
      {onlyWhile([this] { return settings_.showSecondaryCalendar.value(); }, secondaryRow()),
       divider(kInset), DayGrid::weekdays(Moment::at(context_.clock.now())), dayGrid(),
       hoverLine()});
}

QWidget* CalendarView::secondaryRow() {
  return padded(kInset, centred(liveText(kSecondaryStyle, [this] {
                  return QString::fromStdString(model_.page().secondaryMonthHeader);
                })));
}

QWidget* CalendarView::dayGrid() {
  days_ = new DayGrid(
      {.onSelect =
           [this](Date day) {
             model_.click(day);
             redraw();
           },
       .onOpen =
           [this](Date day) {
             model_.doubleClick(day);
             redraw();
             showNote();
           },
       .onHolidayHover = [this](const std::string& text) { hover(text); },
       .speech =
           [this](const DayCell& cell) {
             return DaySpeech(settings_.hijriCalendar()).of(cell, context_.notes.note(cell.date));
           },
       .onVisit = [this](Date day) { visit(day); },
       .onNote =
           [this](Date day) {
             visit(day);
             openNote();
           }});
  atRedraw([this] { showDays(); });
  return days_;
}

QWidget* CalendarView::hoverLine() {
  auto* line = centred(liveText(kHoverStyle, [this] {
    const auto& text = model_.hoverText();
    return text.empty() ? QStringLiteral(" ") : QString::fromStdString(text);
  }));
  atRedraw([this, line] { line->fadeTo(model_.hoverText().empty() ? 0 : 1, kHoverFade); });
  return line;
}

QWidget* CalendarView::prayerTimes() {
  auto* times = new PrayerTimesView(model_.listedMoment(), context_, onChoosePlace_);
  atRedraw([this, times] { times->setDisplayDate(model_.listedMoment()); });
  return times;
}

void CalendarView::showDays() {
  const auto& cells = model_.page().cells;
  for (std::size_t index = 0; index < DayGrid::kCells; ++index) {
    const bool isDay = index < cells.size() && cells[index];
    days_->show(index, isDay ? std::optional(shownDay(*cells[index])) : std::nullopt);
  }
  days_->setAccessibleName(QString::fromStdString(model_.title()));
  fitWeeks();
}

ShownDay CalendarView::shownDay(const DayCell& cell) const {
  const bool showsSecondary = settings_.showSecondaryCalendar;
  const auto secondary = showsSecondary ? SecondaryCalendar::shown : SecondaryCalendar::hidden;
  return {.cell = cell,
          .hoverLabel = hoverLabel(cell, secondary),
          .showsSecondary = showsSecondary,
          .isSelected = model_.selectedDay() == cell.date,
          .hasNote = context_.notes.hasNote(cell.date)};
}

void CalendarView::setGreatestHeight(int height) {
  View::setGreatestHeight(height);
  fitWeeks();
}

void CalendarView::fitWeeks() {
  if (!model_.sections().calendar || maximumHeight() == QWIDGETSIZE_MAX) return;
  std::size_t weeks = DayGrid::kWeeks;
  int height = naturalSize().height() +
               static_cast<int>(weeks - days_->shownWeeks()) * DayGrid::weekHeight();
  for (; weeks > model_.neededWeeks() && height > maximumHeight(); --weeks)
    height -= DayGrid::weekHeight();
  if (weeks == days_->shownWeeks()) return;
  days_->showWeeks(weeks);
  remeasure(*days_);
}

void CalendarView::hover(const std::string& text) {
  if (text == model_.hoverText()) return;
  model_.hover(text);
  setNeedsRedraw();
}

void CalendarView::move(CalendarUnit unit, int amount) {
  model_.move(unit, amount);
  redraw();
  focusOnKeyboardDay();
}

void CalendarView::focusOnKeyboardDay() {
  // A week that has just come back has no place to scroll to yet.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  if (auto* cell = days_->cellOf(model_.keyboardDay())) cell->setFocus(Qt::TabFocusReason);
}

void CalendarView::visit(Date day) {
  if (model_.selectedDay() != day) model_.click(day);
  redraw();
  focusOnKeyboardDay();
}

void CalendarView::openNote() {
  // Another time zone has other days.
  redraw();
  const auto before = model_.noteDay();
  model_.openNote();
  if (model_.noteDay() != before) showNote();
}

void CalendarView::showNote() {
  if (note_ != nullptr) putAwayNote();
  auto* cell = days_->cellOf(*model_.noteDay());
  if (cell == nullptr) return model_.closeNote();
  note_ = new Popover(*cell, new NoteEditorView(*model_.noteDay(), context_.notes, settings_));
  note_->onDismiss = [this] {
    model_.closeNote();
    putAwayNote();
  };
  note_->open();
}

void CalendarView::putAwayNote() {
  auto* note = std::exchange(note_, nullptr);
  note->onDismiss = nullptr;
  note->dismiss();
  note->deleteLater();
}

bool CalendarView::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) fitWeeks();
  return View::event(event);
}

void CalendarView::keyPressEvent(QKeyEvent* event) {
  if (!model_.sections().calendar) return View::keyPressEvent(event);
  if (const auto step = stepOf(*event)) return move(step->unit, step->amount);
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return openNote();
    case Qt::Key_Home:
      model_.returnToToday(context_.clock.now());
      redraw();
      return focusOnKeyboardDay();
    default:
      View::keyPressEvent(event);
  }
}

void CalendarView::focusInEvent(QFocusEvent* event) {
  View::focusInEvent(event);
  focusOnKeyboardDay();
}

}  // namespace Hilalor::Screens
