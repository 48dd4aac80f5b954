#include "desktop/store/SqliteDefaultsStore.hpp"

#include <algorithm>
#include <string>
#include <system_error>
#include <type_traits>
#include <utility>

#include "desktop/store/SetAside.hpp"
#include "desktop/store/UserFolders.hpp"

namespace Hilalor::Desktop {
namespace {

// For another program's lock. Everything later depends on what a start reads.
constexpr std::chrono::milliseconds kStartPatience{500};

/// From the last write to the moment when the log is taken into the file.
constexpr Seconds kQuiet{3};
/// A write of so many bytes, or the folding of a log of so many, takes longer than a frame of the
/// screen on a slow disk.
constexpr std::size_t kLongText = 128 * 1024;
constexpr std::int64_t kLongLog = 4 * 1024 * 1024;

constexpr Seconds kFirstRetry{1};
constexpr Seconds kLongestRetry{64};

DefaultsContent part(const DefaultsContent& content, const UnwrittenPlaces& places) {
  DefaultsContent found;
  for (const auto& place : places) {
    const auto value = content.find(place);
    if (value != content.end()) found.insert(found.end(), *value);
  }
  return found;
}

bool hasLongText(const DefaultsContent& content, const UnwrittenPlaces& places) {
  return std::ranges::any_of(places, [&](const DefaultsPlace& place) {
    const auto found = content.find(place);
    const auto* text = found != content.end() ? std::get_if<std::string>(&found->second) : nullptr;
    return text != nullptr && text->size() >= kLongText;
  });
}

}  // namespace

std::filesystem::path SqliteDefaultsStore::userFile() {
  return userConfigFolder() / "hilalor" / "defaults.sqlite";
}

SqliteDefaultsStore::SqliteDefaultsStore(std::filesystem::path file, RunLoop& loop)
    : path_(std::move(file)), loop_(loop), retryDelay_(kFirstRetry) {
  std::error_code error;
  if (!std::filesystem::exists(path_, error) && !error) return;
  isRead_ = false;
  connect(kStartPatience);
  if (!unwritten_.empty()) writeThrough();
  // A program that was killed left its last writes in the log.
  foldLater();
  if (!isRead_) tryLater();
}

SqliteDefaultsStore::~SqliteDefaultsStore() {
  close();
}

void SqliteDefaultsStore::close() {
  folding_.reset();
  // Finishing may begin further work.
  while (work_)
    finishWork();
  if (!unwritten_.empty()) writeUnwritten();
  file_.reset();
}

void SqliteDefaultsStore::lookAgain() {
  if (work_ || (file_ && file_->condition() == DefaultsFile::Condition::untouched)) return;
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
  if (work_ && work_->isDone()) finishWork();
  // What is set meanwhile goes after it.
  if (work_) return;
  if (hasLongText(content_, unwritten_)) {
    leaveWhatOthersTouched();
    if (file_) return workInBackground();
  }
  if (!writeUnwritten()) return tryLater();
  becomeKept();
  foldLater();
}

// Whether everything is on the disk, and all that is there is known.
bool SqliteDefaultsStore::writeUnwritten() {
  leaveWhatOthersTouched();
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
        leaveDamaged();
    }
  }
  return false;
}

void SqliteDefaultsStore::leaveWhatOthersTouched() {
  if (!file_) return;
  const auto condition = file_->condition();
  if (condition == DefaultsFile::Condition::untouched) return;
  if (condition == DefaultsFile::Condition::logLost) memoryIsNewest_ = true;
  file_->leave(condition);
  file_.reset();
}

void SqliteDefaultsStore::leaveDamaged() {
  memoryIsNewest_ = true;
  file_.reset();
}

// Writes what waits, if anything does, and takes a long log into the file.
void SqliteDefaultsStore::workInBackground() {
  inWork_ = std::exchange(unwritten_, {});
  work_ = std::make_shared<DiskJob>(
      [file = file_.get(), content = part(content_, inWork_), places = inWork_] {
        auto outcome = DefaultsFile::Outcome::done;
        if (!places.empty()) outcome = file->write(content, places);
        if (places.empty() || file->logSize() > kLongLog) file->fold();
        return outcome;
      });
  loop_.inBackground([this, work = work_, alive = std::weak_ptr(alive_)]() -> RunLoop::Task {
    work->outcome();
    return [this, work, alive] {
      if (alive.lock() && work_ == work) finishWork();
    };
  });
}

