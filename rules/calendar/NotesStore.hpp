#pragma once

#include <optional>
#include <string>

#include "datetime/Date.hpp"
#include "datetime/DateFormatter.hpp"
#include "platform/DefaultsStore.hpp"
#include "platform/Signal.hpp"
#include "rules/Shared.hpp"

namespace Hilalor {

/// One note a day, in free text. A day is a Gregorian one of the machine's time zone, whatever
/// calendar the panel shows. Each change is in the defaults store when its call returns; notes that
/// come in there are taken over. Main thread.
class NotesStore : public Shared<NotesStore> {
 public:
  /// Reads the notes, and writes nothing. A stored value that is no dictionary of texts counts as
  /// none; the first note set replaces it.
  explicit NotesStore(DefaultsStore& store);

  /// Told before the notes change.
  Signal<> willChange;

  /// All notes by their days, "2025-03-15".
  [[nodiscard]] const TextDictionary& notes() const { return notes_; }

  /// Whether every change is stored by now.
  [[nodiscard]] Published<bool>& isKept() { return store_.isKept; }

  [[nodiscard]] bool hasNote(Date date) const;

  /// The text as it was typed; empty where the day has none.
  [[nodiscard]] std::string note(Date date) const;

  /// Keeps the text as the day's note, with the white space around it; a text of nothing but white
  /// space and line breaks, or an empty one, takes the note away.
  void setNote(const std::string& text, Date date);

 private:
  void reload();

  /// "2025-03-15", by the machine's current zone.
  [[nodiscard]] std::string dayKey(Date date) const;

  DefaultsStore& store_;
  TextDictionary notes_;
  // Made at the first use: until a panel opens nobody asks, and the calendar library stays
  // unloaded.
  mutable std::optional<DateFormatter> formatter_;
  Subscription cameIn_;
};

}  // namespace Hilalor
