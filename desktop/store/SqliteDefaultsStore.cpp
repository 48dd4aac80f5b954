#include "desktop/store/SqliteDefaultsStore.hpp"

#include <algorithm>
#include <string>
#include <system_error>
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
  if (!memory_.unwritten.empty()) writeThrough();
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
  if (!memory_.unwritten.empty()) writeUnwritten();
  file_.reset();
}

void SqliteDefaultsStore::lookAgain() {
  if (work_ || (file_ && file_->condition() == DefaultsFile::Condition::untouched)) return;
  // One that is gone is made anew by the next write.
  std::error_code error;
  if (std::filesystem::exists(path_, error)) writeThrough();
}

std::optional<DefaultsValue> SqliteDefaultsStore::value(std::string_view key) const {
  return plainValue(memory_.content(), std::string(key));
}

void SqliteDefaultsStore::setValue(std::string_view key, const DefaultsValue& value) {
  memory_.setValue(std::string(key), value);
  writeThrough();
}

std::optional<TextDictionary> SqliteDefaultsStore::dictionary(std::string_view key) const {
  return memory_.dictionary(std::string(key));
}

void SqliteDefaultsStore::setDictionary(std::string_view key, const TextDictionary& dictionary) {
  memory_.setDictionary(std::string(key), dictionary);
  writeThrough();
}

void SqliteDefaultsStore::setEntry(std::string_view key, std::string_view entry,
                                   const std::optional<std::string>& text) {
  memory_.setEntry(std::string(key), entry, text);
  writeThrough();
}

void SqliteDefaultsStore::writeThrough() {
  if (work_ && work_->isDone()) finishWork();
  // What is set meanwhile goes after it.
  if (work_) return;
  if (memory_.hasLongUnwritten(kLongText)) {
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
    if (!file_) return isRead_ && memory_.unwritten.empty();
    if (memory_.unwritten.empty()) return true;
    switch (file_->write(memory_.content(), memory_.unwritten)) {
      case DefaultsFile::Outcome::done:
        memory_.unwritten.clear();
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
  inWork_ = std::exchange(memory_.unwritten, {});
  work_ = std::make_shared<DiskJob>(
      [file = file_.get(), content = memory_.part(inWork_), places = inWork_] {
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
  if (outcome != DefaultsFile::Outcome::done)
    memory_.unwritten.insert(places.begin(), places.end());
  if (outcome == DefaultsFile::Outcome::refused) return tryLater();
  if (outcome == DefaultsFile::Outcome::damaged) leaveDamaged();
  if (!memory_.unwritten.empty() || !file_) return writeThrough();
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
    if (isUntouched && memory_.unwritten.empty()) return workInBackground();
    writeThrough();
  });
}

void SqliteDefaultsStore::tellWhetherKept() {
  if (isKept.value() != memory_.unwritten.empty()) isKept.assign(memory_.unwritten.empty());
}

void SqliteDefaultsStore::connect(std::chrono::milliseconds patience) {
  auto opened = DefaultsFile::open(path_, patience);
  if (opened.salvaged) {
    isRead_ = true;
    take(std::move(*opened.salvaged));
    // The file that was set aside holds nothing for the next start.
    memory_.writeAll();
  }
  if (!opened.file) {
    if (!isRead_) readProtected();
    return;
  }
  file_ = std::move(opened.file);
  if (!isRead_) memory_.forgetWritten();
  isRead_ = true;
  take(std::move(opened.stored));
}

// Opens the file once more, and tells if anything came in by it.
void SqliteDefaultsStore::reconnect() {
  const bool wasRead = isRead_;
  const auto before = memory_.content();
  connect(DefaultsFile::kWritePatience);
  if (isRead_ == wasRead && memory_.content() == before) return;
  telling_ = loop_.once(Seconds(0), [this] {
    const auto finished = std::move(telling_);
    cameIn.emit();
  });
}

// Reads what can be read of a file that cannot be opened for writing.
void SqliteDefaultsStore::readProtected() {
  auto found = DefaultsFile::readProtected(path_);
  if (!found.isWhole && found.content.empty()) return;
  memory_.forgetWritten();
  memory_.add(std::move(found.content));
  isRead_ = found.isWhole;
}

// Takes over what a file holds.
void SqliteDefaultsStore::take(DefaultsContent stored) {
  if (std::exchange(memoryIsNewest_, false)) return memory_.overrule(std::move(stored));
  if (memory_.givesWayTo(stored)) keepCopyOfContent();
  memory_.reconcile(std::move(stored));
}

void SqliteDefaultsStore::keepCopyOfContent() const {
  UnwrittenPlaces all;
  for (const auto& item : memory_.content())
    all.insert(item.first);
  const auto copy = DefaultsFile::open(nameAside(path_, "replaced"), kStartPatience);
  if (copy.file) copy.file->write(memory_.content(), all);
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
