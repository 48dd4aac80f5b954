#include "desktop/process/SystemClock.hpp"

namespace Hilalor::Desktop {

Date SystemClock::now() const {
  return {Seconds(std::chrono::system_clock::now().time_since_epoch()).count()};
}

}  // namespace Hilalor::Desktop
