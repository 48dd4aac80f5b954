#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "datetime/ZoneOffsets.hpp"

namespace Hilalor {

/// The rules of a zone from the machine's compiled time-zone files (TZif, RFC 8536, versions 2 to
/// 4). Null when the folder holds no such zone or the file is not well-formed.
[[nodiscard]] std::shared_ptr<const ZoneOffsets> zoneFromFile(std::string_view folder,
                                                              std::string_view identifier);

/// The same from one such file, wherever it lies.
[[nodiscard]] std::shared_ptr<const ZoneOffsets> zoneFromPath(const std::string& path,
                                                              std::string identifier);

/// The same from the content of such a file.
[[nodiscard]] std::shared_ptr<const ZoneOffsets> zoneFromBytes(std::string identifier,
                                                               std::string_view bytes);

}  // namespace Hilalor
