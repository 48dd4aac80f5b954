#include "app/Uuid.hpp"

#include <uuid/uuid.h>

namespace Hilalor {

Uuid Uuid::random() {
  Uuid result;
  uuid_generate_random(result.bytes.data());
  return result;
}

std::string Uuid::string() const {
  std::array<char, UUID_STR_LEN> text{};
  uuid_unparse_lower(bytes.data(), text.data());
  return text.data();
}

}  // namespace Hilalor
