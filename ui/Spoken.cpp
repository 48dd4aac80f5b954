#include "ui/Spoken.hpp"

#include <QAbstractButton>

namespace Hilalor::Ui {
namespace {

constexpr const char* kRole = "spokenRole";
constexpr const char* kIsOne = "isSpokenAsOne";

/// A widget of whose children a screen reader learns nothing.
class SpokenWhole final : public QAccessibleWidget {
 public:
  using QAccessibleWidget::QAccessibleWidget;

  [[nodiscard]] int childCount() const override { return 0; }
};

class SpokenButton final : public SpokenControl {
 public:
  SpokenButton(QAbstractButton& button, QAccessible::Role role)
      : SpokenControl(&button, role), button_(button) {}

 protected:
  void press() override { button_.click(); }

 private:
  QAbstractButton& button_;
};

QAccessibleInterface* speak(const QString&, QObject* object) {
  if (auto* part = dynamic_cast<SpokenPart*>(object)) return part->makeSpoken();
  const QVariant role = object->property(kRole);
  if (!role.isValid()) return nullptr;
  auto* widget = static_cast<QWidget*>(object);
  const auto kind = static_cast<QAccessible::Role>(role.toInt());
  if (auto* button = qobject_cast<QAbstractButton*>(widget)) return new SpokenButton(*button, kind);
  if (object->property(kIsOne).toBool()) return new SpokenWhole(widget, kind);
  return new QAccessibleWidget(widget, kind);
}

/// Qt asks the one that was told last first.
void speakForOurParts() {
  [[maybe_unused]] static const bool once = (QAccessible::installFactory(speak), true);
}

}  // namespace

SpokenPart::SpokenPart() {
  speakForOurParts();
}

void setSpokenRole(QWidget& widget, QAccessible::Role role) {
  speakForOurParts();
  widget.setProperty(kRole, static_cast<int>(role));
}

void speakAsOne(QWidget& widget, QAccessible::Role role) {
  widget.setProperty(kIsOne, true);
  setSpokenRole(widget, role);
}

QStringList SpokenControl::actionNames() const {
  if (!widget()->isEnabled()) return {};
  return QStringList{pressAction()} + QAccessibleWidget::actionNames();
}

void SpokenControl::doAction(const QString& action) {
  if (action == pressAction()) return press();
  QAccessibleWidget::doAction(action);
}

}  // namespace Hilalor::Ui
