#include "ui/PopUpStyle.hpp"

#include <QMenu>
#include <QPainter>
#include <QStyleOptionMenuItem>
#include <algorithm>
#include <utility>

#include "ui/Colors.hpp"
#include "ui/Icon.hpp"
#include "ui/Shapes.hpp"
#include "ui/Surface.hpp"
#include "ui/TextStyle.hpp"

namespace Hilalor::Ui {
namespace {

constexpr double kRadius = 8;
constexpr int kMenuShadow = 12;
constexpr int kTipShadow = 8;
constexpr int kMenuPadding = 4;
constexpr int kTipPadding = 5;
constexpr int kMenuTypeSize = 13;
constexpr int kTipTypeSize = 11;
constexpr int kItemHeight = 24;
constexpr int kItemSides = 10;
constexpr double kItemRadius = 5;
constexpr int kTickWidth = 20;
constexpr int kTickSide = 14;
constexpr int kSeparatorHeight = 9;
constexpr double kDisabledOpacity = 0.7;

bool isMenu(const QWidget* widget) {
  return qobject_cast<const QMenu*>(widget) != nullptr;
}

bool isTip(const QWidget* widget) {
  return widget != nullptr && widget->inherits("QTipLabel");
}

bool isPopUp(const QWidget* widget) {
  return isMenu(widget) || isTip(widget);
}

Surface surfaceOf(const QWidget& popUp) {
  const int shadow = PopUpStyle::shadowOf(popUp);
  return Surface::of(QRectF(popUp.rect()).adjusted(shadow, shadow, -shadow, -shadow), kRadius,
                     shadow);
}

/// A tool tip is Qt's own window, which knows the desktop's colours only.
void takeColours(QWidget& tip) {
  const QWidget& owner = tip.parentWidget() == nullptr ? tip : *tip.parentWidget();
  tip.setPalette(windowPalette(colorScheme(owner.palette()), contrast(owner.palette())));
  tip.setFont(systemFont(kTipTypeSize));
}

QString shown(const QStyleOptionMenuItem& item) {
  return item.text.section(u'\t', 0, 0);
}

void paintSeparator(QPainter& painter, const QStyleOptionMenuItem& item, const Colors& colors) {
  const QRect line(item.rect.left() + kItemSides, item.rect.center().y(),
                   item.rect.width() - 2 * kItemSides, 1);
  painter.fillRect(line, colors.separator);
}

void paintArrow(QPainter& painter, const QRect& rect, const QColor& ink) {
  constexpr double kReach = 3;
  const QPointF tip(rect.right() - kItemSides + kReach, QRectF(rect).center().y());
  painter.setPen(QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(
      QPolygonF({tip + QPointF(-kReach, -kReach), tip, tip + QPointF(-kReach, kReach)}));
}

void paintItem(QPainter& painter, const QStyleOptionMenuItem& item, const Colors& colors,
               int mnemonic) {
  const bool isEnabled = item.state.testFlag(QStyle::State_Enabled);
  const bool isChosen = isEnabled && item.state.testFlag(QStyle::State_Selected);
  painter.setRenderHint(QPainter::Antialiasing);
  if (isChosen) painter.fillPath(smoothRect(item.rect, kItemRadius), colors.accent);
  const QColor atRest =
      isEnabled ? colors.primary : weaker(colors, colors.secondary, kDisabledOpacity);
  const QColor ink = isChosen ? colors.white : atRest;
  QRect room = item.rect.adjusted(kItemSides, 0, -kItemSides, 0);
  if (item.menuHasCheckableItems) {
    const QRect tick(room.left() - 2, room.center().y() - kTickSide / 2, kTickSide, kTickSide);
    if (item.checked) paintIcon(painter, Icon::checkMark, tick, ink);
    room.setLeft(room.left() + kTickWidth);
  }
  painter.setPen(ink);
  painter.setFont(item.font);
  painter.drawText(
      room, static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextSingleLine | mnemonic,
      shown(item));
  painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                   item.text.section(u'\t', 1));
  if (item.menuItemType == QStyleOptionMenuItem::SubMenu) paintArrow(painter, item.rect, ink);
}

}  // namespace

PopUpStyle::PopUpStyle(Desktop desktop) : desktop_(std::move(desktop)) {}

int PopUpStyle::shadowOf(const QWidget& popUp) {
  if (!popUp.testAttribute(Qt::WA_TranslucentBackground)) return 0;
  return isMenu(&popUp) ? kMenuShadow : kTipShadow;
}

void PopUpStyle::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  if (!isPopUp(widget)) return;
  widget->setAttribute(Qt::WA_TranslucentBackground, desktop_.mixesWindows());
  if (isTip(widget)) return takeColours(*widget);
  widget->setFont(systemFont(kMenuTypeSize));
  widget->setAttribute(Qt::WA_WindowPropagation);
}

int PopUpStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
  if (isMenu(widget)) {
    if (metric == PM_MenuPanelWidth) return 0;
    if (metric == PM_MenuHMargin || metric == PM_MenuVMargin)
      return shadowOf(*widget) + kMenuPadding;
  }
  if (isTip(widget) && metric == PM_ToolTipLabelFrameWidth) return shadowOf(*widget) + kTipPadding;
  return QProxyStyle::pixelMetric(metric, option, widget);
}

int PopUpStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* answer) const {
  if (hint == SH_ToolTipLabel_Opacity) return 255;
  if (hint == SH_Widget_Animation_Duration && !(animates_ && desktop_.animates())) return 0;
  const bool isMask = hint == SH_Menu_Mask || hint == SH_ToolTip_Mask;
  if (!isMask || !isPopUp(widget)) return QProxyStyle::styleHint(hint, option, widget, answer);
  if (widget->testAttribute(Qt::WA_TranslucentBackground)) return 0;
  if (auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(answer))
    mask->region = cutShape(surfaceOf(*widget).outline);
  return 1;
}

QSize PopUpStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                   const QSize& content, const QWidget* widget) const {
  const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (type != CT_MenuItem || item == nullptr || !isMenu(widget))
    return QProxyStyle::sizeFromContents(type, option, content, widget);
  if (item->menuItemType == QStyleOptionMenuItem::Separator)
    return {2 * kItemSides, kSeparatorHeight};
  const int tick = item->menuHasCheckableItems ? kTickWidth : 0;
  const int arrow = item->menuItemType == QStyleOptionMenuItem::SubMenu ? kItemSides : 0;
  const int text =
      item->fontMetrics.size(Qt::TextSingleLine | Qt::TextHideMnemonic, shown(*item)).width();
  return {text + tick + arrow + 2 * kItemSides, std::max(byType(kItemHeight), content.height())};
}

void PopUpStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  if (!isPopUp(widget)) return QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (element == PE_PanelMenu || element == PE_PanelTipLabel)
    return paintSurface(*painter, *widget, surfaceOf(*widget));
  if (element == PE_FrameMenu) return;
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void PopUpStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  const bool isOurs = isMenu(widget) && item != nullptr;
  if (!isOurs || (element != CE_MenuItem && element != CE_MenuEmptyArea))
    return QProxyStyle::drawControl(element, option, painter, widget);
  if (element == CE_MenuEmptyArea) return;
  const Colors& colors = Colors::of(*widget);
  if (item->menuItemType == QStyleOptionMenuItem::Separator)
    return paintSeparator(*painter, *item, colors);
  const bool isUnderlined = styleHint(SH_UnderlineShortcut, option, widget, nullptr) != 0;
  paintItem(*painter, *item, colors, isUnderlined ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
}

}  // namespace Hilalor::Ui
