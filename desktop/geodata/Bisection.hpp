#pragma once

namespace Hilalor::Desktop {

/// The first number from `low` on of which `isBefore` does not hold, where it holds up to some
/// number and not after; `high` if it holds of all below.
template <typename Number, typename IsBefore>
[[nodiscard]] Number firstNotBefore(Number low, Number high, IsBefore isBefore) {
  while (low < high) {
    const Number middle = low + (high - low) / 2;
    if (isBefore(middle)) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

}  // namespace Hilalor::Desktop
