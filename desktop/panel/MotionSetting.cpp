#include "desktop/panel/MotionSetting.hpp"

#include <memory>

#include "desktop/display/XSettings.hpp"

namespace Hilalor::Desktop {
namespace {

/// What each desktop's setting says. One that is against it is enough.
struct Wishes {
  bool isReduced = false;
  bool gnomeAnimates = true;
  double plasmaFactor = 1;

  [[nodiscard]] bool animates() const { return !isReduced && gnomeAnimates && plasmaFactor > 0; }
};

}  // namespace

void followMotion(PortalSettings& settings, Ui::PopUpStyle& style) {
  const auto wishes = std::make_shared<Wishes>();
  const auto follow = [&](const char* group, const char* name, auto take) {
    settings.watch({QString::fromLatin1(group), QString::fromLatin1(name)},
                   [wishes, take, &style](const QVariant& value) {
                     take(*wishes, value);
                     style.setAnimates(wishes->animates());
                   });
  };
  follow("org.freedesktop.appearance", "reduced-motion",
         [](Wishes& now, const QVariant& value) { now.isReduced = value.toUInt() == 1; });
  follow("org.gnome.desktop.interface", "enable-animations",
         [](Wishes& now, const QVariant& value) { now.gnomeAnimates = value.toBool(); });
  follow("org.kde.kdeglobals.KDE", "AnimationDurationFactor",
         [](Wishes& now, const QVariant& value) {
           bool isNumber = false;
           const double factor = value.toString().toDouble(&isNumber);
           now.plasmaFactor = isNumber ? factor : 1;
         });
}

bool settingsManagerAnimates() {
  return xSetting("Gtk/EnableAnimations").value_or(1) != 0;
}

}  // namespace Hilalor::Desktop
