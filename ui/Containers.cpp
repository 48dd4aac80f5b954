#include "ui/Containers.hpp"

#include <QPainter>
#include <QVBoxLayout>

#include "ui/Colors.hpp"
#include "ui/Stack.hpp"

namespace Hilalor {
namespace {

constexpr int kCardSpacing = 10;
constexpr Insets kCardPadding{.top = 12, .leading = 14, .bottom = 12, .trailing = 14};
constexpr double kCardRadius = 10;
constexpr int kSpokes = 8;
constexpr int kTurnMilliseconds = 100;

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
  painter.setPen(Qt::NoPen);
  painter.setBrush(Colors::of(*this).controlBackground);
  painter.drawRoundedRect(rect(), kCardRadius, kCardRadius);
}

ScrollColumn::ScrollColumn(QWidget* content) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setAutoFillBackground(false);
  setWidget(content);
  content->setAutoFillBackground(false);
}

Sheet::Sheet(QWidget& owner, QWidget* content) : QDialog(&owner, Qt::Sheet) {
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
  turning_.start();
}

void ActivityIndicator::hideEvent(QHideEvent*) {
  turning_.stop();
}

}  // namespace Hilalor
