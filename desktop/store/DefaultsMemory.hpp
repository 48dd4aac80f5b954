#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "desktop/store/DefaultsContent.hpp"

namespace Hilalor::Desktop {

/// What a store remembers of its file and of what was set since, and which of it is to be written.
/// Main thread.
class DefaultsMemory {
 public:
  [[nodiscard]] const DefaultsContent& content() const { return content_; }

  /// Places to write as they are in the content. What is written is taken out by the store.
  UnwrittenPlaces unwritten;

  /// Whether a text of that many bytes or more is to be written.
  [[nodiscard]] bool hasLongUnwritten(std::size_t bytes) const;

  /// What is at those places.
  [[nodiscard]] DefaultsContent part(const UnwrittenPlaces& places) const;

  // As the functions of DefaultsStore.
  [[nodiscard]] std::optional<TextDictionary> dictionary(const std::string& key) const;
  void setValue(const std::string& key, const DefaultsValue& value);
  void setDictionary(const std::string& key, const TextDictionary& dictionary);
  void setEntry(const std::string& key, std::string_view entry,
                const std::optional<std::string>& text);

  /// Forgets what came from the file: without its log a file holds values that have long been
  /// changed or taken away.
  void forgetWritten();

  /// Adds what is not known yet of a file that was read but cannot be opened for writing.
  void add(DefaultsContent stored);

  /// Brings together what the file just opened holds with what is remembered. What is unwritten
  /// stands, else the file's value does; what the file lacks is to be written.
  void reconcile(DefaultsContent stored);

  /// The same with a file that lacks what this program wrote, or has it wrong: all that is
  /// remembered is to be written, and entries that are not remembered are to be taken out.
  void overrule(DefaultsContent stored);

  /// Whether an entry that is remembered, and was written, is another there.
  [[nodiscard]] bool givesWayTo(const DefaultsContent& stored) const;

  /// Everything is to be written, but for values that nobody could read.
  void writeAll();

 private:
  [[nodiscard]] bool holdsDictionary(const std::string& key) const;
  void put(DefaultsPlace place, StoredValue value);
  void takeOut(const DefaultsPlace& place);
  void takeOutEntries(const std::string& key);
  void makeDictionary(const std::string& key, DefaultsContent& stored, bool isNews);

  DefaultsContent content_;
};

}  // namespace Hilalor::Desktop
