#pragma once

#include <iosfwd>

#include "Adhan/Models/RawValue.hpp"

namespace Adhan {

/// The six events of a day, in their order. Sunrise is no prayer but ends the time of fajr.
enum class Prayer { fajr, sunrise, dhuhr, asr, maghrib, isha };

template <>
inline constexpr std::size_t kCaseCount<Prayer> = 6;

/// The case's name, for test failures.
std::ostream& operator<<(std::ostream& out, Prayer prayer);

}  // namespace Adhan
