#include "desktop/store/DefaultsReader.hpp"

#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace Hilalor {
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

// Under a plain value, entries are remains that nobody reads.
void spoilDictionary(DefaultsContent& content, const std::string& key) {
  auto& head = content.find({key, std::nullopt})->second;
  if (std::holds_alternative<DictionaryMark>(head)) head = OpaqueValue();
}

// A dictionary needs no row in `defaults` as long as it has entries.
int loadEntries(const SqliteConnection& connection, Order order, DefaultsContent& content) {
  SqliteStatement row(connection, ordered("SELECT key, entry, value FROM entries", order));
  int status = row.status();
  if (status != SQLITE_OK) return status;
  auto hint = content.end();
  while ((status = row.step()) == SQLITE_ROW) {
    DefaultsPlace place{row.text(0), row.text(1)};
    auto value = valueOfRow(row, DefaultsType::kText, 2);
    if (hint == content.end() || hint->first.key != place.key) {
      hint = content.try_emplace({place.key, std::nullopt}, DictionaryMark()).first;
    }
    if (std::holds_alternative<OpaqueValue>(value)) spoilDictionary(content, place.key);
    hint = content.try_emplace(std::next(hint), std::move(place), std::move(value));
  }
  return status;
}

int load(const SqliteConnection& connection, Order order, DefaultsContent& content) {
  const int values = loadValues(connection, order, content);
  const int entries = loadEntries(connection, order, content);
  const int status = values != SQLITE_DONE ? values : entries;
  return status == SQLITE_DONE ? SQLITE_OK : status;
}

int checkSoundness(const SqliteConnection& connection) {
  SqliteStatement check(connection, "PRAGMA quick_check(1)");
  if (check.status() != SQLITE_OK) return check.status();
  const int status = check.step();
  if (status != SQLITE_ROW) return status;
  return check.text(0) == "ok" ? SQLITE_OK : SQLITE_CORRUPT;
}

}  // namespace

int loadContent(const SqliteConnection& connection, DefaultsContent& content) {
  const int status = checkSoundness(connection);
  return status == SQLITE_OK ? load(connection, Order::ascending, content) : status;
}

DefaultsContent readableContent(const SqliteConnection& connection) {
  DefaultsContent content;
  // A damaged page ends a walk through a table; the walk from the other end comes up to it.
  if (load(connection, Order::ascending, content) != SQLITE_OK) {
    load(connection, Order::descending, content);
  }
  return content;
}

}  // namespace Hilalor
