#include "ui/SearchField.hpp"

#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <utility>

#include "ui/Colors.hpp"
#include "ui/Shapes.hpp"
#include "ui/Spoken.hpp"
#include "ui/Stack.hpp"
#include "ui/Text.hpp"

namespace Hilalor::Ui {
namespace {

constexpr int kWidth = 270;
constexpr int kTypeSize = 13;
constexpr int kButtonSide = 26;
constexpr Insets kFieldPadding{.top = 5, .leading = 8, .bottom = 5, .trailing = 8};
constexpr int kFieldSpacing = 6;
constexpr Insets kRowPadding{.top = 3, .leading = 10, .bottom = 4, .trailing = 10};
constexpr TextStyle kTitleStyle{.size = 12};
constexpr TextStyle kDetailStyle{.size = 10, .color = &Colors::secondary};
constexpr Insets kNothingPadding{.top = 4, .leading = 10, .bottom = 4, .trailing = 10};
constexpr int kBottomPadding = 4;
constexpr double kRadius = 8;
constexpr double kRowRadius = 5;

}  // namespace

/// A line of the list.
class SearchField::Row final : public QWidget {
 public:
  Row(std::function<void()> onHover, std::function<void()> onClick)
      : onHover_(std::move(onHover)), onClick_(std::move(onClick)) {
    speakAsOne(*this, QAccessible::ListItem);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(column({.padding = kRowPadding}, {title_, detail_}));
    setMouseTracking(true);
    for (QWidget* part : findChildren<QWidget*>())
      part->setAttribute(Qt::WA_TransparentForMouseEvents);
  }

  void show(const Suggestion& suggestion) {
    title_->setText(suggestion.title);
    detail_->setText(suggestion.detail);
    detail_->setVisible(!suggestion.detail.isEmpty());
    setAccessibleName(suggestion.title + u' ' + suggestion.detail);
    setVisible(true);
  }

  void setHighlighted(bool isHighlighted) {
    isHighlighted_ = isHighlighted;
    TextStyle title = kTitleStyle;
    TextStyle detail = kDetailStyle;
    if (isHighlighted) title.color = detail.color = &Colors::white;
    title_->setStyle(title);
    detail_->setStyle(detail);
    update();
  }

 protected:
  void mouseMoveEvent(QMouseEvent*) override { onHover_(); }
  void mousePressEvent(QMouseEvent* event) override { event->accept(); }
  void mouseReleaseEvent(QMouseEvent* event) override {
    const bool isLeft = event->button() == Qt::LeftButton;
    if (isLeft && rect().contains(event->position().toPoint())) onClick_();
  }
  void paintEvent(QPaintEvent*) override {
    if (!isHighlighted_) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Colors::of(*this).accent);
    painter.drawRoundedRect(QRectF(rect()).adjusted(4, 0, -4, 0), kRowRadius, kRowRadius);
  }

 private:
  std::function<void()> onHover_;
  std::function<void()> onClick_;
  Text* title_ = new Text(kTitleStyle);
  Text* detail_ = new Text(kDetailStyle);
  bool isHighlighted_ = false;
};

namespace {

/// The magnifying glass in the field itself.
class GlassMark final : public QWidget {
 public:
  GlassMark() { setFixedSize(kTypeSize, kTypeSize); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    paintIcon(painter, Icon::magnifyingGlass, rect(), Colors::of(*this).secondary);
  }
};

}  // namespace

