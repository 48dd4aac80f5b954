#pragma once

#include <array>
#include <string_view>

#include "desktop/diagnosis/Tell.hpp"

namespace Hilalor::Desktop {

/// What the desktop is asked about. Each may wait for others, so whoever asks does it in a process
/// of its own and has a limit.
inline constexpr std::array<const char*, 5> kTopics{"files", "display", "bus", "location", "sound"};

/// What was found about the topic; nothing for a word that is none. Needs a QCoreApplication and no
/// display. Main thread.
void diagnose(std::string_view topic, const Tell& tell);

}  // namespace Hilalor::Desktop
