#pragma once

#include <QObject>
#include <QPoint>

class QWidget;

namespace Hilalor::Desktop {

/// Keeps a window where the program puts it: sway moves what floats into its middle when it is
/// shown and whenever its size changes. Belongs to the window.
class SwayPlace final : public QObject {
 public:
  /// The window must have a title that no other of the program has.
  explicit SwayPlace(QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget& window_;
  QPoint corner_;
};

}  // namespace Hilalor::Desktop
