#pragma once

#include <QDialog>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <initializer_list>

namespace Hilalor::Ui {

/// Parts that belong together, from top to bottom on a rounded ground of their own.
class Card final : public QWidget {
 public:
  explicit Card(std::initializer_list<QWidget*> parts);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// Which keys scroll.
enum class ScrollKeys {
  unused,  ///< Those that the focused part has no use for.
  own,     ///< Those pressed while the column itself has the keyboard, as a stop of its own.
};

/// A part of a fixed width that may be higher than its surroundings, in their middle. Where it does
/// not fit, a thin bar over its right edge shows how much of it is seen, and scrolls it; a part
/// that gets the keyboard comes into sight. Wants to be as high as the part.
class ScrollColumn final : public QScrollArea {
 public:
  explicit ScrollColumn(QWidget* content, ScrollKeys keys = ScrollKeys::unused);
  ~ScrollColumn() override;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void followRange();
  void followFocus(QWidget* focused);

  ScrollKeys keys_;
  QScrollBar* indicator_;
};

/// A screen over another window, which waits until it has closed. Deletes itself then. Light or
/// dark as that window, and titled as its content.
class Sheet final : public QDialog {
 public:
  Sheet(QWidget& owner, QWidget* content);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// Says that something is going on. Turns only while it can be seen.
class ActivityIndicator final : public QWidget {
 public:
  explicit ActivityIndicator(int side);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QTimer turning_;
  int turn_ = 0;
};

}  // namespace Hilalor::Ui
