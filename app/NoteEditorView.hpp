#pragma once

#include <QString>

#include "app/AppSettings.hpp"
#include "app/NotesStore.hpp"
#include "datetime/Date.hpp"
#include "ui/TextEditor.hpp"
#include "ui/View.hpp"

namespace Hilalor {

/// The note of a day, to be typed in. Every change is stored at once; there is nothing to confirm.
class NoteEditorView final : public View {
 public:
  /// `date` is the start of the day.
  NoteEditorView(Date date, NotesStore& store);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  [[nodiscard]] QString dateLabel() const;

  AppSettings& settings_ = AppSettings::shared();
  Date date_;
  NotesStore& store_;
  TextEditor* editor_;
};

}  // namespace Hilalor
