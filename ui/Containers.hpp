#pragma once

#include <QDialog>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <initializer_list>

namespace Hilalor {

/// Parts that belong together, from top to bottom on a rounded ground of their own.
class Card final : public QWidget {
 public:
  explicit Card(std::initializer_list<QWidget*> parts);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A part that is higher than its surroundings, in their middle. Where it does not fit, a thin bar
/// over its right edge shows how much of it is seen, and scrolls it.
class ScrollColumn final : public QScrollArea {
 public:
  explicit ScrollColumn(QWidget* content);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void followRange();

  QScrollBar* indicator_;
};

/// A screen over another window, which waits until it has closed. Deletes itself then. Light or
/// dark as that window.
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

}  // namespace Hilalor
