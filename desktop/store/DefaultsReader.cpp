#include "desktop/store/DefaultsReader.hpp"

#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace Hilalor::Desktop {
namespace {

enum class Order { ascending, descending };

StoredValue numberOfRow(const SqliteStatement& row, int column, std::string_view type) {
  const auto number = row.integer(column);
  if (type == DefaultsType::kInteger) return number;
  if (type == DefaultsType::kReal) return static_cast<double>(number);
  if (type == DefaultsType::kBoolean && (number == 0 || number == 1)) return number == 1;
  return OpaqueValue();
}

StoredValue valueOfRow(const SqliteStatement& row, std::string_view type, int column) {
  if (type == DefaultsType::kDictionary) return DictionaryMark();
  switch (row.columnKind(column)) {
    case SQLITE_INTEGER:
      return numberOfRow(row, column, type);
    case SQLITE_FLOAT:
      if (type == DefaultsType::kReal) return row.real(column);
      break;
    case SQLITE_TEXT:
      if (type == DefaultsType::kText) return row.text(column);
      break;
    case SQLITE_NULL:
      // SQLite keeps a number that is none as null.
      if (type == DefaultsType::kReal) return std::numeric_limits<double>::quiet_NaN();
      break;
    default:
      break;
  }
  return OpaqueValue();
}

std::string ordered(const char* select, Order order) {
  return std::string(select) +
         (order == Order::ascending ? " ORDER BY rowid" : " ORDER BY rowid DESC");
}

int loadValues(const SqliteConnection& connection, Order order, DefaultsContent& content) {
  SqliteStatement row(connection, ordered("SELECT key, type, value FROM defaults", order));
  int status = row.status();
  if (status != SQLITE_OK) return status;
  while ((status = row.step()) == SQLITE_ROW) {
    content.try_emplace({row.text(0), std::nullopt}, valueOfRow(row, row.text(1), 2));
  }
  return status;
}

// The key of a dictionary, above its entries. It needs no row in `defaults`; one that cannot be
// read must not cost the entries. Under a plain value, they are remains that nobody reads.
DefaultsContent::iterator headOf(const std::string& key, DefaultsContent& content, bool& isSound) {
  const auto head = content.try_emplace({key, std::nullopt}, DictionaryMark()).first;
  if (std::holds_alternative<OpaqueValue>(head->second)) {
    head->second = DictionaryMark();
    isSound = false;
  }
  return head;
}

// This program writes texts alone into the rows of entries, so any other kind is damage. A text
// with one bit changed in its kind is a blob of the same bytes.
bool isAllText(const SqliteStatement& row) {
  return row.columnKind(0) == SQLITE_TEXT && row.columnKind(1) == SQLITE_TEXT &&
         row.columnKind(2) == SQLITE_TEXT;
}

bool hasText(const SqliteStatement& row, int column) {
  return row.columnKind(column) == SQLITE_TEXT || row.columnKind(column) == SQLITE_BLOB;
}

// An entry that cannot be read is left out.
int loadEntries(const SqliteConnection& connection, Order order, DefaultsContent& content) {
  SqliteStatement row(connection, ordered("SELECT key, entry, value FROM entries", order));
  int status = row.status();
  if (status != SQLITE_OK) return status;
  bool isSound = true;
  auto hint = content.end();
  while ((status = row.step()) == SQLITE_ROW) {
    isSound = isSound && isAllText(row);
    if (!hasText(row, 2)) continue;
    DefaultsPlace place{row.text(0), row.text(1)};
    if (hint == content.end() || hint->first.key != place.key) {
      hint = headOf(place.key, content, isSound);
    }
    hint = content.try_emplace(std::next(hint), std::move(place), row.text(2));
  }
  return status == SQLITE_DONE && !isSound ? SQLITE_CORRUPT : status;
}

int load(const SqliteConnection& connection, Order order, DefaultsContent& content) {
  const int values = loadValues(connection, order, content);
  const int entries = loadEntries(connection, order, content);
  const int status = values != SQLITE_DONE ? values : entries;
  return status == SQLITE_DONE ? SQLITE_OK : status;
}

// SQLITE_OK when the statement's one row holds that text.
int expectRow(const SqliteConnection& connection, const char* statement, std::string_view text) {
  SqliteStatement row(connection, statement);
  if (row.status() != SQLITE_OK) return row.status();
  const int status = row.step();
  if (status != SQLITE_ROW) return status;
  return row.text(0) == text ? SQLITE_OK : SQLITE_CORRUPT;
}

}  // namespace

// One wrong bit in a database's header makes all its texts others.
int checkSoundness(const SqliteConnection& connection) {
  const int status = expectRow(connection, "PRAGMA encoding", "UTF-8");
  return status == SQLITE_OK ? expectRow(connection, "PRAGMA quick_check(1)", "ok") : status;
}

int loadContent(const SqliteConnection& connection, DefaultsContent& content) {
  return load(connection, Order::ascending, content);
}

DefaultsContent readableContent(const SqliteConnection& connection) {
  DefaultsContent content;
  // A damaged page ends a walk through a table; the walk from the other end comes up to it.
  if (load(connection, Order::ascending, content) != SQLITE_OK) {
    load(connection, Order::descending, content);
  }
  return content;
}

}  // namespace Hilalor::Desktop
