#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace Hilalor::Desktop {

/// The number that the desktop's settings manager on X11 has under the name (XSETTINGS of
/// freedesktop.org). None without a manager, elsewhere, and for what is no number. Asks the X
/// server.
[[nodiscard]] std::optional<std::int32_t> xSetting(std::string_view name);

/// The text that it has under the name.
[[nodiscard]] std::optional<std::string> xTextSetting(std::string_view name);

/// What the manager wrote under the name.
[[nodiscard]] std::optional<std::variant<std::int32_t, std::string>> xSettingIn(
    std::span<const std::uint8_t> written, std::string_view name);

}  // namespace Hilalor::Desktop