void SqliteDefaultsStore::finishWork() {
  const auto outcome = std::exchange(work_, nullptr)->outcome();
  const auto places = std::exchange(inWork_, {});
  if (outcome != DefaultsFile::Outcome::done) unwritten_.insert(places.begin(), places.end());
  if (outcome == DefaultsFile::Outcome::refused) return tryLater();
  if (outcome == DefaultsFile::Outcome::damaged) leaveDamaged();
  if (!unwritten_.empty() || !file_) return writeThrough();
  becomeKept();
  // A log that another program holds up is folded after the next write.
  if (!places.empty()) foldLater();
}

void SqliteDefaultsStore::becomeKept() {
  retry_.reset();
  retryDelay_ = kFirstRetry;
  tellWhetherKept();
}

void SqliteDefaultsStore::foldLater() {
  if (!file_ || file_->logSize() == 0) return folding_.reset();
  if (file_->logSize() > kLongLog) return workInBackground();
  folding_ = loop_.once(kQuiet, [this] {
    const auto finished = std::move(folding_);
    const bool isUntouched =
        file_ && !work_ && file_->condition() == DefaultsFile::Condition::untouched;
    if (isUntouched && unwritten_.empty()) return workInBackground();
    writeThrough();
  });
}

void SqliteDefaultsStore::tellWhetherKept() {
  if (isKept.value() != unwritten_.empty()) isKept.assign(unwritten_.empty());
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
  reconcile(std::move(salvaged));
  for (const auto& [place, value] : content_) {
    if (!std::holds_alternative<OpaqueValue>(value)) unwritten_.insert(place);
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
  if (std::exchange(memoryIsNewest_, false)) {
    for (const auto& item : content_)
      unwritten_.insert(item.first);
    for (const auto& item : stored) {
      if (item.first.entry && !content_.contains(item.first)) unwritten_.insert(item.first);
    }
  }
  if (givesWayTo(stored)) keepCopyOfContent();
  for (const auto& place : unwritten_) {
    if (!content_.contains(place)) stored.erase(place);
  }
  for (auto& [place, value] : content_) {
    const bool isNews = unwritten_.contains(place);
    if (!isNews && (stored.contains(place) || std::holds_alternative<OpaqueValue>(value))) continue;
    unwritten_.insert(place);
    if (place.entry) makeDictionary(place.key, stored, isNews);
    stored.insert_or_assign(place, std::move(value));
  }
  content_ = std::move(stored);
}

// Makes room for an entry of ours. A plain value of the file's gives way to news alone.
void SqliteDefaultsStore::makeDictionary(const std::string& key, DefaultsContent& stored,
                                         bool isNews) {
  const DefaultsPlace head{key, std::nullopt};
  const auto [found, isAbsent] = stored.try_emplace(head, DictionaryMark());
  if (std::holds_alternative<DictionaryMark>(found->second) && !isAbsent) return;
  if (!isAbsent && !isNews && !std::holds_alternative<OpaqueValue>(found->second)) return;
  found->second = DictionaryMark();
  unwritten_.insert(head);
}

// Whether an entry that is remembered is another there.
bool SqliteDefaultsStore::givesWayTo(const DefaultsContent& stored) const {
  return std::ranges::any_of(content_, [&](const auto& item) {
    if (!item.first.entry || unwritten_.contains(item.first)) return false;
    const auto found = stored.find(item.first);
    return found != stored.end() && found->second != item.second;
  });
}

void SqliteDefaultsStore::keepCopyOfContent() const {
  UnwrittenPlaces all;
  for (const auto& item : content_)
    all.insert(item.first);
  const auto copy = DefaultsFile::open(nameAside(path_, "replaced"), kStartPatience);
  if (copy.file) copy.file->write(content_, all);
}

void SqliteDefaultsStore::tryLater() {
  tellWhetherKept();
  if (retry_) return;
  retry_ = loop_.once(retryDelay_, [this] {
    const auto finished = std::move(retry_);
    writeThrough();
  });
  retryDelay_ = std::min(retryDelay_ * 2, kLongestRetry);
}

}  // namespace Hilalor::Desktop
