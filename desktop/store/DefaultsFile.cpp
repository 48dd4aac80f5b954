#include "desktop/store/DefaultsFile.hpp"

#include <cassert>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <variant>

#include "desktop/store/DefaultsReader.hpp"
#include "desktop/store/HeaderRepair.hpp"
#include "desktop/store/PrivatePlace.hpp"
#include "desktop/store/SetAside.hpp"

namespace Hilalor::Desktop {
namespace {

// Plain tables with an index beside them: a damaged page then costs no more than its own rows.
constexpr const char* kPreparation =
    "PRAGMA journal_mode = WAL;"
    "PRAGMA synchronous = NORMAL;"
    "PRAGMA cache_size = -256;"
    // The log is folded in quiet moments, never within a write.
    "PRAGMA wal_autocheckpoint = 0;"
    "BEGIN;"
    "CREATE TABLE IF NOT EXISTS defaults(key TEXT NOT NULL UNIQUE, type TEXT NOT NULL, value);"
    "CREATE TABLE IF NOT EXISTS"
    "  entries(key TEXT NOT NULL, entry TEXT NOT NULL, value, UNIQUE(key, entry));"
    "COMMIT;";

// A row that is there is changed in place, which leaves the index alone.
constexpr const char* kPutValue =
    "INSERT INTO defaults(key, type, value) VALUES(?1, ?2, ?3)"
    "  ON CONFLICT DO UPDATE SET type = excluded.type, value = excluded.value";
constexpr const char* kPutEntry =
    "INSERT INTO entries(key, entry, value) VALUES(?1, ?2, ?3) ON CONFLICT DO UPDATE SET value = "
    "excluded.value";
constexpr const char* kRemoveEntry = "DELETE FROM entries WHERE key = ?1 AND entry = ?2";

bool isDamage(int status) {
  // A plain error is a statement that the tables do not fit: they are not ours.
  return status == SQLITE_CORRUPT || status == SQLITE_NOTADB || status == SQLITE_ERROR;
}

// Binds a value with its type's name.
struct ValueBinder {
  SqliteStatement& row;

  void operator()(bool truth) const { typed(DefaultsType::kBoolean, std::int64_t{truth ? 1 : 0}); }
  void operator()(std::int64_t number) const { typed(DefaultsType::kInteger, number); }
  void operator()(double number) const { typed(DefaultsType::kReal, number); }
  void operator()(const std::string& text) const { typed(DefaultsType::kText, text); }
  void operator()(OpaqueValue) const { row.bind(2, DefaultsType::kOpaque); }
  void operator()(DictionaryMark) const { row.bind(2, DefaultsType::kDictionary); }

