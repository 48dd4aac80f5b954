#include "desktop/store/DefaultsMemory.hpp"

#include <algorithm>
#include <iterator>
#include <utility>
#include <variant>

namespace Hilalor::Desktop {

bool DefaultsMemory::holdsDictionary(const std::string& key) const {
  const auto found = content_.find({key, std::nullopt});
  return found != content_.end() && std::holds_alternative<DictionaryMark>(found->second);
}

std::optional<TextDictionary> DefaultsMemory::dictionary(const std::string& key) const {
  if (!holdsDictionary(key)) return std::nullopt;
  TextDictionary dictionary;
  auto place = std::next(content_.find({key, std::nullopt}));
  for (; place != content_.end() && place->first.key == key; ++place) {
    const auto* text = std::get_if<std::string>(&place->second);
    if (text != nullptr) dictionary.emplace_hint(dictionary.end(), *place->first.entry, *text);
  }
  return dictionary;
}

bool DefaultsMemory::hasLongUnwritten(std::size_t bytes) const {
  return std::ranges::any_of(unwritten, [&](const DefaultsPlace& place) {
    const auto found = content_.find(place);
    const auto* text = found != content_.end() ? std::get_if<std::string>(&found->second) : nullptr;
    return text != nullptr && text->size() >= bytes;
  });
}

DefaultsContent DefaultsMemory::part(const UnwrittenPlaces& places) const {
  DefaultsContent found;
  for (const auto& place : places) {
    const auto value = content_.find(place);
    if (value != content_.end()) found.insert(found.end(), *value);
  }
  return found;
}

void DefaultsMemory::setValue(const std::string& key, const DefaultsValue& value) {
  takeOutEntries(key);
  put({key, std::nullopt}, std::visit([](const auto& plain) { return StoredValue(plain); }, value));
}

void DefaultsMemory::setDictionary(const std::string& key, const TextDictionary& dictionary) {
  takeOutEntries(key);
  put({key, std::nullopt}, DictionaryMark());
  for (const auto& [entry, text] : dictionary)
    put({key, entry}, text);
}

void DefaultsMemory::setEntry(const std::string& key, std::string_view entry,
                              const std::optional<std::string>& text) {
  if (!holdsDictionary(key)) {
    takeOutEntries(key);
    put({key, std::nullopt}, DictionaryMark());
  }
  DefaultsPlace place{key, std::string(entry)};
  if (text) {
    put(std::move(place), *text);
  } else {
    takeOut(place);
  }
}

void DefaultsMemory::put(DefaultsPlace place, StoredValue value) {
  unwritten.insert(place);
  content_.insert_or_assign(std::move(place), std::move(value));
}

void DefaultsMemory::takeOut(const DefaultsPlace& place) {
  unwritten.insert(place);
  content_.erase(place);
}

void DefaultsMemory::takeOutEntries(const std::string& key) {
  auto place = content_.upper_bound({key, std::nullopt});
  while (place != content_.end() && place->first.key == key) {
    unwritten.insert(place->first);
    place = content_.erase(place);
  }
}

void DefaultsMemory::forgetWritten() {
  std::erase_if(content_, [&](const auto& item) { return !unwritten.contains(item.first); });
}

void DefaultsMemory::add(DefaultsContent stored) {
  std::erase_if(stored, [&](const auto& item) { return unwritten.contains(item.first); });
  content_.merge(stored);
}

void DefaultsMemory::overrule(DefaultsContent stored) {
  for (const auto& item : content_)
    unwritten.insert(item.first);
  for (const auto& item : stored) {
    if (item.first.entry && !content_.contains(item.first)) unwritten.insert(item.first);
  }
  reconcile(std::move(stored));
}

void DefaultsMemory::reconcile(DefaultsContent stored) {
  for (const auto& place : unwritten) {
    if (!content_.contains(place)) stored.erase(place);
  }
  for (auto& [place, value] : content_) {
    const bool isNews = unwritten.contains(place);
    if (!isNews && (stored.contains(place) || std::holds_alternative<OpaqueValue>(value))) continue;
    unwritten.insert(place);
    if (place.entry) makeDictionary(place.key, stored, isNews);
    stored.insert_or_assign(place, std::move(value));
  }
  content_ = std::move(stored);
}

// Makes room for an entry of ours. A plain value of the file's gives way to news alone.
void DefaultsMemory::makeDictionary(const std::string& key, DefaultsContent& stored, bool isNews) {
  const DefaultsPlace head{key, std::nullopt};
  const auto [found, isAbsent] = stored.try_emplace(head, DictionaryMark());
  if (std::holds_alternative<DictionaryMark>(found->second) && !isAbsent) return;
  if (!isAbsent && !isNews && !std::holds_alternative<OpaqueValue>(found->second)) return;
  found->second = DictionaryMark();
  unwritten.insert(head);
}

bool DefaultsMemory::givesWayTo(const DefaultsContent& stored) const {
  return std::ranges::any_of(content_, [&](const auto& item) {
    if (!item.first.entry || unwritten.contains(item.first)) return false;
    const auto found = stored.find(item.first);
    return found != stored.end() && found->second != item.second;
  });
}

void DefaultsMemory::writeAll() {
  for (const auto& [place, value] : content_) {
    if (!std::holds_alternative<OpaqueValue>(value)) unwritten.insert(place);
  }
}

}  // namespace Hilalor::Desktop
