#include "rules/calendar/NotesStore.hpp"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace Hilalor {
namespace {

constexpr const char* kDayNotes = "dayNotes";

// The characters with Unicode's property White_Space.
constexpr std::array<std::string_view, 25> kWhiteSpace{
    "\t",     "\n",     "\v",     "\f",     "\r",     " ",      "\u0085", "\u00a0", "\u1680",
    "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007", "\u2008",
    "\u2009", "\u200a", "\u2028", "\u2029", "\u202f", "\u205f", "\u3000"};

bool isBlank(std::string_view text) {
  while (!text.empty()) {
    const auto found =
        std::find_if(kWhiteSpace.begin(), kWhiteSpace.end(),
                     [&](std::string_view space) { return text.starts_with(space); });
    if (found == kWhiteSpace.end()) return false;
    text.remove_prefix(found->size());
  }
  return true;
}

}  // namespace

NotesStore::NotesStore(DefaultsStore& store)
    : store_(store),
      notes_(store.dictionary(kDayNotes).value_or(TextDictionary())),
      cameIn_(store.cameIn.subscribe([this] { reload(); })) {}

void NotesStore::reload() {
  auto stored = store_.dictionary(kDayNotes).value_or(TextDictionary());
  if (stored == notes_) return;
  willChange.emit();
  notes_ = std::move(stored);
}

std::string NotesStore::dayKey(Date date) const {
  if (!formatter_) formatter_.emplace("yyyy-MM-dd");
  return formatter_->string(date);
}

bool NotesStore::hasNote(Date date) const {
  const auto found = notes_.find(dayKey(date));
  return found != notes_.end() && !found->second.empty();
}

std::string NotesStore::note(Date date) const {
  const auto found = notes_.find(dayKey(date));
  return found != notes_.end() ? found->second : "";
}

void NotesStore::setNote(const std::string& text, Date date) {
  const auto key = dayKey(date);
  willChange.emit();
  if (isBlank(text)) {
    notes_.erase(key);
    store_.setEntry(kDayNotes, key, std::nullopt);
  } else {
    notes_.insert_or_assign(key, text);
    store_.setEntry(kDayNotes, key, text);
  }
}

}  // namespace Hilalor
