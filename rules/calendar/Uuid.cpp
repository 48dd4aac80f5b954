#include "rules/calendar/Uuid.hpp"

#include <unistd.h>
#include <uuid/uuid.h>

namespace Hilalor {

Uuid Uuid::random() {
  Uuid result;
  // The library seeds a generator of its own at every call, which takes ten times as long as the
  // system's.
  if (getentropy(result.bytes.data(), result.bytes.size()) != 0) {
    uuid_generate_random(result.bytes.data());
    return result;
  }
  // RFC 4122, 4.4: version 4 in the high half of byte 6, the variant in the top bits of byte 8.
  result.bytes[6] = static_cast<std::uint8_t>((result.bytes[6] & 0x0FU) | 0x40U);
  result.bytes[8] = static_cast<std::uint8_t>((result.bytes[8] & 0x3FU) | 0x80U);
  return result;
}

std::string Uuid::string() const {
  std::array<char, UUID_STR_LEN> text{};
  uuid_unparse_lower(bytes.data(), text.data());
  return text.data();
}

}  // namespace Hilalor
