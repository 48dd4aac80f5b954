#include "desktop/display/XSettings.hpp"

#include <cstddef>

#include "desktop/display/XConnection.hpp"
#include "desktop/display/Xcb.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr std::size_t kHeader = 8;  // The order of bytes and a serial number.
enum Type : std::uint8_t { kNumber, kText, kColour };

/// Reads on through the bytes; past their end everything is 0.
class Reader {
 public:
  explicit Reader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  [[nodiscard]] bool isAtEnd() const { return at_ >= bytes_.size(); }

  std::uint32_t number(std::size_t size) {
    const bool isBigEndian = !bytes_.empty() && bytes_[0] != 0;
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; ++i) {
      const std::size_t byte = at_ + (isBigEndian ? i : size - 1 - i);
      value = value << 8 | (byte < bytes_.size() ? bytes_[byte] : 0U);
    }
    at_ += size;
    return value;
  }

  /// As long as that, and what fills it up to a multiple of four.
  std::string_view text(std::size_t length) {
    const std::size_t left = isAtEnd() ? 0 : bytes_.size() - at_;
    const auto* first = reinterpret_cast<const char*>(bytes_.data()) + (isAtEnd() ? 0 : at_);
    skip((length + 3) / 4 * 4);
    return length <= left ? std::string_view(first, length) : std::string_view();
  }

  void skip(std::size_t size) { at_ += size; }

 private:
  std::span<const std::uint8_t> bytes_;
  std::size_t at_ = 0;
};

template <typename Value>
std::optional<Value> find(std::string_view name) {
  if (!isOnX11()) return std::nullopt;
  auto* server = qtConnection();
  const auto manager =
      Xcb::answer(xcb_get_selection_owner_reply, server,
                  xcb_get_selection_owner(server, Xcb::atom(server, "_XSETTINGS_S0")));
  if (!manager || manager->owner == XCB_WINDOW_NONE) return std::nullopt;
  const auto found = xSettingIn(
      Xcb::values<std::uint8_t>(server, manager->owner, Xcb::atom(server, "_XSETTINGS_SETTINGS")),
      name);
  const auto* value = found ? std::get_if<Value>(&*found) : nullptr;
  return value != nullptr ? std::optional(*value) : std::nullopt;
}

}  // namespace

std::optional<std::int32_t> xSetting(std::string_view name) {
  return find<std::int32_t>(name);
}

std::optional<std::string> xTextSetting(std::string_view name) {
  return find<std::string>(name);
}

std::optional<std::variant<std::int32_t, std::string>> xSettingIn(
    std::span<const std::uint8_t> written, std::string_view name) {
  Reader reader(written);
  reader.skip(kHeader);
  for (std::uint32_t left = reader.number(4); left > 0 && !reader.isAtEnd(); --left) {
    const auto type = reader.number(1);
    reader.skip(1);
    const std::size_t length = reader.number(2);
    const bool isWanted = reader.text(length) == name;
    reader.skip(4);
    const std::uint32_t value = reader.number(4);
    const std::string text(type == kText ? reader.text(value) : std::string_view());
    if (type == kColour) reader.skip(4);
    if (isWanted && type == kNumber) return static_cast<std::int32_t>(value);
    if (isWanted && type == kText) return text;
  }
  return std::nullopt;
}

}  // namespace Hilalor::Desktop
