#pragma once

#include <malloc.h>

namespace Hilalor::Desktop {

/// To be called before the first thread. Else every thread that plays a sound may leave a heap of
/// its own behind, of a megabyte and more.
inline void keepOneHeap() {
  mallopt(M_ARENA_MAX, 1);
}

/// Gives back what was freed, which the C library would keep for later. For the end of what comes
/// once in a long while: a window, a recording.
inline void giveBackFreeMemory() {
  malloc_trim(0);
}

}  // namespace Hilalor::Desktop
