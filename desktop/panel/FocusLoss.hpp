#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

namespace Hilalor::Desktop {

/// Tells when the keyboard has gone from all windows of the program to another one's, after it was
/// here. Menus, popovers and other windows of ours do not count as another's.
class FocusLoss final : public QObject {
 public:
  explicit FocusLoss(std::function<void()> onLoss);

 private:
  void focusChanged();

  std::function<void()> onLoss_;
  QTimer settling_;
  bool wasHere_ = false;
};

}  // namespace Hilalor::Desktop
