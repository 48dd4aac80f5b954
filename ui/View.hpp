#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "ui/Button.hpp"
#include "ui/Stack.hpp"
#include "ui/Text.hpp"

namespace Hilalor::Ui {

/// A screen, or a large part of one: a tree of parts laid out once. Some parts show what a function
/// returns. At every redraw those functions are asked again.
class View : public QWidget {
 public:
  explicit View(QWidget* parent = nullptr);

  /// Redraws on the next pass of the loop, however often it is asked for until then. Published
  /// values are told before they are in place, so this is what to do when one is told.
  void setNeedsRedraw();

  void redraw();

  /// The size that the content wants, of its greatest height at most.
  [[nodiscard]] QSize sizeHint() const override;

  /// The greatest height that the view may have, in logical pixels. A smaller one is asked for at
  /// once where the content can do with less.
  virtual void setGreatestHeight(int height);

  /// Tells the size that the view wants though it has not changed.
  void reportSizeAgain();

  /// Told the size that the view wants whenever it has changed, never one without width or height.
  std::function<void(QSize)> onWantedSize;

 protected:
  /// The size that the content wants: its height at the view's width where that is fixed.
  [[nodiscard]] QSize naturalSize() const;

  /// Takes a part's new size into account at once instead of on the next passes of the loop.
  void remeasure(QWidget& part);

  /// The view's content, which fills it. Once, in the constructor.
  void setBody(QWidget* body);

  /// Runs at every redraw, after those that were asked for before it.
  void atRedraw(std::function<void()> show);

  /// A text that is what the function gives.
  [[nodiscard]] Text* liveText(const TextStyle& style, std::function<QString()> text);

  /// The part, there only while the function says so.
  template <typename Part>
  [[nodiscard]] Part* onlyWhile(std::function<bool()> isShown, Part* part) {
    atRedraw([isShown = std::move(isShown), part] { part->setVisible(isShown()); });
    return part;
  }

  bool event(QEvent* event) override;

 private:
  void reportSize();

  std::vector<std::function<void()>> redraws_;
  bool needsRedraw_ = false;
  QSize reportedSize_;
};

}  // namespace Hilalor::Ui
