#include "ui/View.hpp"

#include <QCoreApplication>
#include <QEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace Hilalor::Ui {
namespace {

QEvent::Type redrawEvent() {
  static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
  return type;
}

}  // namespace

View::View(QWidget* parent) : QWidget(parent) {}

void View::setNeedsRedraw() {
  if (std::exchange(needsRedraw_, true)) return;
  QCoreApplication::postEvent(this, new QEvent(redrawEvent()));
}

void View::redraw() {
  needsRedraw_ = false;
  for (const auto& show : redraws_)
    show();
}

QSize View::sizeHint() const {
  const QSize natural = naturalSize();
  return {natural.width(), std::min(natural.height(), maximumHeight())};
}

void View::setGreatestHeight(int height) {
  if (height == maximumHeight()) return;
  setMaximumHeight(height);
  QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

QSize View::naturalSize() const {
  const QSize natural = QWidget::sizeHint();
  if (minimumWidth() != maximumWidth()) return natural;
  const int width = minimumWidth();
  return {width, hasHeightForWidth() ? heightForWidth(width) : natural.height()};
}

void View::remeasure(QWidget& part) {
  for (QWidget* at = &part; at != this; at = at->parentWidget()) {
    if (at->layout() != nullptr) at->layout()->activate();
    at->updateGeometry();
  }
}

void View::setBody(QWidget* body) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(body);
}

void View::atRedraw(std::function<void()> show) {
  redraws_.push_back(std::move(show));
}

Text* View::liveText(const TextStyle& style, std::function<QString()> text) {
  auto* shown = new Text(style);
  atRedraw([shown, text = std::move(text)] { shown->setText(text()); });
  return shown;
}

bool View::event(QEvent* event) {
  if (event->type() == redrawEvent()) {
    if (needsRedraw_) redraw();
    return true;
  }
  const bool wasHandled = QWidget::event(event);
  if (event->type() == QEvent::LayoutRequest) reportSize();
  return wasHandled;
}

void View::reportSizeAgain() {
  reportedSize_ = QSize();
  reportSize();
}

void View::reportSize() {
  const QSize size = sizeHint();
  if (size.isEmpty() || size == reportedSize_) return;
  reportedSize_ = size;
  if (onWantedSize) onWantedSize(size);
}

}  // namespace Hilalor::Ui
