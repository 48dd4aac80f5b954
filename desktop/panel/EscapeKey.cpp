#include "desktop/panel/EscapeKey.hpp"

#include <QGuiApplication>
#include <QWindow>
#include <array>
#include <utility>

namespace Hilalor::Desktop {
namespace {

constexpr xcb_keysym_t kEscapeSymbol = 0xff1b;

// Caps Lock and Num Lock count as modifiers. Any other stays free: window managers have shortcuts
// with Escape, and the server refuses a key of which somebody has a part.
constexpr std::array<std::uint16_t, 4> kLocks{0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2,
                                              XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};

/// The key that has Escape on it, on the user's keyboard.
std::optional<xcb_keycode_t> escapeKey(const XConnection& server) {
  const xcb_setup_t* setup = xcb_get_setup(server.get());
  const int keys = setup->max_keycode - setup->min_keycode + 1;
  const auto cookie =
      xcb_get_keyboard_mapping(server.get(), setup->min_keycode, static_cast<std::uint8_t>(keys));
  const auto reply = Xcb::answer(xcb_get_keyboard_mapping_reply, server.get(), cookie);
  if (!reply || reply->keysyms_per_keycode == 0) return std::nullopt;
  const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
  for (int key = 0; key < keys; ++key) {
    if (symbols[key * reply->keysyms_per_keycode] == kEscapeSymbol)
      return static_cast<xcb_keycode_t>(setup->min_keycode + key);
  }
  return std::nullopt;
}

}  // namespace

EscapeKey::EscapeKey(std::function<void()> onPress)
    : onPress_(std::move(onPress)), server_(XConnection::open()) {
  if (server_) key_ = escapeKey(*server_);
  if (!key_) return;
  server_->watch([this](const xcb_generic_event_t& event) {
    constexpr std::uint8_t kSentByServer = 0x7f;
    if ((event.response_type & kSentByServer) != XCB_KEY_PRESS) return;
    // A copy, since it may end this object.
    const auto pressed = onPress_;
    pressed();
  });
  connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this] { grabUnlessOurs(); });
  grabUnlessOurs();
}

void EscapeKey::grabUnlessOurs() {
  const bool isOurs = QGuiApplication::focusWindow() != nullptr;
  for (const std::uint16_t locks : kLocks) {
    if (isOurs) {
      xcb_ungrab_key(server_->get(), *key_, server_->root(), locks);
    } else {
      xcb_grab_key(server_->get(), 0, server_->root(), locks, *key_, XCB_GRAB_MODE_ASYNC,
                   XCB_GRAB_MODE_ASYNC);
    }
  }
  xcb_flush(server_->get());
}

}  // namespace Hilalor::Desktop
