#pragma once

namespace Hilalor::Desktop {

/// Unmaps the pages of code and constants that the program and its libraries have touched so far.
/// Those that are needed again come back from the kernel's cache, sixteen at a fault and without
/// the disk; the rest, above all what only the start uses, is the kernel's to give to others. Takes
/// a few milliseconds. Any thread.
void releaseCodePages();

}  // namespace Hilalor::Desktop
