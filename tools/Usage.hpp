#pragma once

#include <ctime>
#include <fstream>
#include <string>
#include <string_view>

namespace Hilalor {

/// What the process has used of the processors, in microseconds, so that a busy machine does not
/// count.
inline double processorMicroseconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

/// A figure of /proc/self/status in kilobytes, as "VmRSS" for all that is resident or "RssAnon" for
/// what no file has; 0 where there is none.
inline long kilobytes(std::string_view figure) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(figure) && line[figure.size()] == ':')
      return std::stol(line.substr(figure.size() + 1));
  }
  return 0;
}

}  // namespace Hilalor
