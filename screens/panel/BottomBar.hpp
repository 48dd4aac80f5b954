#pragma once

#include <QString>
#include <functional>

#include "platform/Signal.hpp"
#include "screens/panel/PanelContext.hpp"
#include "ui/View.hpp"

namespace Hilalor::Screens {

/// The panel's row of buttons: quit, stop what plays, settings.
class BottomBar final : public Ui::View {
 public:
  /// `onOpenSettings` may be empty.
  BottomBar(const PanelContext& context, std::function<void()> onOpenSettings);

 private:
  [[nodiscard]] Ui::Button* stopButton();
  [[nodiscard]] QString stopTitle() const;
  void stopSound();

  PrayerNotificationManager& notificationManager_;
  Subscription changes_;
};

}  // namespace Hilalor::Screens
