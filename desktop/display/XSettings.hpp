#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace Hilalor::Desktop {

/// The number that the desktop's settings manager on X11 has under the name (XSETTINGS of
/// freedesktop.org). None without a manager, elsewhere, and for what is no number. Asks the X
/// server.
[[nodiscard]] std::optional<std::int32_t> xSetting(std::string_view name);

/// The same from what the manager wrote.
[[nodiscard]] std::optional<std::int32_t> xSettingIn(std::span<const std::uint8_t> written,
                                                     std::string_view name);

}  // namespace Hilalor::Desktop
