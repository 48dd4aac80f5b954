#pragma once

#include <QPainterPath>
#include <QWidget>
#include <functional>

namespace Hilalor::Ui {

/// A small window that points at a part of another one: below it, or above where there is no room.
/// It takes the keyboard and closes by Escape, by a press in another window of the program, and
/// with the window it belongs to.
class Popover final : public QWidget {
 public:
  /// Belongs to the anchor's window and takes the content over, whose title is the window's to a
  /// screen reader. Not shown yet.
  Popover(QWidget& anchor, QWidget* content);
  ~Popover() override;

  void open();
  void dismiss();

  /// Told once, when it has closed.
  std::function<void()> onDismiss;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  enum class Side { below, above };

  void place();
  void followContent();
  [[nodiscard]] bool isOfThis(const QWidget* widget) const;
  [[nodiscard]] QPainterPath outline() const;
  [[nodiscard]] bool isOutside(const QEvent& press) const;

  QWidget& anchor_;
  QWidget* content_;
  Side side_ = Side::below;
  int arrowX_ = 0;  // The arrow's tip from the left edge.
  int shadow_ = 0;  // Its room around what is seen.
};

}  // namespace Hilalor::Ui
