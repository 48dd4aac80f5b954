#pragma once

#include <string_view>

#include "Adhan/Models/RawValue.hpp"

namespace Adhan {

/// The glow of the evening sky whose end begins isha where twilight goes by the season.
enum class Shafaq {
  general,  ///< A blend of the other two that keeps isha bearable in summer.
  ahmer,    ///< The red glow, which ends first.
  abyad,    ///< The white glow, which ends last.
};

template <>
inline constexpr std::array<std::string_view, 3> kRawValues<Shafaq>{"general", "ahmer", "abyad"};

}  // namespace Adhan
