#include "desktop/store/HeaderRepair.hpp"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <string>

#include "desktop/store/DefaultsReader.hpp"
#include "desktop/store/SqliteConnection.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr std::size_t kHeaderSize = 100;
constexpr std::size_t kPageSize = 4096;

/// Some bytes of the header and where they stand ("The Database Header" of SQLite's file format).
struct HeaderField {
  std::size_t offset;
  std::string_view bytes;
};

using namespace std::string_view_literals;
constexpr std::array kFields{
    HeaderField{0, "SQLite format 3\0"sv},
    HeaderField{16, "\x10\0"sv},              // the size of a page: 4096
    HeaderField{18, "\1\1\0\x40\x20\x20"sv},  // a rollback journal, for a log cannot be had in
                                              // memory
    HeaderField{44, "\0\0\0\4"sv},            // the format of the schema
    HeaderField{52, "\0\0\0\0\0\0\0\1"sv},    // no vacuum of its own; texts in UTF-8
    HeaderField{64, "\0\0\0\0"sv},
};

void putRight(std::string& database) {
  for (const auto& [offset, bytes] : kFields)
    std::ranges::copy(bytes, database.begin() + static_cast<std::ptrdiff_t>(offset));
  // The number of pages, which the size of the file tells as well.
  const auto pages = database.size() / kPageSize;
  for (std::size_t byte = 0; byte < 4; ++byte)
    database[28 + byte] = static_cast<char>(pages >> (8 * (3 - byte)));
}

}  // namespace

DefaultsContent contentUnderSoundHeader(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string database{std::istreambuf_iterator<char>(stream), {}};
  if (database.size() < kHeaderSize) return {};
  putRight(database);
  const auto connection = SqliteConnection::ofBytes(database);
  return connection ? readableContent(*connection) : DefaultsContent();
}

}  // namespace Hilalor::Desktop
