#pragma once

#include <QAccessibleWidget>

namespace Hilalor::Ui {

/// A part that tells a screen reader more than Qt would tell of it.
class SpokenPart {
 public:
  SpokenPart();
  SpokenPart(const SpokenPart&) = delete;
  SpokenPart& operator=(const SpokenPart&) = delete;
  virtual ~SpokenPart() = default;

  /// What a screen reader sees of the part, made once. Qt's to delete.
  [[nodiscard]] virtual QAccessibleInterface* makeSpoken() = 0;
};

/// What the widget is to a screen reader, which Qt cannot tell of one of its plain widgets. To be
/// set before anything else is told of it.
void setSpokenRole(QWidget& widget, QAccessible::Role role);

/// The same for one whose parts are nothing by themselves: its name says all.
void speakAsOne(QWidget& widget, QAccessible::Role role);

/// A control that can be pressed.
class SpokenControl : public QAccessibleWidget {
 public:
  using QAccessibleWidget::QAccessibleWidget;

  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& action) override;

 protected:
  virtual void press() = 0;
};

}  // namespace Hilalor::Ui
