#include "desktop/panel/ColorSchemeSetting.hpp"

#include <QApplication>

#include "ui/Colors.hpp"

namespace Hilalor::Desktop {
namespace {

// The portal's values; 0 is no preference.
constexpr uint kPrefersDark = 1;
constexpr uint kPrefersLight = 2;

QPalette paletteFor(uint preference) {
  if (preference == kPrefersDark) return Ui::windowPalette(Ui::ColorScheme::dark);
  if (preference == kPrefersLight) return Ui::windowPalette(Ui::ColorScheme::light);
  return {};
}

}  // namespace

void followColorScheme(PortalSettings& settings) {
  settings.watch(
      {QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme")},
      [](const QVariant& value) { QApplication::setPalette(paletteFor(value.toUInt())); });
}

}  // namespace Hilalor::Desktop
