#pragma once

namespace Hilalor {

/// Drops the process's shared objects (settings, location manager, alert monitor, notes), those
/// first that use others. Before the platform they were built over goes away.
void resetSharedObjects();

}  // namespace Hilalor
