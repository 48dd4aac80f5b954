#pragma once

#include <string_view>

#include "desktop/store/DefaultsContent.hpp"
#include "desktop/store/SqliteConnection.hpp"

namespace Hilalor::Desktop {

/// The types of values as the table `defaults` names them.
namespace DefaultsType {
inline constexpr std::string_view kBoolean = "boolean";
inline constexpr std::string_view kInteger = "integer";
inline constexpr std::string_view kReal = "real";
inline constexpr std::string_view kText = "text";
inline constexpr std::string_view kOpaque = "opaque";
inline constexpr std::string_view kDictionary = "dictionary";  ///< The value: rows of `entries`.
}  // namespace DefaultsType

/// SQLITE_OK when the database is not damaged, as far as can be seen without its rows.
[[nodiscard]] int checkSoundness(const SqliteConnection& connection);

/// Adds all that the tables hold. SQLITE_OK when everything could be read.
[[nodiscard]] int loadContent(const SqliteConnection& connection, DefaultsContent& content);

/// All that can be read of a file, sound or not.
[[nodiscard]] DefaultsContent readableContent(const SqliteConnection& connection);

}  // namespace Hilalor::Desktop
