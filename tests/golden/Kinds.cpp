#include "tests/golden/Kinds.hpp"

namespace Golden {

std::span<const Kind> kinds() {
  static constexpr Kind kKinds[] = {
      {"golden_times", checkTimes},      {"golden_solar", checkSolar},
      {"golden_helpers", checkHelper},   {"golden_qibla", checkQibla},
      {"golden_sunnah", checkSunnah},    {"golden_schedule", checkSchedule},
      {"golden_title", checkTitle},      {"golden_month", checkMonth},
      {"hijri_months", checkHijriMonth}, {"hijri_eids", checkEid},
  };
  return kKinds;
}

}  // namespace Golden
