#include "screens/panel/NoteEditorView.hpp"

#include "datetime/Calendar.hpp"
#include "datetime/DateFormatter.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr int kPadding = 12;
constexpr int kSpacing = 8;
constexpr TextStyle kHeadingStyle{
    .size = 12, .weight = QFont::DemiBold, .color = &Colors::secondary};
constexpr TextStyle kWarningStyle{.size = 11, .color = &Colors::secondary};
constexpr const char* kNotSaved = "Not saved: the file cannot be written.";
constexpr int kEditorTypeSize = 13;
constexpr QSize kEditorSize{240, 120};

DateComponents dayOf(Date date) {
  const auto fields = Calendar(CalendarIdentifier::gregorian).components(date);
  DateComponents day;
  day.year = fields.year;
  day.month = fields.month;
  day.day = fields.day;
  return day;
}

}  // namespace

NoteEditorView::NoteEditorView(Date date, NotesStore& store, const AppSettings& settings)
    : settings_(settings),
      day_(dayOf(date)),
      store_(store),
      editor_(new TextEditor(kEditorTypeSize)) {
  setFixedWidth(byType(kEditorSize).width() + 2 * kPadding);
  setFocusProxy(editor_);
  setWindowTitle("Note of " + dateLabel());
  editor_->setName(windowTitle());
  setBody(
      column({.spacing = kSpacing, .padding = Insets::all(kPadding), .alignment = Qt::AlignLeft},
             {liveText(kHeadingStyle, [this] { return dateLabel(); }),
              framed(editor_, byType(kEditorSize).width(), byType(kEditorSize).height()),
              onlyWhile([this] { return !store_.isKept().value(); },
                        new Text(kWarningStyle, QString::fromUtf8(kNotSaved)))}));
  editor_->onEdit = [this](const QString& text) { edit(text); };
  atRedraw([this] {
    if (store_.note(startOfDay()) != note_) showNote();
  });
  changes_ = store_.willChange.subscribe([this] { setNeedsRedraw(); });
  keeping_ = store_.isKept().subscribe([this](bool) { setNeedsRedraw(); });
  redraw();
}

void NoteEditorView::showNote() {
  note_ = store_.note(startOfDay());
  editor_->setText(QString::fromStdString(note_));
}

void NoteEditorView::edit(const QString& text) {
  store_.setNote(text.toStdString(), startOfDay());
  note_ = store_.note(startOfDay());
}

Date NoteEditorView::startOfDay() const {
  return Calendar(CalendarIdentifier::gregorian).date(day_).value_or(Date());
}

QString NoteEditorView::dateLabel() const {
  const bool isHijri = settings_.primaryCalendar == PrimaryCalendar::hijri;
  const DateFormatter formatter = isHijri ? DateFormatter("d MMMM yyyy", settings_.hijriCalendar())
                                          : DateFormatter::longStyle();
  return QString::fromStdString(formatter.string(startOfDay()));
}

void NoteEditorView::showEvent(QShowEvent* event) {
  View::showEvent(event);
  showNote();
  // A note of blanks alone, from an older store, goes when it is looked at.
  if (!note_.empty()) store_.setNote(note_, startOfDay());
  note_ = store_.note(startOfDay());
  editor_->setFocus();
}

}  // namespace Hilalor::Screens
