#include "rules/prayer/ListedTime.hpp"

#include <array>

namespace Hilalor {
namespace {

constexpr std::array<std::string_view, 8> kNames{
    "Fajr", "Sunrise", "Dhuhr", "Asr", "Maghrib", "Isha", "Middle of Night", "Last Third"};

static_assert(listed(Adhan::Prayer::fajr) == ListedTime::fajr &&
              listed(Adhan::Prayer::isha) == ListedTime::isha);

}  // namespace

std::string_view displayName(ListedTime time) {
  return kNames.at(static_cast<std::size_t>(time));
}

std::string_view displayName(Adhan::Prayer prayer) {
  return displayName(listed(prayer));
}

}  // namespace Hilalor
