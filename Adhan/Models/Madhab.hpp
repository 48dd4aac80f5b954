#pragma once

#include "Adhan/Models/RawValue.hpp"

namespace Adhan {

/// The juristic school, which settles when asr begins.
enum class Madhab { shafi, hanafi };

/// The length of an object's shadow at asr, in heights of the object beyond its shadow at noon.
template <>
inline constexpr std::array<int, 2> kRawValues<Madhab>{1, 2};

}  // namespace Adhan
