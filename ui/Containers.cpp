#include "ui/Containers.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QVBoxLayout>

#include "ui/Animation.hpp"
#include "ui/Colors.hpp"
#include "ui/Shapes.hpp"
#include "ui/Spoken.hpp"
#include "ui/Stack.hpp"

namespace Hilalor::Ui {
namespace {

constexpr int kCardSpacing = 10;
constexpr Insets kCardPadding{.top = 12, .leading = 14, .bottom = 12, .trailing = 14};
constexpr double kCardRadius = 10;
constexpr int kIndicatorWidth = 10;
constexpr double kIndicatorInset = 2;
constexpr int kRoomAroundFocus = 8;
constexpr int kSpokes = 8;
constexpr int kTurnMilliseconds = 100;

/// A scroll bar of which only the handle is seen.
class ScrollIndicator final : public QScrollBar {
 public:
  explicit ScrollIndicator(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRectF handle =
        style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
    const QRectF seen =
        handle.adjusted(kIndicatorInset, kIndicatorInset, -kIndicatorInset, -kIndicatorInset);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const Colors& colors = Colors::of(*this);
    painter.setBrush(parentWidget()->hasFocus() ? colors.secondary : colors.tertiary);
    painter.drawRoundedRect(seen, seen.width() / 2, seen.width() / 2);
  }
};

}  // namespace

Card::Card(std::initializer_list<QWidget*> parts) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(column(
      {.spacing = kCardSpacing, .padding = kCardPadding, .alignment = Qt::AlignLeft}, parts));
}

void Card::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Colors& colors = Colors::of(*this);
  painter.fillPath(smoothRect(rect(), kCardRadius), colors.controlBackground);
  strokeWithin(painter, rect(), kCardRadius, QPen(colors.separator, 1));
}

ScrollColumn::ScrollColumn(QWidget* content, ScrollKeys keys)
    : keys_(keys), indicator_(new ScrollIndicator(this)) {
  setSpokenRole(*this, QAccessible::Pane);
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setAlignment(Qt::AlignHCenter);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // The style's bar would take its width from the content.
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  const QScrollBar* bar = verticalScrollBar();
  connect(bar, &QScrollBar::rangeChanged, this, [this] { followRange(); });
  connect(bar, &QScrollBar::valueChanged, indicator_, &QScrollBar::setValue);
  connect(indicator_, &QScrollBar::valueChanged, bar, &QScrollBar::setValue);
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* focused) { followFocus(focused); });
  viewport()->setAutoFillBackground(false);
  setWidget(content);
  content->setAutoFillBackground(false);
}

ScrollColumn::~ScrollColumn() {
  // The focus leaves its parts while they go, when this is no column any more.
  qApp->disconnect(this);
  verticalScrollBar()->disconnect(this);
}

QSize ScrollColumn::sizeHint() const {
  const int width = widget()->minimumWidth();
  const bool followsWidth = widget()->hasHeightForWidth();
  return {width, followsWidth ? widget()->heightForWidth(width) : widget()->sizeHint().height()};
}

QSize ScrollColumn::minimumSizeHint() const {
  return {widget()->minimumWidth(), 0};
}

bool ScrollColumn::eventFilter(QObject* watched, QEvent* event) {
  const bool wasHandled = QScrollArea::eventFilter(watched, event);
  if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
  return wasHandled;
}

void ScrollColumn::keyPressEvent(QKeyEvent* event) {
  if (keys_ == ScrollKeys::own && !hasFocus()) return event->ignore();
  QScrollArea::keyPressEvent(event);
}

void ScrollColumn::followFocus(QWidget* focused) {
  indicator_->update();
  if (focused == nullptr || !widget()->isAncestorOf(focused)) return;
  ensureWidgetVisible(focused, 0, kRoomAroundFocus);
}

void ScrollColumn::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  indicator_->setGeometry(width() - kIndicatorWidth, 0, kIndicatorWidth, height());
  followRange();
}

void ScrollColumn::followRange() {
  const QScrollBar* bar = verticalScrollBar();
  indicator_->setPageStep(bar->pageStep());
  indicator_->setSingleStep(bar->singleStep());
  indicator_->setRange(bar->minimum(), bar->maximum());
  const bool isScrolling = bar->maximum() > bar->minimum();
  indicator_->setVisible(isScrolling);
  if (keys_ == ScrollKeys::own) setFocusPolicy(isScrolling ? Qt::TabFocus : Qt::NoFocus);
  indicator_->raise();
}

Sheet::Sheet(QWidget& owner, QWidget* content) : QDialog(&owner, Qt::Sheet) {
  setWindowTitle(content->windowTitle());
  setWindowModality(Qt::WindowModal);
  setAttribute(Qt::WA_DeleteOnClose);
  // Light or dark as its owner is.
  setAttribute(Qt::WA_WindowPropagation);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(content);
}

void Sheet::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(rect(), Colors::of(*this).windowBackground);
}

ActivityIndicator::ActivityIndicator(int side) {
  setFixedSize(side, side);
  turning_.setInterval(kTurnMilliseconds);
  connect(&turning_, &QTimer::timeout, this, [this] {
    turn_ = (turn_ + 1) % kSpokes;
    update();
  });
}

void ActivityIndicator::paintEvent(QPaintEvent*) {
  const QColor ink = Colors::of(*this).secondary;
  const double radius = width() / 2.0;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(QRectF(rect()).center());
  painter.rotate(360.0 / kSpokes * turn_);
  for (int spoke = 1; spoke <= kSpokes; ++spoke) {
    painter.rotate(360.0 / kSpokes);
    painter.setPen(QPen(faded(ink, spoke / static_cast<double>(kSpokes)), radius / 4, Qt::SolidLine,
                        Qt::RoundCap));
    painter.drawLine(QPointF(0, -radius * 0.4), QPointF(0, -radius * 0.8));
  }
}

void ActivityIndicator::showEvent(QShowEvent*) {
  if (desktopAnimates()) turning_.start();
}

void ActivityIndicator::hideEvent(QHideEvent*) {
  turning_.stop();
}

}  // namespace Hilalor::Ui
