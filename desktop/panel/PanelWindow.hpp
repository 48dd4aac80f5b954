#pragma once

#include <QWidget>
#include <functional>

#include "platform/Surfaces.hpp"
#include "ui/Surface.hpp"

namespace Hilalor::Desktop {

/// A window without a frame that floats above others with rounded corners, and a content that fills
/// it. On X11 it does not take the keyboard when it is shown or clicked; under a Wayland compositor
/// it is a window like others, which takes it. Where a compositor mixes windows it has a shadow and
/// smooth corners; elsewhere it is cut to shape.
class PanelWindow final : public QWidget {
  Q_OBJECT

 public:
  /// Takes the content over. `onDismiss` is told when the user presses Escape or when the desktop
  /// closes the window.
  PanelWindow(QWidget* content, std::function<void(Dismissal)> onDismiss);

  /// The rectangle of what is seen, without the shadow.
  void setFrame(const QRect& frame);
  [[nodiscard]] QRect frame() const;

  /// Forgets whom to tell.
  void disown() { onDismiss_ = nullptr; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void childEvent(QChildEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void dismiss(Dismissal how) const;
  [[nodiscard]] QRect body() const;
  [[nodiscard]] Ui::Surface surface() const;
  void cutToShape();
  void declareShadow();

  QWidget* content_;
  std::function<void(Dismissal)> onDismiss_;
  int shadow_;  // Its width around the body, 0 without a compositor.
};

}  // namespace Hilalor::Desktop
