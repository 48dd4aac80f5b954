#include "rules/bar/ItemClicks.hpp"

#include "rules/bar/PanelPlacement.hpp"

namespace Hilalor {
namespace {

// How far the pointer may move between the press and the release of a click.
constexpr double kClickReach = 8;
// Bars report a click over D-Bus, a moment after the release.
constexpr Seconds kClickReportDelay{0.3};
// From a press whose release nobody tells to the report of its click.
constexpr Seconds kWholeClick{0.6};

}  // namespace

bool ItemClicks::press(Point place, const std::optional<Rect>& item) {
  if (item && isWithin(0, *item, place)) return false;
  closingPress_ = ClosingPress{.place = place, .since = std::nullopt};
  return true;
}

bool ItemClicks::release(Date now) {
  if (!closingPress_) return false;
  closingPress_->since = now;
  closingPress_->patience = kClickReportDelay;
  return true;
}

void ItemClicks::dismissal(Dismissal how, Date now) {
  if (how != Dismissal::byDesktop) return;
  closingPress_ = ClosingPress{.place = std::nullopt, .since = now, .patience = kWholeClick};
}

ItemClicks::Answer ItemClicks::click(const StatusItemClick& click, const std::optional<Rect>& item,
                                     bool isPanelShown, Date now) {
  const bool closedThePanel = isOfClosingPress(click, item, now);
  closingPress_.reset();
  if (click.button == StatusItemClick::Button::right) return Answer::close;
  if (closedThePanel) return Answer::nothing;
  return isPanelShown ? Answer::close : Answer::open;
}

bool ItemClicks::isOfClosingPress(const StatusItemClick& click, const std::optional<Rect>& item,
                                  Date now) const {
  if (!closingPress_) return false;
  const auto& [place, since, patience] = *closingPress_;
  // The clock may have been set back meanwhile.
  if (since && (now < *since || now - *since >= patience)) return false;
  if (!place) return true;
  const auto there = itemOrPointer(item, click.pointer);
  return there && isWithin(kClickReach, *there, *place);
}

std::optional<Point> pointerOnItem(const StatusItemClick& click, const std::optional<Rect>& item,
                                   const std::vector<Screen>& screens) {
  if (!click.pointer || item) return click.pointer;
  return mayBeOnBar(*click.pointer, screens) ? click.pointer : std::nullopt;
}

std::optional<Rect> itemOrPointer(const std::optional<Rect>& item,
                                  const std::optional<Point>& pointer) {
  if (item || !pointer) return item;
  return Rect{*pointer, {}};
}

}  // namespace Hilalor
