#include "desktop/panel/AppearanceSetting.hpp"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <memory>

#include "desktop/display/XSettings.hpp"
#include "ui/Colors.hpp"

namespace Hilalor::Desktop {
namespace {

// The portal's values; 0 is no preference.
constexpr uint kPrefersDark = 1;
constexpr uint kPrefersLight = 2;
constexpr uint kPrefersHighContrast = 1;

/// What was said so far. One voice for high contrast is enough.
struct Wishes {
  uint scheme = 0;
  bool isContrastHigh = false;
  bool isGnomesContrastHigh = false;
  QString theme;

  /// By the names that GTK's themes of high contrast have on all desktops.
  [[nodiscard]] bool isThemeHigh() const {
    return theme.startsWith(QStringLiteral("HighContrast")) ||
           theme.startsWith(QStringLiteral("ContrastHigh"));
  }

  void apply() const {
    // Nothing of ours, so that the desktop's own palette can be asked.
    QApplication::setPalette(QPalette());
    const bool isHigh = isContrastHigh || isGnomesContrastHigh || isThemeHigh();
    if (scheme == 0 && !isHigh) return;
    auto wanted = Ui::colorScheme(QApplication::palette());
    if (scheme == kPrefersLight) wanted = Ui::ColorScheme::light;
    const bool isInverse = isThemeHigh() && theme.endsWith(QStringLiteral("Inverse"));
    if (scheme == kPrefersDark || isInverse) wanted = Ui::ColorScheme::dark;
    QApplication::setPalette(
        Ui::windowPalette(wanted, isHigh ? Ui::Contrast::high : Ui::Contrast::usual));
  }
};

/// "Cantarell Bold 11" as GTK's programs are told their font. Ours is the desktop's Qt font, in
/// that size.
void takeTypeSize(const QString& font) {
  const double points = font.section(u' ', -1).toDouble();
  QFont own = QApplication::font();
  if (points <= 0 || points == own.pointSizeF()) return;
  own.setPointSizeF(points);
  QApplication::setFont(own);
}

}  // namespace

void followAppearance(PortalSettings& settings) {
  const auto wishes = std::make_shared<Wishes>();
  const auto follow = [&](const char* group, const char* name, auto take) {
    settings.watch({QString::fromLatin1(group), QString::fromLatin1(name)},
                   [wishes, take](const QVariant& value) {
                     take(*wishes, value);
                     wishes->apply();
                   });
  };
  follow("org.freedesktop.appearance", "color-scheme",
         [](Wishes& now, const QVariant& value) { now.scheme = value.toUInt(); });
  follow("org.freedesktop.appearance", "contrast", [](Wishes& now, const QVariant& value) {
    now.isContrastHigh = value.toUInt() == kPrefersHighContrast;
  });
  follow("org.gnome.desktop.a11y.interface", "high-contrast",
         [](Wishes& now, const QVariant& value) { now.isGnomesContrastHigh = value.toBool(); });
  follow("org.gnome.desktop.interface", "gtk-theme",
         [](Wishes& now, const QVariant& value) { now.theme = value.toString(); });
  settings.watch({QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("font-name")},
                 [](const QVariant& value) { takeTypeSize(value.toString()); });
  takeTypeSize(QString::fromStdString(xTextSetting("Gtk/FontName").value_or("")));
  wishes->theme = QString::fromStdString(xTextSetting("Net/ThemeName").value_or(""));
  if (wishes->isThemeHigh()) wishes->apply();
}

}  // namespace Hilalor::Desktop
