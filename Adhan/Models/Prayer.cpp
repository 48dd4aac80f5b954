#include "Adhan/Models/Prayer.hpp"

#include <ostream>

namespace Adhan {

std::ostream& operator<<(std::ostream& out, Prayer prayer) {
  constexpr std::array<const char*, kCaseCount<Prayer>> kNames{"fajr", "sunrise", "dhuhr",
                                                               "asr",  "maghrib", "isha"};
  return out << kNames[static_cast<std::size_t>(prayer)];
}

}  // namespace Adhan
