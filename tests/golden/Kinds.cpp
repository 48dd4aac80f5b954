#include "tests/golden/Kinds.hpp"

namespace Golden {

std::span<const Kind> kinds() {
  static constexpr Kind kKinds[] = {
      {"golden_times", checkTimes},    {"golden_solar", checkSolar},
      {"golden_helpers", checkHelper}, {"golden_qibla", checkQibla},
      {"golden_sunnah", checkSunnah},  {"golden_schedule", checkSchedule},
      {"golden_title", checkTitle},
  };
  return kKinds;
}

}  // namespace Golden
