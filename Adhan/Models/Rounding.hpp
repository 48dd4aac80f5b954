#pragma once

#include <string_view>

#include "Adhan/Models/RawValue.hpp"

namespace Adhan {

/// What becomes of the seconds of a final prayer time.
enum class Rounding {
  nearest,  ///< To the nearest minute; 30 seconds and more go up.
  up,       ///< To the next minute unless there are no seconds.
  none,     ///< Whole seconds stay.
};

template <>
inline constexpr std::array<std::string_view, 3> kRawValues<Rounding>{"nearest", "up", "none"};

}  // namespace Adhan
