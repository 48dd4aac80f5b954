#pragma once

#include "desktop/diagnosis/Tell.hpp"

namespace Hilalor::Desktop {

/// What is on the user's bus: the running copy, bars that show items, the service of banners.
void diagnoseSessionBus(const Tell& tell);

/// Whether the location service could be asked. Does not ask it, and starts nothing.
void diagnoseLocation(const Tell& tell);

}  // namespace Hilalor::Desktop
