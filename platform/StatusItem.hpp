#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Geometry.hpp"
#include "platform/ItemTitle.hpp"
#include "platform/Panel.hpp"

namespace Hilalor {

/// A release of a mouse button over the status item.
struct StatusItemClick {
  enum class Button { left, right };

  Button button = Button::left;
  /// Where the pointer was; absent where the bar does not tell (an item activated by keyboard).
  std::optional<Point> pointer;
};

/// One line of a menu.
struct MenuItem {
  std::string title;          ///< Empty for a separator.
  char keyEquivalent = '\0';  ///< Chooses the line while the menu is open; none if '\0'.
  std::function<void()> action;
};

using Menu = std::vector<MenuItem>;

/// The part of the status item that the user sees and clicks.
class StatusButton {
 public:
  virtual ~StatusButton() = default;

  /// What the bar shows. The whole title is also the item's accessible one.
  virtual void setTitle(const ItemTitle& title) = 0;

  /// Called for every release of the left or right button over the item.
  virtual void setAction(std::function<void(const StatusItemClick&)> action) = 0;

  /// The menu that a right click opens, after the action has been told of the click. It is set
  /// beforehand because most bars open it themselves.
  virtual void setContextMenu(Menu menu) = 0;

  /// The menu that takes its place where the bar draws the menu itself. On some bars that menu is
  /// all that a single click, the keyboard or a touch screen reaches.
  virtual void setHostedMenu(Menu menu) = 0;

  /// Whether a menu that is not the bar's is light or dark.
  virtual void setAppearance(Appearance appearance) = 0;
};

/// An item in the desktop's bar, there for as long as this object lives. Main thread.
class StatusItem {
 public:
  virtual ~StatusItem() = default;

  /// Null where the desktop gives an item nothing to show.
  [[nodiscard]] virtual StatusButton* button() = 0;

  /// Called once, a while after the start, if nothing shows the item by then.
  virtual void setUnseenHandler(std::function<void()> handler) = 0;

  /// Where it stands on the screen at this moment; absent where the bar does not tell.
  [[nodiscard]] virtual std::optional<Rect> place() const = 0;

  /// How the user can give it a better place; absent where it has one or nobody knows.
  [[nodiscard]] virtual std::optional<std::string> advice() const { return std::nullopt; }
};

/// The desktop's bar.
class StatusBar {
 public:
  virtual ~StatusBar() = default;

  /// A new item as wide as its text needs.
  [[nodiscard]] virtual std::unique_ptr<StatusItem> makeItem() = 0;
};

}  // namespace Hilalor
