#pragma once

#include <optional>
#include <vector>

#include "datetime/Date.hpp"
#include "platform/Geometry.hpp"
#include "platform/ScreenService.hpp"
#include "platform/StatusItem.hpp"
#include "platform/Surfaces.hpp"

namespace Hilalor {

/// Decides what a click on the item in the bar does to the panel. The press that closed the panel
/// is not the one that opens it: bars report the click of that press after its release, and until
/// then it is known where the press was. Instants are the caller's; keeps no timer.
class ItemClicks {
 public:
  enum class Answer { nothing, open, close };

  /// A press outside the panel while that is open. True if the panel closes for it. It does not
  /// close for a press on the item, whose own click follows. `item` is absent where the bar does
  /// not tell.
  [[nodiscard]] bool press(Point place, const std::optional<Rect>& item);

  /// A mouse button went up. True if it may be that of the press that closed the panel.
  bool release(Date now);

  /// The panel has closed without a press that was told.
  void dismissal(Dismissal how, Date now);

  /// A click on the item.
  [[nodiscard]] Answer click(const StatusItemClick& click, const std::optional<Rect>& item,
                             bool isPanelShown, Date now);

 private:
  struct ClosingPress {
    std::optional<Point> place;  // Absent where the desktop does not tell.
    std::optional<Date> since;   // When its click may come; absent while the button is down.
    Seconds patience{0};         // For so long from then.
  };

  [[nodiscard]] bool isOfClosingPress(const StatusItemClick& click, const std::optional<Rect>& item,
                                      Date now) const;

  std::optional<ClosingPress> closingPress_;
};

/// Where the pointer was on the item; none for a click by keyboard, of which a bar may tell the
/// pointer too, wherever that is.
[[nodiscard]] std::optional<Point> pointerOnItem(const StatusItemClick& click,
                                                 const std::optional<Rect>& item,
                                                 const std::vector<Screen>& screens);

/// Where the item is: its place where the bar tells it, else the pointer on it.
[[nodiscard]] std::optional<Rect> itemOrPointer(const std::optional<Rect>& item,
                                                const std::optional<Point>& pointer);

}  // namespace Hilalor
