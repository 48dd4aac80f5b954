#include "Adhan/Astronomy/Ephemeris.hpp"

#include <cmath>
#include <cstdint>

namespace Adhan {

const SolarDay& Ephemeris::at(double julianDay) {
  // Julian days of dates with an int year stay far within 64 bits.
  const auto number = static_cast<std::int64_t>(std::floor(julianDay));
  auto& entry = entries_[static_cast<std::uint64_t>(number) % entries_.size()];
  if (!entry || entry->julianDay != julianDay) {
    const SolarDay sun(position(julianDay - 1), position(julianDay), position(julianDay + 1));
    entry.emplace(Entry{julianDay, sun});
  }
  return entry->sun;
}

SolarCoordinates Ephemeris::position(double julianDay) const {
  for (const auto& entry : entries_) {
    if (!entry) continue;
    if (entry->julianDay == julianDay) return entry->sun.day;
    if (entry->julianDay - 1 == julianDay) return entry->sun.previous;
    if (entry->julianDay + 1 == julianDay) return entry->sun.next;
  }
  return SolarCoordinates(julianDay);
}

}  // namespace Adhan
