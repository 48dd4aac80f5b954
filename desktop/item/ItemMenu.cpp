#include "desktop/item/ItemMenu.hpp"

#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>

#include "desktop/display/WindowAppearance.hpp"
#include "ui/PopUpStyle.hpp"

namespace Hilalor::Desktop {
namespace {

QPoint anchor(const QRect& item, const QSize& menu) {
  const QScreen* screen = QGuiApplication::screenAt(item.center());
  const bool isInUpperHalf =
      screen == nullptr || item.center().y() < screen->geometry().center().y();
  return isInUpperHalf ? item.bottomLeft() + QPoint(0, 1)
                       : item.topLeft() - QPoint(0, menu.height());
}

}  // namespace

ItemMenu::ItemMenu() = default;
ItemMenu::~ItemMenu() = default;

void ItemMenu::open(const Menu& menu, const std::optional<QRect>& item, Appearance appearance) {
  if (menu.empty()) return;
  menu_ = std::make_unique<QMenu>();
  for (const auto& line : menu) {
    if (line.title.empty()) {
      menu_->addSeparator();
    } else {
      menu_->addAction(marked(line, u'&'), menu_.get(), line.action);
    }
  }
  setWindowAppearance(*menu_, appearance);
  menu_->ensurePolished();
  const int shadow = Ui::PopUpStyle::shadowOf(*menu_);
  const QSize seen = menu_->sizeHint() - 2 * QSize(shadow, shadow);
  const QPoint place = item ? anchor(*item, seen) : QCursor::pos();
  menu_->popup(place - QPoint(shadow, shadow));
}

QString ItemMenu::marked(const MenuItem& item, QChar sign) {
  QString title = QString::fromStdString(item.title).replace(sign, QString(2, sign));
  if (item.keyEquivalent == '\0') return title;
  const auto place = title.indexOf(QLatin1Char(item.keyEquivalent), 0, Qt::CaseInsensitive);
  return place < 0 ? title : title.insert(place, sign);
}

}  // namespace Hilalor::Desktop
