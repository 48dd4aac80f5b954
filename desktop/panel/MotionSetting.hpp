#pragma once

#include "desktop/session/PortalSettings.hpp"
#include "ui/PopUpStyle.hpp"

namespace Hilalor::Desktop {

/// Takes the movement out of the application where the desktop asks for that, now and whenever it
/// changes: freedesktop.org's "reduced-motion", GNOME's "enable-animations" and Plasma's
/// "AnimationDurationFactor", as the portal tells them. The style must live as long as the
/// settings.
void followMotion(PortalSettings& settings, Ui::PopUpStyle& style);

/// The same as GTK programs on X11 are told it, by desktops without a portal too.
[[nodiscard]] bool settingsManagerAnimates();

}  // namespace Hilalor::Desktop