  template <typename Value>
  void typed(std::string_view type, const Value& value) const {
    row.bind(2, type);
    row.bind(3, value);
  }
};

}  // namespace

DefaultsFile::Opened DefaultsFile::open(const std::filesystem::path& path,
                                        std::chrono::milliseconds patience) {
  Opened opened;
  if (tryOpen(path, patience, opened) == Outcome::damaged && setAside(path)) {
    tryOpen(path, patience, opened);
  }
  return opened;
}

DefaultsFile::Outcome DefaultsFile::tryOpen(const std::filesystem::path& path,
                                            std::chrono::milliseconds patience, Opened& opened) {
  if (!makePrivatePlace(path)) return Outcome::refused;
  auto connection = SqliteConnection::open(path, SqliteConnection::Access::readWrite);
  if (!connection || connection->isReadOnly()) return Outcome::refused;
  connection->setPatience(patience);
  DefaultsContent content;
  int status = checkSoundness(*connection);
  if (status == SQLITE_OK) status = connection->execute(kPreparation);
  if (status == SQLITE_OK) status = loadContent(*connection, content);
  // Its permissions allow writing; only a damaged header then forbids it.
  if (connection->isReadOnly()) status = SQLITE_CORRUPT;
  if (status == SQLITE_OK) {
    connection->setPatience(kWritePatience);
    opened.stored = std::move(content);
    opened.file.reset(new DefaultsFile(path, std::move(connection)));
    return Outcome::done;
  }
  if (!isDamage(status) || connection->hasMoved()) return Outcome::refused;
  opened.salvaged = readableContent(*connection);
  opened.salvaged->merge(contentUnderSoundHeader(path));
  connection->keepLogOnClose();
  return Outcome::damaged;
}

DefaultsFile::Protected DefaultsFile::readProtected(const std::filesystem::path& path) {
  using Access = SqliteConnection::Access;
  Protected found;
  found.isWhole = !holdsFilesOnly(path);
  if (found.isWhole) return found;
  bool isLogRead = true;
  // A folder that nothing can be made in has no room for the log's index, without which SQLite
  // reads only the file proper. A program that ended well left nothing in the log.
  for (const auto access : {Access::readOnly, Access::snapshot}) {
    const auto connection = SqliteConnection::open(path, access);
    if (!connection) continue;
    if (access == Access::snapshot && hasLog(path)) isLogRead = false;
    int status = checkSoundness(*connection);
    if (status == SQLITE_OK) status = loadContent(*connection, found.content);
    found.isWhole = isLogRead && (status == SQLITE_OK || isDamage(status));
    if (status == SQLITE_OK) break;
    if (status == SQLITE_BUSY) isLogRead = false;
    found.content = readableContent(*connection);
    if (!found.content.empty()) break;
  }
  return found;
}

DefaultsFile::DefaultsFile(const std::filesystem::path& path,
                           std::unique_ptr<SqliteConnection> connection)
    : path_(path),
      connection_(std::move(connection)),
      begin_(*connection_, "BEGIN IMMEDIATE"),
      commit_(*connection_, "COMMIT"),
      putValue_(*connection_, kPutValue),
      putEntry_(*connection_, kPutEntry),
      removeEntry_(*connection_, kRemoveEntry) {
  lookAtFiles();
}

void DefaultsFile::lookAtFiles() {
  database_ = FileStamp::of(path_);
  log_ = FileStamp::of(logOf(path_));
  dataVersion_ = connection_->dataVersion();
}

void DefaultsFile::fold() {
  connection_->execute("PRAGMA wal_checkpoint(TRUNCATE)");
  lookAtFiles();
}

DefaultsFile::Condition DefaultsFile::condition() {
  // Only folding changes the file itself.
  if (FileStamp::of(path_) != database_) return Condition::replaced;
  return isLogUntouched() ? Condition::untouched : Condition::logLost;
}

bool DefaultsFile::isLogUntouched() {
  const auto now = FileStamp::of(logOf(path_));
  if (now == log_) return true;
  if (!now || !log_ || now->id != log_->id || now->size < log_->size) return false;
  // Another program may have written to it by SQLite.
  log_ = now;
  const auto before = std::exchange(dataVersion_, connection_->dataVersion());
  return dataVersion_ != before;
}

void DefaultsFile::leave(Condition condition) {
  // The log belongs to the file that was open, not to one that was copied over it.
  connection_->keepLogOnClose();
  const bool isLogOfTheOther =
      condition == Condition::replaced && FileStamp::of(logOf(path_)) != log_;
  if (isLogOfTheOther) return;
  std::error_code error;
  std::filesystem::remove(logOf(path_), error);
  std::filesystem::remove(path_.string() + "-shm", error);  // the log's index
}

DefaultsFile::Outcome DefaultsFile::write(const DefaultsContent& content,
                                          const UnwrittenPlaces& places) {
  int status = begin_.run();
  for (auto place = places.begin(); status == SQLITE_DONE && place != places.end(); ++place) {
    const auto found = content.find(*place);
    status = writePlace(*place, found != content.end() ? &found->second : nullptr);
  }
  if (status == SQLITE_DONE) status = commit_.run();
  log_ = FileStamp::of(logOf(path_));
  if (status == SQLITE_DONE) return Outcome::done;
  connection_->execute("ROLLBACK");
  return isDamage(status) ? Outcome::damaged : Outcome::refused;
}

int DefaultsFile::writePlace(const DefaultsPlace& place, const StoredValue* value) {
  if (!place.entry) {
    assert(value != nullptr);  // a key is never taken out
    putValue_.bind(1, place.key);
    std::visit(ValueBinder{putValue_}, *value);
    return putValue_.run();
  }
  const auto* text = value != nullptr ? std::get_if<std::string>(value) : nullptr;
  auto& statement = text != nullptr ? putEntry_ : removeEntry_;
  statement.bind(1, place.key);
  statement.bind(2, *place.entry);
  if (text != nullptr) statement.bind(3, *text);
  return statement.run();
}

}  // namespace Hilalor::Desktop
