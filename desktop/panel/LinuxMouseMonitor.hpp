#pragma once

#include "platform/MouseMonitor.hpp"

namespace Hilalor::Desktop {

/// Presses anywhere on an X11 screen, also while another program has grabbed the mouse (raw events
/// of XInput 2). No monitor elsewhere,
/// nor on the X server of a Wayland compositor.
class LinuxMouseMonitor final : public MouseMonitor {
 public:
  [[nodiscard]] std::unique_ptr<EventMonitor> addGlobalMonitor(Handlers handlers) override;
};

}  // namespace Hilalor::Desktop
