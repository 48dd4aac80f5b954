#pragma once

#include <xcb/xcb.h>

#include <QObject>
#include <optional>

class QWidget;

namespace Hilalor::Desktop {

/// Who had the keyboard before a window that may take it, remembered to give it back. Only on X11,
/// where some window managers leave the keyboard to nobody when a window they do not manage goes.
class KeyboardFocus final : public QObject {
 public:
  /// The window takes the keyboard after presses in it, and after `rememberOwner`.
  explicit KeyboardFocus(const QWidget& taker);

  void rememberOwner();

  /// If the window or one that belongs to it has the keyboard now.
  void giveBack() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] bool isTakers(xcb_window_t window) const;

  const QWidget& taker_;
  std::optional<xcb_window_t> owner_;
};

}  // namespace Hilalor::Desktop
