#pragma once

#include "desktop/session/PortalSettings.hpp"

namespace Hilalor::Desktop {

/// Puts the application into light or dark, into high contrast, and its type into the size that the
/// desktop has, now and whenever the portal tells of a change: "color-scheme" and "contrast" of
/// freedesktop.org, GNOME's high contrast, theme and font. On X11 the settings manager's theme and
/// font are looked at once, for desktops without a portal. Where nobody says anything the palette
/// and the font of the desktop's Qt style stay.
void followAppearance(PortalSettings& settings);

}  // namespace Hilalor::Desktop
