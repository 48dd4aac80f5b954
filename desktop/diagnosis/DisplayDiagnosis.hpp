#pragma once

#include "desktop/diagnosis/Tell.hpp"

namespace Hilalor::Desktop {

/// Who shows windows, and which bars and trays there are. Needs no display.
void diagnoseDisplay(const Tell& tell);

}  // namespace Hilalor::Desktop
