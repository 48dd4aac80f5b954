#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "platform/StatusItem.hpp"

namespace Hilalor::Desktop {

/// What the item says and does, whatever shows it at the moment.
struct ItemContent {
  ItemTitle title;
  std::function<void(const StatusItemClick&)> action;
  Menu menu;                                   ///< Where we open it ourselves.
  Menu hostedMenu;                             ///< Where the bar draws it.
  Appearance appearance = Appearance::system;  ///< Of what we open ourselves.

  [[nodiscard]] QString wholeTitle() const { return QString::fromStdString(title.whole()); }
  [[nodiscard]] QString titleWords() const { return QString::fromStdString(title.words()); }

  void tell(const StatusItemClick& click) const {
    // The action may replace itself or take the item away.
    if (const auto kept = action) kept(click);
  }
};

/// One way of being in the bar, for as long as it lives. Main thread.
class ItemPresence {
 public:
  virtual ~ItemPresence() = default;

  /// The content's title has become another.
  virtual void titleChanged() = 0;

  /// Where the item stands on the screen now; absent where the bar does not tell.
  [[nodiscard]] virtual std::optional<Rect> place() const { return std::nullopt; }

  /// Called now and then: time to see whether the bar looks different by now.
  virtual void lookAround() {}
};

}  // namespace Hilalor::Desktop
