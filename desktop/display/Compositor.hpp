#pragma once

namespace Hilalor::Desktop {

/// Whether somebody mixes windows, so that what is see-through is seen so: always on Wayland; on
/// X11 by the owner of the screen's selection for it (Extended Window Manager Hints).
[[nodiscard]] bool hasCompositor();

}  // namespace Hilalor::Desktop