SearchField::SearchField(const QString& help, Events events) : events_(std::move(events)) {
  button_ = framed(helped(help, new Button(
                                    {.icon = Icon::magnifyingGlass}, [this] { open({}); },
                                    ButtonLook::bordered)),
                   byType(kButtonSide), byType(kButtonSide));
  edit_ = new QLineEdit;
  edit_->setFrame(false);
  edit_->setFont(systemFont(kTypeSize));
  edit_->setPlaceholderText(help);
  edit_->setAccessibleName(help);
  edit_->installEventFilter(this);
  QPalette clear = edit_->palette();
  clear.setColor(QPalette::Base, Qt::transparent);
  edit_->setPalette(clear);
  connect(edit_, &QLineEdit::textChanged, this, [this] { refresh(); });

  nothing_ = padded(kNothingPadding, new Text(kDetailStyle, QStringLiteral("No matches")));
  panel_ =
      column({}, {row({.spacing = kFieldSpacing, .padding = kFieldPadding}, {new GlassMark, edit_}),
                  nothing_});
  for (std::size_t index = 0; index < kRows; ++index) {
    rows_.push_back(new Row([this, index] { highlight(index); }, [this, index] { choose(index); }));
    panel_->layout()->addWidget(rows_.back());
  }
  panel_->layout()->setContentsMargins(0, 0, 0, kBottomPadding);
  panel_->setFixedWidth(byType(kWidth));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(button_);
  layout->addWidget(panel_);
  // A press on any part of the open field leaves the keyboard where it is.
  setFocusProxy(edit_);
  panel_->hide();
  fit();
}

void SearchField::open(const QString& text) {
  button_->hide();
  panel_->show();
  edit_->setText(text);
  edit_->deselect();
  refresh();
  edit_->setFocus(Qt::PopupFocusReason);
}

void SearchField::close() {
  if (panel_->isHidden()) return;
  const bool hadKeyboard = edit_->hasFocus();
  panel_->hide();
  button_->show();
  if (hadKeyboard) events_.onClose();
}

void SearchField::refresh() {
  const QString text = edit_->text();
  found_ = text.trimmed().isEmpty() ? std::vector<Suggestion>{} : events_.find(text);
  if (found_.size() > kRows) found_.resize(kRows);
  nothing_->setVisible(found_.empty() && !text.trimmed().isEmpty());
  for (std::size_t index = 0; index < kRows; ++index) {
    if (index < found_.size()) {
      rows_[index]->show(found_[index]);
    } else {
      rows_[index]->hide();
    }
  }
  highlight(0);
}

void SearchField::fit() {
  const QSize wanted = sizeHint();
  setGeometry(geometry().right() + 1 - wanted.width(), y(), wanted.width(), wanted.height());
}

void SearchField::highlight(std::size_t index) {
  highlighted_ = index;
  for (std::size_t other = 0; other < kRows; ++other)
    rows_[other]->setHighlighted(other == index);
  if (index >= found_.size()) return;
  // The keyboard stays in the field; what Return would choose is read out all the same.
  QAccessibleEvent reached(rows_[index], QAccessible::Focus);
  QAccessible::updateAccessibility(&reached);
}

void SearchField::choose(std::size_t index) {
  if (index >= found_.size()) return;
  close();
  events_.onChoose(index);
}

bool SearchField::handleKey(int key) {
  switch (key) {
    case Qt::Key_Escape:
      close();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      choose(highlighted_);
      return true;
    case Qt::Key_Down:
      if (highlighted_ + 1 < found_.size()) highlight(highlighted_ + 1);
      return true;
    case Qt::Key_Up:
      if (highlighted_ > 0) highlight(highlighted_ - 1);
      return true;
    default:
      return false;
  }
}

bool SearchField::event(QEvent* event) {
  const bool wasHandled = QWidget::event(event);
  // Rows have come or gone.
  if (event->type() == QEvent::LayoutRequest) fit();
  return wasHandled;
}

bool SearchField::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && handleKey(static_cast<QKeyEvent*>(event)->key()))
    return true;
  if (event->type() == QEvent::FocusOut) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    // Neither another window nor a menu of the field's own takes it away.
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) close();
  }
  return QWidget::eventFilter(watched, event);
}

void SearchField::paintEvent(QPaintEvent*) {
  if (panel_->isHidden()) return;
  const Colors& colors = Colors::of(*this);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(smoothRect(rect(), kRadius), colors.windowBackground);
  strokeWithin(painter, rect(), kRadius, QPen(colors.tertiary, 1));
}

}  // namespace Hilalor::Ui
