#pragma once

#include "desktop/diagnosis/Tell.hpp"

namespace Hilalor::Desktop {

/// Whether what ships with the program is there and sound, and whether a log-in starts it.
void diagnoseFiles(const Tell& tell);

/// Whether sounds can be read, and whether something takes a tenth of a second of silence.
void diagnoseSound(const Tell& tell);

}  // namespace Hilalor::Desktop
