#pragma once

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace Hilalor::Desktop {

/// An open SQLite database. Results are SQLite's primary codes. One thread.
class SqliteConnection {
 public:
  enum class Access {
    readWrite,  ///< Created when absent; read only where the file is protected.
    readOnly,
    observer,  ///< With what its log holds, and without a file made or changed beside it.
    snapshot,  ///< The file as it lies there: without locks and without its write-ahead log.
  };

  /// Null when the file cannot be opened that way.
  [[nodiscard]] static std::unique_ptr<SqliteConnection> open(const std::filesystem::path& file,
                                                              Access access);

  /// A database in memory over the bytes of a file, to be read only; the bytes must outlive it.
  /// Null where they are none.
  [[nodiscard]] static std::unique_ptr<SqliteConnection> ofBytes(std::string& bytes);

  int execute(const std::string& statements);

  /// How long a statement waits for a lock of another program.
  void setPatience(std::chrono::milliseconds patience);

  [[nodiscard]] bool isReadOnly() const;

  /// Leaves the write-ahead log as it is when the connection closes, which else takes it into the
  /// file.
  void keepLogOnClose();

  /// Whether the open file no longer lies under its name: deleted, renamed or replaced.
  [[nodiscard]] bool hasMoved() const;

  /// Another number after every change by another connection; 0 where the file cannot be read.
  [[nodiscard]] std::int64_t dataVersion() const;

  [[nodiscard]] sqlite3* handle() const { return database_.get(); }

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };
  explicit SqliteConnection(std::unique_ptr<sqlite3, Close> database);

  std::unique_ptr<sqlite3, Close> database_;
};

/// A statement of that connection, for any number of runs. Parameters and columns count from 1
/// and 0, as SQLite has them.
class SqliteStatement {
 public:
  SqliteStatement(const SqliteConnection& connection, std::string_view sql);

  /// The outcome of the statement's compilation.
  [[nodiscard]] int status() const { return status_; }

  void bind(int parameter, std::int64_t number);
  void bind(int parameter, double number);
  /// The text must live until the end of the run.
  void bind(int parameter, std::string_view text);

  /// SQLITE_ROW, SQLITE_DONE or an error.
  int step();

  /// A whole run of a statement without rows, reset afterwards: SQLITE_DONE or an error.
  int run();

  [[nodiscard]] int columnKind(int column) const;
  [[nodiscard]] std::int64_t integer(int column) const;
  [[nodiscard]] double real(int column) const;
  [[nodiscard]] std::string text(int column) const;

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
  int status_ = SQLITE_OK;
};

}  // namespace Hilalor::Desktop
