#pragma once

#include <QPlainTextEdit>
#include <functional>

namespace Hilalor::Ui {

/// Several lines of plain text to type in, in a rounded box.
class TextEditor final : public QWidget {
 public:
  explicit TextEditor(int typeSize);

  /// What a screen reader calls it.
  void setName(const QString& name) { edit_.setAccessibleName(name); }

  [[nodiscard]] QString text() const;

  /// Shows the text, with the caret at its end. Does not count as an edit.
  void setText(const QString& text);

  /// Called at every change that the user makes.
  std::function<void(const QString&)> onEdit;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPlainTextEdit edit_;
};

}  // namespace Hilalor::Ui
