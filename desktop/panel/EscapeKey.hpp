#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <optional>

#include "desktop/display/XConnection.hpp"

namespace Hilalor::Desktop {

/// Lets the Escape key reach a panel that has not taken the keyboard: while this object lives and
/// no window of ours has the keyboard, a press of it comes here and to nobody else. Only on X11.
class EscapeKey final : public QObject {
 public:
  explicit EscapeKey(std::function<void()> onPress);

 private:
  void grabUnlessOurs();

  std::function<void()> onPress_;
  std::unique_ptr<XConnection> server_;
  std::optional<xcb_keycode_t> key_;
};

}  // namespace Hilalor::Desktop
