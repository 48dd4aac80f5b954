#include "desktop/store/SqliteConnection.hpp"

#include <utility>

namespace Hilalor::Desktop {
namespace {

constexpr int kPrimaryCode = 0xff;

// "file:" with the characters escaped that mean something in a URI.
std::string fileUri(const std::filesystem::path& file, std::string_view query) {
  std::string uri = "file:";
  for (const char c : file.string()) {
    if (c == '%') {
      uri += "%25";
    } else if (c == '?') {
      uri += "%3f";
    } else if (c == '#') {
      uri += "%23";
    } else {
      uri += c;
    }
  }
  return uri.append(query);
}

const char* uriQuery(SqliteConnection::Access access) {
  switch (access) {
    case SqliteConnection::Access::snapshot:
      return "?immutable=1";
    case SqliteConnection::Access::observer:
      return "?readonly_shm=1";
    default:
      return "";
  }
}

}  // namespace

SqliteConnection::SqliteConnection(std::unique_ptr<sqlite3, Close> database)
    : database_(std::move(database)) {}

std::unique_ptr<SqliteConnection> SqliteConnection::open(const std::filesystem::path& file,
                                                         Access access) {
  const int mode = access == Access::readWrite ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE
                                               : SQLITE_OPEN_READONLY;
  const auto uri = fileUri(file, uriQuery(access));
  sqlite3* opened = nullptr;
  const int status =
      sqlite3_open_v2(uri.c_str(), &opened, mode | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
  // A handle may come with an error too, and is closed then.
  std::unique_ptr<sqlite3, Close> database(opened);
  if (status != SQLITE_OK) return nullptr;
  return std::unique_ptr<SqliteConnection>(new SqliteConnection(std::move(database)));
}

std::unique_ptr<SqliteConnection> SqliteConnection::ofBytes(std::string& bytes) {
  auto connection = open(":memory:", Access::readWrite);
  if (!connection) return nullptr;
  const auto size = static_cast<sqlite3_int64>(bytes.size());
  const int status = sqlite3_deserialize(connection->handle(), "main",
                                         reinterpret_cast<unsigned char*>(bytes.data()), size, size,
                                         SQLITE_DESERIALIZE_READONLY);
  return status == SQLITE_OK ? std::move(connection) : nullptr;
}

int SqliteConnection::execute(const std::string& statements) {
  return kPrimaryCode & sqlite3_exec(handle(), statements.c_str(), nullptr, nullptr, nullptr);
}

void SqliteConnection::setPatience(std::chrono::milliseconds patience) {
  sqlite3_busy_timeout(handle(), static_cast<int>(patience.count()));
}

bool SqliteConnection::isReadOnly() const {
  return sqlite3_db_readonly(handle(), "main") == 1;
}

void SqliteConnection::keepLogOnClose() {
  sqlite3_db_config(handle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

bool SqliteConnection::hasMoved() const {
  int moved = 0;
  sqlite3_file_control(handle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  return moved != 0;
}

std::int64_t SqliteConnection::dataVersion() const {
  SqliteStatement version(*this, "PRAGMA data_version");
  return version.status() == SQLITE_OK && version.step() == SQLITE_ROW ? version.integer(0) : 0;
}

SqliteStatement::SqliteStatement(const SqliteConnection& connection, std::string_view sql) {
  sqlite3_stmt* prepared = nullptr;
  status_ = kPrimaryCode & sqlite3_prepare_v3(connection.handle(), sql.data(),
                                              static_cast<int>(sql.size()),
                                              SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
  statement_.reset(prepared);
}

void SqliteStatement::bind(int parameter, std::int64_t number) {
  sqlite3_bind_int64(statement_.get(), parameter, number);
}

void SqliteStatement::bind(int parameter, double number) {
  sqlite3_bind_double(statement_.get(), parameter, number);
}

void SqliteStatement::bind(int parameter, std::string_view text) {
  sqlite3_bind_text64(statement_.get(), parameter, text.data(), text.size(), SQLITE_STATIC,
                      SQLITE_UTF8);
}

int SqliteStatement::step() {
  return kPrimaryCode & sqlite3_step(statement_.get());
}

int SqliteStatement::run() {
  const int status = step();
  sqlite3_reset(statement_.get());
  sqlite3_clear_bindings(statement_.get());
  return status;
}

int SqliteStatement::columnKind(int column) const {
  return sqlite3_column_type(statement_.get(), column);
}

std::int64_t SqliteStatement::integer(int column) const {
  return sqlite3_column_int64(statement_.get(), column);
}

double SqliteStatement::real(int column) const {
  return sqlite3_column_double(statement_.get(), column);
}

std::string SqliteStatement::text(int column) const {
  const auto* bytes = sqlite3_column_text(statement_.get(), column);
  const int size = sqlite3_column_bytes(statement_.get(), column);
  if (bytes == nullptr) return {};
  return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size)};
}

}  // namespace Hilalor::Desktop
