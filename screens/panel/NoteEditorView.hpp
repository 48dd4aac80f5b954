#pragma once

#include <QString>
#include <string>

#include "datetime/Date.hpp"
#include "datetime/DateComponents.hpp"
#include "rules/calendar/NotesStore.hpp"
#include "rules/settings/AppSettings.hpp"
#include "ui/TextEditor.hpp"
#include "ui/View.hpp"

namespace Hilalor::Screens {

/// The note of a day, to be typed in. Every change is stored at once; there is nothing to confirm.
/// A stored note that changes by other means than the typing is shown anew.
class NoteEditorView final : public Ui::View {
 public:
  /// `date` is the start of the day.
  NoteEditorView(Date date, NotesStore& store, const AppSettings& settings);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  [[nodiscard]] Date startOfDay() const;
  [[nodiscard]] QString dateLabel() const;
  void showNote();
  void edit(const QString& text);

  const AppSettings& settings_;
  /// The Gregorian day, which stays when the machine's time zone changes.
  DateComponents day_;
  NotesStore& store_;
  Ui::TextEditor* editor_;
  std::string note_;  // The stored one, as last seen.
  Subscription changes_;
  Subscription keeping_;
};

}  // namespace Hilalor::Screens
