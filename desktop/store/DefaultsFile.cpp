#include "desktop/store/DefaultsFile.hpp"

#include <sys/stat.h>

#include <cassert>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <variant>

#include "desktop/store/DefaultsReader.hpp"
#include "desktop/store/SetAside.hpp"

namespace Hilalor {
namespace {

// Plain tables with an index beside them: a damaged page then costs no more than its own rows.
constexpr const char* kPreparation =
    "PRAGMA journal_mode = WAL;"
    "PRAGMA synchronous = NORMAL;"
    "PRAGMA cache_size = -256;"
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

void makeFolder(const std::filesystem::path& folder) {
  std::error_code error;
  if (folder.empty() || std::filesystem::exists(folder, error)) return;
  makeFolder(folder.parent_path());
  // The user's own, as the XDG base directories are.
  mkdir(folder.c_str(), S_IRWXU);
}

std::filesystem::path logOf(const std::filesystem::path& database) {
  return database.string() + "-wal";
}

bool hasLog(const std::filesystem::path& database) {
  std::error_code error;
  const auto size = std::filesystem::file_size(logOf(database), error);
  return !error && size > 0;
}

std::optional<ino_t> fileId(const std::filesystem::path& file) {
  struct stat status {};
  return stat(file.c_str(), &status) == 0 ? std::optional(status.st_ino) : std::nullopt;
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
  makeFolder(path.parent_path());
  Opened opened;
  if (tryOpen(path, patience, opened) == Outcome::damaged && setAside(path)) {
    tryOpen(path, patience, opened);
  }
  return opened;
}

DefaultsFile::Outcome DefaultsFile::tryOpen(const std::filesystem::path& path,
                                            std::chrono::milliseconds patience, Opened& opened) {
  auto connection = SqliteConnection::open(path, SqliteConnection::Access::readWrite);
  if (!connection || connection->isReadOnly()) return Outcome::refused;
  connection->setPatience(patience);
  DefaultsContent content;
  int status = connection->execute(kPreparation);
  if (status == SQLITE_OK) status = loadContent(*connection, content);
  if (status == SQLITE_OK) {
    connection->setPatience(kWritePatience);
    opened.stored = std::move(content);
    opened.file.reset(new DefaultsFile(path, std::move(connection)));
    return Outcome::done;
  }
  if (!isDamage(status) || connection->hasMoved()) return Outcome::refused;
  opened.salvaged = readableContent(*connection);
  connection->keepLogOnClose();
  return Outcome::damaged;
}

DefaultsFile::Protected DefaultsFile::readProtected(const std::filesystem::path& path) {
  using Access = SqliteConnection::Access;
  Protected found;
  bool isLogRead = true;
  // A folder that nothing can be made in has no room for the log's index, without which SQLite
  // reads only the file proper. A program that ended well left nothing in the log.
  for (const auto access : {Access::readOnly, Access::snapshot}) {
    const auto connection = SqliteConnection::open(path, access);
    if (!connection) continue;
    if (access == Access::snapshot && hasLog(path)) isLogRead = false;
    const int status = loadContent(*connection, found.content);
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
      logId_(fileId(logOf(path))),
      connection_(std::move(connection)),
      begin_(*connection_, "BEGIN IMMEDIATE"),
      commit_(*connection_, "COMMIT"),
      putValue_(*connection_, kPutValue),
      putEntry_(*connection_, kPutEntry),
      removeEntry_(*connection_, kRemoveEntry) {}

bool DefaultsFile::leaveIfMoved() {
  if (!hasMoved()) return false;
  if (logId_ && fileId(logOf(path_)) == logId_) {
    std::error_code error;
    std::filesystem::remove(logOf(path_), error);
    std::filesystem::remove(path_.string() + "-shm", error);  // the log's index
  }
  return true;
}

DefaultsFile::Outcome DefaultsFile::write(const DefaultsContent& content,
                                          const UnwrittenPlaces& places) {
  int status = begin_.run();
  for (auto place = places.begin(); status == SQLITE_DONE && place != places.end(); ++place) {
    const auto found = content.find(*place);
    status = writePlace(*place, found != content.end() ? &found->second : nullptr);
  }
  if (status == SQLITE_DONE) status = commit_.run();
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

}  // namespace Hilalor
