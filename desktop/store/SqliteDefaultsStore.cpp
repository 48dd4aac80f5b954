#include "desktop/store/SqliteDefaultsStore.hpp"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <string>
#include <system_error>
#include <type_traits>
#include <utility>

namespace Hilalor {
namespace {

// For another program's lock. All that follows hangs on what a start reads.
constexpr std::chrono::milliseconds kStartPatience{500};

constexpr Seconds kFirstRetry{1};
constexpr Seconds kLongestRetry{64};

std::filesystem::path absolutePath(const char* variable) {
  const char* text = std::getenv(variable);
  const std::filesystem::path path(text != nullptr ? text : "");
  return path.is_absolute() ? path : std::filesystem::path();
}

std::filesystem::path homeFolder() {
  if (auto home = absolutePath("HOME"); !home.empty()) return home;
  const passwd* user = getpwuid(getuid());
  return user != nullptr ? user->pw_dir : "/";
}

}  // namespace

std::filesystem::path SqliteDefaultsStore::userFile() {
  auto folder = absolutePath("XDG_CONFIG_HOME");
  if (folder.empty()) folder = homeFolder() / ".config";
  return folder / "hilalor" / "defaults.sqlite";
}

SqliteDefaultsStore::SqliteDefaultsStore(std::filesystem::path file, RunLoop& loop)
    : path_(std::move(file)), loop_(loop), retryDelay_(kFirstRetry) {
  std::error_code error;
  if (!std::filesystem::exists(path_, error) && !error) return;
  isRead_ = false;
  connect(kStartPatience);
  if (!unwritten_.empty()) writeThrough();
  if (!isRead_) tryLater();
}

SqliteDefaultsStore::~SqliteDefaultsStore() {
  close();
}

void SqliteDefaultsStore::close() {
  if (!unwritten_.empty()) writeUnwritten();
  file_.reset();
}

void SqliteDefaultsStore::lookAgain() {
  if (file_ && !file_->hasMoved()) return;
  // One that is gone is made anew by the next write.
  std::error_code error;
  if (std::filesystem::exists(path_, error)) writeThrough();
}

std::optional<DefaultsValue> SqliteDefaultsStore::value(std::string_view key) const {
  const auto found = content_.find({std::string(key), std::nullopt});
  if (found == content_.end()) return std::nullopt;
  return std::visit(
      [](const auto& stored) -> std::optional<DefaultsValue> {
        if constexpr (std::is_same_v<decltype(stored), const DictionaryMark&>) {
          return std::nullopt;
        } else {
          return stored;
        }
      },
      found->second);
}

void SqliteDefaultsStore::setValue(std::string_view key, const DefaultsValue& value) {
  const std::string name(key);
  takeOutEntries(name);
  put({name, std::nullopt},
      std::visit([](const auto& plain) { return StoredValue(plain); }, value));
  writeThrough();
}

std::optional<TextDictionary> SqliteDefaultsStore::dictionary(std::string_view key) const {
  const std::string name(key);
  if (!holdsDictionary(name)) return std::nullopt;
  TextDictionary dictionary;
  auto place = std::next(content_.find({name, std::nullopt}));
  for (; place != content_.end() && place->first.key == name; ++place) {
    const auto* text = std::get_if<std::string>(&place->second);
    if (text != nullptr) dictionary.emplace_hint(dictionary.end(), *place->first.entry, *text);
  }
  return dictionary;
}

void SqliteDefaultsStore::setDictionary(std::string_view key, const TextDictionary& dictionary) {
  const std::string name(key);
  takeOutEntries(name);
  put({name, std::nullopt}, DictionaryMark());
  for (const auto& [entry, text] : dictionary)
    put({name, entry}, text);
  writeThrough();
}

void SqliteDefaultsStore::setEntry(std::string_view key, std::string_view entry,
                                   const std::optional<std::string>& text) {
  const std::string name(key);
  if (!holdsDictionary(name)) {
    takeOutEntries(name);
    put({name, std::nullopt}, DictionaryMark());
  }
  DefaultsPlace place{name, std::string(entry)};
  if (text) {
    put(std::move(place), *text);
  } else {
    takeOut(place);
  }
  writeThrough();
}

bool SqliteDefaultsStore::holdsDictionary(const std::string& key) const {
  const auto found = content_.find({key, std::nullopt});
  return found != content_.end() && std::holds_alternative<DictionaryMark>(found->second);
}

void SqliteDefaultsStore::put(DefaultsPlace place, StoredValue value) {
  unwritten_.insert(place);
  content_.insert_or_assign(std::move(place), std::move(value));
}

void SqliteDefaultsStore::takeOut(const DefaultsPlace& place) {
  unwritten_.insert(place);
  content_.erase(place);
}

void SqliteDefaultsStore::takeOutEntries(const std::string& key) {
  auto place = content_.upper_bound({key, std::nullopt});
  while (place != content_.end() && place->first.key == key) {
    unwritten_.insert(place->first);
    place = content_.erase(place);
  }
}

void SqliteDefaultsStore::writeThrough() {
  if (!writeUnwritten()) return tryLater();
  retry_.reset();
  retryDelay_ = kFirstRetry;
}

// Whether everything is on the disk, and all that is there is known.
bool SqliteDefaultsStore::writeUnwritten() {
  if (file_ && file_->leaveIfMoved()) file_.reset();
  // A file found damaged is set aside by opening it once more; the second is a new one.
  for (int attempt = 0; attempt < 2; ++attempt) {
    if (!file_) reconnect();
    if (!file_) return isRead_ && unwritten_.empty();
    if (unwritten_.empty()) return true;
    switch (file_->write(content_, unwritten_)) {
      case DefaultsFile::Outcome::done:
        unwritten_.clear();
        return true;
      case DefaultsFile::Outcome::refused:
        return false;
      case DefaultsFile::Outcome::damaged:
        file_.reset();
    }
  }
  return false;
}

void SqliteDefaultsStore::connect(std::chrono::milliseconds patience) {
  auto opened = DefaultsFile::open(path_, patience);
  if (opened.salvaged) takeSalvaged(std::move(*opened.salvaged));
  if (!opened.file) {
    if (!isRead_) readProtected();
    return;
  }
  file_ = std::move(opened.file);
  if (!isRead_) forgetWritten();
  isRead_ = true;
  reconcile(std::move(opened.stored));
}

// Opens the file once more, and tells if anything came in by it.
void SqliteDefaultsStore::reconnect() {
  const bool wasRead = isRead_;
  const auto before = content_;
  connect(DefaultsFile::kWritePatience);
  if (isRead_ == wasRead && content_ == before) return;
  telling_ = loop_.once(Seconds(0), [this] {
    const auto finished = std::move(telling_);
    cameIn.emit();
  });
}

// A damaged file that was set aside holds nothing for the next start: all of this is to be written.
void SqliteDefaultsStore::takeSalvaged(DefaultsContent salvaged) {
  isRead_ = true;
  for (auto& [place, value] : salvaged) {
    if (unwritten_.contains(place)) continue;
    const bool isOpaque = std::holds_alternative<OpaqueValue>(value);
    const bool isNew = content_.try_emplace(place, std::move(value)).second;
    if (isNew && !isOpaque) unwritten_.insert(place);
  }
}

// Reads what can be read of a file that cannot be opened for writing.
void SqliteDefaultsStore::readProtected() {
  auto found = DefaultsFile::readProtected(path_);
  if (!found.isWhole && found.content.empty()) return;
  forgetWritten();
  std::erase_if(found.content, [&](const auto& item) { return unwritten_.contains(item.first); });
  content_.merge(found.content);
  isRead_ = found.isWhole;
}

// Without its log a file holds values that have long been changed or taken away.
void SqliteDefaultsStore::forgetWritten() {
  std::erase_if(content_, [&](const auto& item) { return !unwritten_.contains(item.first); });
}

// Brings together what the file just opened holds with what is remembered.
void SqliteDefaultsStore::reconcile(DefaultsContent stored) {
  for (const auto& place : unwritten_) {
    if (!content_.contains(place)) stored.erase(place);
  }
  std::set<std::string> dictionaries;
  for (auto& [place, value] : content_) {
    if (std::holds_alternative<DictionaryMark>(value)) dictionaries.insert(place.key);
    const bool isNews = unwritten_.contains(place);
    if (!isNews && (stored.contains(place) || std::holds_alternative<OpaqueValue>(value))) continue;
    if (place.entry) dictionaries.insert(place.key);
    unwritten_.insert(place);
    stored.insert_or_assign(place, std::move(value));
  }
  content_ = std::move(stored);
  for (const auto& key : dictionaries)
    makeReadable(key);
}

// Takes out of a dictionary the entries that are no text, for which all of it would be ignored.
void SqliteDefaultsStore::makeReadable(const std::string& dictionary) {
  const DefaultsPlace head{dictionary, std::nullopt};
  const auto found = content_.find(head);
  const bool isAbsent = found == content_.end();
  if (isAbsent || std::holds_alternative<OpaqueValue>(found->second)) put(head, DictionaryMark());
  if (!holdsDictionary(dictionary)) return;
  auto place = content_.upper_bound(head);
  while (place != content_.end() && place->first.key == dictionary) {
    const auto next = std::next(place);
    if (!std::holds_alternative<std::string>(place->second)) takeOut(DefaultsPlace(place->first));
    place = next;
  }
}

void SqliteDefaultsStore::tryLater() {
  if (retry_) return;
  retry_ = loop_.once(retryDelay_, [this] {
    const auto finished = std::move(retry_);
    writeThrough();
  });
  retryDelay_ = std::min(retryDelay_ * 2, kLongestRetry);
}

}  // namespace Hilalor
