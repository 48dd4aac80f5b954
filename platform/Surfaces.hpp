#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/Panel.hpp"
#include "platform/Updater.hpp"

namespace Hilalor {

/// Why a panel closed: by the Escape key, by the desktop (after a press elsewhere), or because
/// something else was opened at its place.
enum class Dismissal { byEscape, byDesktop, toMakeRoom };

/// What a calendar panel reports.
struct CalendarPanelEvents {
  std::function<void(Size)> onSizeChange;  ///< Its screen wants that size now.
  std::function<void()> onOpenSettings;
  std::function<void()> onChoosePlace = {};  ///< The user wants to say where they are.
  /// The user wants it gone, or it is gone already.
  std::function<void(Dismissal)> onDismiss;
};

/// A quiet line in the panel, there until the user puts it away.
struct Advice {
  std::string text;  ///< UTF-8.
  std::function<void()> onPutAway;
};

/// Makes the surfaces that the item in the bar opens, each with its screen built afresh, not shown
/// yet. Main thread.
class Surfaces {
 public:
  virtual ~Surfaces() = default;

  [[nodiscard]] virtual std::unique_ptr<Panel> makeCalendarPanel(CalendarPanelEvents events,
                                                                 std::optional<Advice> advice) = 0;

  /// Centred on the screen. `updater` is null in a build without updates; `onWillClose` is told
  /// when the user closes the window. Null where there is no such window.
  [[nodiscard]] virtual std::unique_ptr<Window> makeSettingsWindow(
      Updater* updater, std::function<void()> onWillClose) = 0;

  /// A map on which the user says where they are, told in the same way.
  [[nodiscard]] virtual std::unique_ptr<Window> makePlaceWindow(
      std::function<void()> onWillClose) = 0;
};

}  // namespace Hilalor
