#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QColor>
#include <QImage>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <memory>
#include <optional>
#include <vector>

#include "platform/Signal.hpp"

namespace Hilalor {

/// The tray of an X11 desktop that takes programs' windows in (freedesktop.org System Tray
/// Protocol 0.3 and XEmbed 0.5), one at a time.
class SystemTray : public QAbstractNativeEventFilter {
 public:
  /// None where the program is not on X11. Otherwise the object watches for trays to come and go.
  [[nodiscard]] static std::unique_ptr<SystemTray> ofDisplay();

  ~SystemTray() override;
  SystemTray(const SystemTray&) = delete;
  SystemTray& operator=(const SystemTray&) = delete;

  [[nodiscard]] bool isThere() const { return manager_ != XCB_WINDOW_NONE; }

  /// Whether windows in it may be transparent.
  [[nodiscard]] bool isTransparent() const;

  /// The colour of its own texts, where it tells.
  [[nodiscard]] std::optional<QColor> textColour() const;

  /// Asks the tray to take the window in. Only the window docked last is watched.
  void dock(xcb_window_t window);

  /// Lets the tray know that the docked window is to be seen.
  void tellShown() const;

  /// Asks the tray for that much room for the docked window, in device pixels.
  void askForSize(const QSize& size) const;

  /// What the tray paints behind the docked window, if that is opaque, in device pixels; none while
  /// the window is not on the screen. Clears the window.
  [[nodiscard]] std::optional<QImage> backdrop(const QSize& size) const;

  /// The colour of the bar at the left end of the docked window, as the eye sees it; none while the
  /// window is not on the screen.
  [[nodiscard]] std::optional<QColor> ground(const QSize& size) const;

  [[nodiscard]] bool isDockedOnScreen() const;

  /// Where the docked window's top left corner is on the screen, in device pixels.
  [[nodiscard]] std::optional<QPoint> dockedPlace() const;

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

  // All told on a later pass of the loop than the display's event.
  Signal<> changed;  ///< A tray came or went.
  Signal<> coloursChanged;
  Signal<> embedded;  ///< The docked window is now inside the tray.
  Signal<> expelled;  ///< The docked window is out of the tray, or destroyed with it.

 private:
  struct Atoms {
    xcb_atom_t selection, manager, opcode, colours, visual, xembedInfo;
  };

  SystemTray(xcb_connection_t* connection, const xcb_screen_t& screen, const Atoms& atoms);

  [[nodiscard]] static Atoms internAtoms(xcb_connection_t* connection, int screenNumber);
  void findManager();
  void tellEmbedder(std::uint32_t flags) const;
  [[nodiscard]] const Signal<>* signalOf(const xcb_generic_event_t& event) const;
  [[nodiscard]] std::optional<QImage> image(xcb_window_t window, const QRect& part) const;
  [[nodiscard]] std::vector<std::uint32_t> managerProperty(xcb_atom_t name) const;

  xcb_connection_t* connection_;
  const xcb_screen_t& screen_;
  Atoms atoms_;
  xcb_window_t manager_ = XCB_WINDOW_NONE;
  xcb_window_t docked_ = XCB_WINDOW_NONE;
  QObject laterPass_;
};

}  // namespace Hilalor
