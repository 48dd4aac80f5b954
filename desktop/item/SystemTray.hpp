#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QColor>
#include <QObject>
#include <cstdint>
#include <memory>
#include <optional>

#include "desktop/item/DockedWindow.hpp"
#include "platform/Signal.hpp"

namespace Hilalor::Desktop {

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

  /// Whether somebody manages the screen's windows, as on all but the barest desktops.
  [[nodiscard]] bool hasWindowManager() const;

  /// Whether windows in it may be transparent.
  [[nodiscard]] bool isTransparent() const;

  /// The colour of its own texts, where it tells. It may be of another theme than the bar's.
  [[nodiscard]] std::optional<QColor> textColour() const;

  /// Asks the tray to take the window in, to show it then and to give it that much room, in device
  /// pixels. Only the window docked last is watched.
  [[nodiscard]] DockedWindow dock(xcb_window_t window, const QSize& size);

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

  // Told on a later pass of the loop than the display's event.
  Signal<> changed;  ///< A tray came or went.
  Signal<> coloursChanged;
  Signal<> expelled;  ///< The docked window is out of the tray, or destroyed with it.

  /// The docked window is now inside the tray. Told within the display's event: the receiver may
  /// show windows, but not make or unmake them.
  Signal<> embedded;

 private:
  struct Atoms {
    xcb_atom_t selection, manager, opcode, colours, visual, xembedInfo;
  };

  SystemTray(xcb_connection_t* connection, const xcb_screen_t& screen, const Atoms& atoms);

  [[nodiscard]] static Atoms internAtoms(xcb_connection_t* connection, int screenNumber);
  void findManager();
  void tellLater(const Signal<>& signal);
  [[nodiscard]] const Signal<>* signalOf(const xcb_generic_event_t& event) const;

  xcb_connection_t* connection_;
  const xcb_screen_t& screen_;
  Atoms atoms_;
  xcb_window_t manager_ = XCB_WINDOW_NONE;
  xcb_window_t docked_ = XCB_WINDOW_NONE;
  QObject laterPass_;
};

}  // namespace Hilalor::Desktop
