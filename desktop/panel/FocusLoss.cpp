#include "desktop/panel/FocusLoss.hpp"

#include <QGuiApplication>
#include <QWindow>
#include <chrono>
#include <utility>

namespace Hilalor::Desktop {
namespace {

/// From one of our windows to the next the keyboard may be nobody's for a moment.
constexpr std::chrono::milliseconds kChangeOfWindows{50};

}  // namespace

FocusLoss::FocusLoss(std::function<void()> onLoss) : onLoss_(std::move(onLoss)) {
  settling_.setSingleShot(true);
  connect(&settling_, &QTimer::timeout, this, [this] {
    // A copy, since it may end this object.
    const auto told = onLoss_;
    if (told) told();
  });
  connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this] { focusChanged(); });
  focusChanged();
}

void FocusLoss::focusChanged() {
  const bool isHere = QGuiApplication::focusWindow() != nullptr;
  if (isHere) settling_.stop();
  if (!isHere && wasHere_) settling_.start(kChangeOfWindows);
  wasHere_ = wasHere_ || isHere;
}

}  // namespace Hilalor::Desktop
