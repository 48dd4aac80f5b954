#pragma once

#include <QLineEdit>
#include <functional>
#include <vector>

#include "ui/Button.hpp"

namespace Hilalor::Ui {

/// Something that was found: what it is called, and what tells it from others of that name.
struct Suggestion {
  QString title;
  QString detail;
};

/// A small button with a magnifying glass. Once clicked, a field to type in with what matches in a
/// list under it; it goes when something was chosen, by Escape, and when the keyboard goes
/// elsewhere. As large as it is at the moment, its right end where it was.
class SearchField final : public QWidget {
 public:
  struct Events {
    /// What matches the text, the best first.
    std::function<std::vector<Suggestion>(const QString& text)> find;
    /// The place of what was chosen among those found last.
    std::function<void(std::size_t index)> onChoose;
    /// The field has gone with the keyboard, which is for whom it was before.
    std::function<void()> onClose;
  };

  /// `help` says what is looked for.
  SearchField(const QString& help, Events events);

  /// With that text already typed.
  void open(const QString& text);
  void close();

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  class Row;
  static constexpr std::size_t kRows = 7;

  void refresh();
  void fit();
  void highlight(std::size_t index);
  void choose(std::size_t index);
  bool handleKey(int key);

  Events events_;
  Button* button_;
  QWidget* panel_;
  QLineEdit* edit_;
  QWidget* nothing_;
  std::vector<Row*> rows_;
  std::vector<Suggestion> found_;
  std::size_t highlighted_ = 0;
};

}  // namespace Hilalor::Ui
