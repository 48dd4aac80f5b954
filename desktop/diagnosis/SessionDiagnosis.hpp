#pragma once

#include "datetime/Date.hpp"
#include "desktop/diagnosis/Tell.hpp"

namespace Hilalor::Desktop {

/// What the environment and the system's files say: system, session, language, clock and zone.
/// Asks no other program. Main thread.
void diagnoseSession(Date now, const Tell& tell);

}  // namespace Hilalor::Desktop
