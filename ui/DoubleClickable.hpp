#pragma once

#include <QWidget>
#include <functional>

namespace Hilalor::Ui {

/// The part, with something that a double click anywhere on it does.
class DoubleClickable final : public QWidget {
 public:
  DoubleClickable(QWidget* part, std::function<void()> onDoubleClick);

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  std::function<void()> onDoubleClick_;
};

}  // namespace Hilalor::Ui
