#include "desktop/SystemClock.hpp"

namespace Hilalor {

Date SystemClock::now() const {
  return {Seconds(std::chrono::system_clock::now().time_since_epoch()).count()};
}

}  // namespace Hilalor
