#pragma once

#include "desktop/session/PortalSettings.hpp"

namespace Hilalor::Desktop {

/// Puts the application into light or dark as the desktop says (the setting "color-scheme" of the
/// portal's namespace "org.freedesktop.appearance"), now and whenever it changes. Without a portal
/// the palette of the desktop's Qt style stays.
void followColorScheme(PortalSettings& settings);

}  // namespace Hilalor::Desktop
