#pragma once

#include <QWidget>
#include <functional>
#include <memory>

namespace Hilalor::Desktop {

/// Tells of presses on the bare desktop in GNOME's Wayland session, where they neither move the
/// keyboard nor are told to the X server: a clear window as large as the screens, below all others.
/// A press that meets it goes no further.
class BareDesktop final : public QWidget {
 public:
  /// Null where a press there is known otherwise. `onPress` may destroy the object.
  [[nodiscard]] static std::unique_ptr<BareDesktop> watch(std::function<void()> onPress);

 protected:
  void mousePressEvent(QMouseEvent* event) override;

 private:
  explicit BareDesktop(std::function<void()> onPress);

  std::function<void()> onPress_;
};

}  // namespace Hilalor::Desktop
