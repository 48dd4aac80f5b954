#pragma once

namespace Hilalor::Desktop {

/// Who puts our windows on the screen: an X server; the X server that a Wayland compositor runs,
/// which is not told of the pointer and the keyboard while they are with other windows; or such a
/// compositor itself, which lets nobody place a window.
enum class DisplayKind { x11, xwayland, wayland };

/// As the QApplication found it. Main thread.
[[nodiscard]] DisplayKind displayKind();

/// Whether the session says that it is that desktop's, or one like it.
[[nodiscard]] bool isDesktop(const char* name);

/// Before the QApplication: makes it choose X11 where an X server answers, unless the user has
/// chosen in the environment. Whether it did; the choice is then in the environment.
[[nodiscard]] bool chooseX11();

/// After the QApplication, where `chooseX11` did: programs that this one starts choose themselves.
void forgetChoice();

}  // namespace Hilalor::Desktop
