#include "ui/Picker.hpp"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>

#include "ui/FocusRing.hpp"
#include "ui/PopUpStyle.hpp"
#include "ui/Shapes.hpp"
#include "ui/Spoken.hpp"
#include "ui/Stack.hpp"

namespace Hilalor::Ui {
namespace {

constexpr int kTypeSize = 13;
constexpr int kSegmentHeight = 24;
constexpr double kSegmentRadius = 6;
constexpr double kSegmentInset = 2;
const QString kDownTriangle = QStringLiteral("  \u25BE");

/// One option of a segmented picker.
class Segment final : public QAbstractButton {
 public:
  Segment(const QString& label, std::function<void()> onSelect) : label_(label) {
    setAccessibleName(label);
    setFont(systemFont(kTypeSize));
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setFixedHeight(byType(kSegmentHeight));
    // Between those of its neighbours.
    markFocusAround(*this, kSegmentRadius, 0);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this,
            [onSelect = std::move(onSelect)] { onSelect(); });
  }

  [[nodiscard]] QSize sizeHint() const override {
    return {fontMetrics().horizontalAdvance(label_) + kSegmentHeight, height()};
  }

 protected:
  void nextCheckState() override {}

  void paintEvent(QPaintEvent*) override {
    const Colors& colors = Colors::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box =
        QRectF(rect()).adjusted(kSegmentInset, kSegmentInset, -kSegmentInset, -kSegmentInset);
    if (isChecked()) painter.fillPath(smoothRect(box, kSegmentRadius - 1), colors.accent);
    painter.setPen(isChecked() ? colors.white : colors.primary);
    painter.drawText(rect(), Qt::AlignCenter, label_);
  }

 private:
  QString label_;
};

/// The box that the segments lie in.
class Trough final : public QWidget {
 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Colors& colors = Colors::of(*this);
    if (colors.contrast == Contrast::high)
      return strokeWithin(painter, rect(), kSegmentRadius, QPen(colors.primary, 1));
    painter.fillPath(smoothRect(rect(), kSegmentRadius), colors.separator);
  }
};

}  // namespace

GreenPickerButton::GreenPickerButton(std::function<PickerMenu()> menuBuilder,
                                     std::function<void(int)> onSelect)
    : menuBuilder_(std::move(menuBuilder)),
      onSelect_(std::move(onSelect)),
      button_(new Button({}, [this] { showMenu(); })) {
  setSpokenRole(*button_, QAccessible::ButtonMenu);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(button_, 0, Qt::AlignLeft);
}

void GreenPickerButton::setText(const QString& text) {
  button_->setLabel(
      {.text = text + kDownTriangle, .style = {.size = kTypeSize, .color = &Colors::accent}});
  // A screen reader has no use for the triangle.
  button_->setAccessibleName(text);
}

void GreenPickerButton::setHelp(const QString& help) {
  button_->setAccessibleDescription(help);
}

void GreenPickerButton::mousePressEvent(QMouseEvent* event) {
  event->setAccepted(event->button() == Qt::LeftButton);
  button_->setDown(event->isAccepted());
}

void GreenPickerButton::mouseReleaseEvent(QMouseEvent* event) {
  if (!button_->isDown() || event->button() != Qt::LeftButton) return;
  button_->setDown(false);
  if (rect().contains(event->position().toPoint())) showMenu();
}

void GreenPickerButton::showMenu() {
  menu_ = std::make_unique<QMenu>(this);
  menu_->setAttribute(Qt::WA_WindowPropagation);
  const PickerMenu content = menuBuilder_();
  for (int index = 0; index < content.options.size(); ++index) {
    // An ampersand would make the next letter a shortcut.
    QString option = content.options[index];
    QAction* action = menu_->addAction(option.replace(u'&', QStringLiteral("&&")));
    action->setCheckable(true);
    action->setChecked(index == content.current);
    connect(action, &QAction::triggered, this, [this, index] { onSelect_(index); });
  }
  menu_->ensurePolished();
  const int shadow = PopUpStyle::shadowOf(*menu_);
  menu_->popup(button_->mapToGlobal(QPoint(-shadow, button_->height() - shadow)));
}

SegmentedPicker::SegmentedPicker(const QStringList& options,
                                 const std::function<void(int)>& onSelect) {
  setSpokenRole(*this, QAccessible::Grouping);
  auto* trough = new Trough;
  auto* segments = new QHBoxLayout(trough);
  segments->setContentsMargins({});
  segments->setSpacing(0);
  for (int index = 0; index < options.size(); ++index) {
    segments_.push_back(new Segment(options[index], [onSelect, index] { onSelect(index); }));
    segments->addWidget(segments_.back(), 1);
  }
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(trough);
}

void SegmentedPicker::setCurrent(int index) {
  for (int place = 0; QAbstractButton * segment : segments_) {
    // One of several to a screen reader; Qt's own rule would let none of them be off.
    segment->setAutoExclusive(false);
    segment->setChecked(place++ == index);
  }
  for (QAbstractButton* segment : segments_)
    segment->setAutoExclusive(true);
}

}  // namespace Hilalor::Ui
