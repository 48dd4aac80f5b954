#include "desktop/display/WindowAppearance.hpp"

#include <QApplication>
#include <QPalette>

#include "ui/Colors.hpp"

namespace Hilalor::Desktop {

void setWindowAppearance(QWidget& window, Appearance appearance) {
  const auto contrast = Ui::contrast(QApplication::palette());
  switch (appearance) {
    case Appearance::system:
      window.setPalette(QPalette());
      break;
    case Appearance::light:
      window.setPalette(Ui::windowPalette(Ui::ColorScheme::light, contrast));
      break;
    case Appearance::dark:
      window.setPalette(Ui::windowPalette(Ui::ColorScheme::dark, contrast));
      break;
  }
}

}  // namespace Hilalor::Desktop
