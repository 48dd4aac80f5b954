#include "rules/settings/UsualMethods.hpp"

#include <algorithm>
#include <array>

namespace Hilalor {
namespace {

using enum PrayerCalculationMethod;

struct Entry {
  std::string_view country;
  PrayerCalculationMethod method;
};

constexpr std::array kEntries{
    // By their own authorities.
    Entry{"Saudi Arabia", ummAlQura},
    Entry{"Egypt", egyptian},
    Entry{"Pakistan", karachi},
    Entry{"United Arab Emirates", dubai},
    Entry{"United States", northAmerica},
    Entry{"Canada", northAmerica},
    Entry{"Kuwait", kuwait},
    Entry{"Qatar", qatar},
    Entry{"Singapore", singapore},
    Entry{"Malaysia", singapore},
    Entry{"Iran", tehran},
    Entry{"Türkiye", turkey},
    // By the neighbours'.
    Entry{"Afghanistan", karachi},
    Entry{"Bangladesh", karachi},
    Entry{"India", karachi},
    Entry{"Iraq", egyptian},
    Entry{"Lebanon", egyptian},
    Entry{"Syria", egyptian},
    // Europe.
    Entry{"Austria", muslimWorldLeague},
    Entry{"Belgium", muslimWorldLeague},
    Entry{"Czechia", muslimWorldLeague},
    Entry{"Denmark", muslimWorldLeague},
    Entry{"Estonia", muslimWorldLeague},
    Entry{"Finland", muslimWorldLeague},
    Entry{"Germany", muslimWorldLeague},
    Entry{"Hungary", muslimWorldLeague},
    Entry{"Iceland", muslimWorldLeague},
    Entry{"Ireland", muslimWorldLeague},
    Entry{"Italy", muslimWorldLeague},
    Entry{"Latvia", muslimWorldLeague},
    Entry{"Liechtenstein", muslimWorldLeague},
    Entry{"Lithuania", muslimWorldLeague},
    Entry{"Luxembourg", muslimWorldLeague},
    Entry{"Malta", muslimWorldLeague},
    Entry{"Netherlands", muslimWorldLeague},
    Entry{"Norway", muslimWorldLeague},
    Entry{"Poland", muslimWorldLeague},
    Entry{"Portugal", muslimWorldLeague},
    Entry{"Slovakia", muslimWorldLeague},
    Entry{"Spain", muslimWorldLeague},
    Entry{"Sweden", muslimWorldLeague},
    Entry{"Switzerland", muslimWorldLeague},
};

}  // namespace

std::optional<PrayerCalculationMethod> usualMethod(std::string_view country) {
  const auto* entry = std::ranges::find(kEntries, country, &Entry::country);
  return entry != kEntries.end() ? std::optional(entry->method) : std::nullopt;
}

}  // namespace Hilalor
