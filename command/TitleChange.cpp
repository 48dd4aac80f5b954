#include "command/TitleChange.hpp"

#include <algorithm>

namespace Hilalor {
namespace {

constexpr Seconds kFirstLook{60};
constexpr Seconds kLastLook{3600};
constexpr Seconds kExactness{0.001};

}  // namespace

Date changeAfter(Date now, const std::function<std::string(Date)>& textAt) {
  const auto text = textAt(now);
  Seconds same{0};
  Seconds other = kFirstLook;
  while (textAt(now + other) == text) {
    if (other >= kLastLook) return now + kLastLook;
    same = other;
    other = std::min(other * 2, kLastLook);
  }
  while (other - same > kExactness) {
    const auto middle = (same + other) / 2;
    (textAt(now + middle) == text ? same : other) = middle;
  }
  // Not at the change itself: a title of whole minutes may read differently for that one instant.
  return now + other + kExactness;
}

}  // namespace Hilalor
