#pragma once

#include <QLabel>

#include "ui/Animation.hpp"
#include "ui/TextStyle.hpp"

namespace Hilalor::Ui {

/// A text. As wide as it is on one line where there is room; where there is not, broken between
/// words or with an ellipsis at its end.
class Text final : public QLabel {
 public:
  explicit Text(const TextStyle& style, const QString& text = {});

  void setStyle(const TextStyle& style);

  /// Lets the text appear or vanish with an ease-in-out curve; its place stays. It vanishes as what
  /// it was before, whatever it is by then.
  void fadeTo(double opacity, std::chrono::milliseconds duration);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  TextStyle style_;
  Animation presence_;
  bool isLeaving_ = false;
  QString lastSeen_;  // Before it was leaving.
};

}  // namespace Hilalor::Ui
