#include "desktop/store/DefaultsView.hpp"

#include <system_error>
#include <utility>
#include <variant>

#include "desktop/store/DefaultsReader.hpp"
#include "desktop/store/FileStamp.hpp"
#include "desktop/store/HeaderRepair.hpp"
#include "desktop/store/SqliteConnection.hpp"

namespace Hilalor::Desktop {
namespace {

using Access = SqliteConnection::Access;

// A look may fall into the very moment in which the program folds its log.
constexpr int kLooks = 3;

// Whether all was read. What could be is added in any case.
bool look(const std::filesystem::path& file, Access access, DefaultsContent& content) {
  const auto connection = SqliteConnection::open(file, access);
  if (!connection) return false;
  connection->keepLogOnClose();
  DefaultsContent found;
  const bool isWhole =
      checkSoundness(*connection) == SQLITE_OK && loadContent(*connection, found) == SQLITE_OK;
  content.merge(isWhole ? found : readableContent(*connection));
  return isWhole;
}

DefaultsContent contentOf(const std::filesystem::path& file) {
  DefaultsContent content;
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return content;
  for (int i = 0; i < kLooks; ++i) {
    // Without a log there is nothing to agree upon with others, and no file to make for that.
    const auto access = hasLog(file) ? Access::observer : Access::snapshot;
    DefaultsContent found;
    if (look(file, access, found)) return found;
    content.merge(found);
  }
  // The log's index is missing or locked for good, or the file is damaged.
  look(file, Access::snapshot, content);
  content.merge(contentUnderSoundHeader(file));
  return content;
}

}  // namespace

DefaultsView::DefaultsView(const std::filesystem::path& file) : content_(contentOf(file)) {}

std::optional<DefaultsValue> DefaultsView::value(std::string_view key) const {
  return plainValue(content_, std::string(key));
}

void DefaultsView::setValue(std::string_view key, const DefaultsValue& value) {
  auto& stored = content_[{std::string(key), std::nullopt}];
  std::visit([&stored](const auto& given) { stored = given; }, value);
}

}  // namespace Hilalor::Desktop
