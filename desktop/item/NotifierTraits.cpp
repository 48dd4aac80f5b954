#include "desktop/item/NotifierTraits.hpp"

namespace Hilalor::Desktop {

NotifierTraits NotifierTraits::of(const QString& processName) {
  static constexpr struct {
    const char* name;
    NotifierTraits traits;
  } kKnown[] = {
      {"gnome-shell", {NotifierDrawing::label, true}},
      {"cinnamon", {NotifierDrawing::label, true}},
      {"xapp-sn-watcher", {NotifierDrawing::label, true}},
      // The indicators, Ayatana's and Ubuntu's, open the menu with every button.
      {"ayatana-indicat", {NotifierDrawing::label, false}},
      {"indicator-appli", {NotifierDrawing::label, false}},
      {"waybar", {NotifierDrawing::wide, true}},
      // These make small pictures of the windows in their system tray, or lose them.
      {"lxqt-panel", {NotifierDrawing::square, true}},
      {"plasmashell", {NotifierDrawing::square, true}},
      {"kded5", {NotifierDrawing::square, true}},
      {"kded6", {NotifierDrawing::square, true}},
  };
  for (const auto& [name, traits] : kKnown) {
    if (processName == QLatin1String(name)) return traits;
  }
  return {};
}

}  // namespace Hilalor::Desktop
