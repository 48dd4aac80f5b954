#include "screens/settings/SettingsPart.hpp"

#include <utility>

#include "ui/Symbol.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr TextStyle kLabelStyle{.size = 13};
constexpr Insets kDividerPadding{.top = 2, .bottom = 2};
constexpr TextStyle kPreviewStyle{.size = 16, .color = &Colors::accent};
constexpr TextStyle kAdviceStyle{.size = 11, .color = &Colors::secondary};

}  // namespace

SettingsPart::SettingsPart(const SettingsContext& context) : context_(context) {
  observe(settings_.willChange);
}

void SettingsPart::observe(Signal<>& willChange) {
  changes_.push_back(willChange.subscribe([this] { setNeedsRedraw(); }));
}

Text* SettingsPart::rowLabel(const char* text) {
  return new Text(kLabelStyle, QString::fromUtf8(text));
}

QWidget* SettingsPart::unsavedLine() {
  changes_.push_back(settings_.isKept().subscribe([this](bool) { setNeedsRedraw(); }));
  return onlyWhile(
      [this] { return !settings_.isKept().value(); },
      new Text(kAdviceStyle, QStringLiteral("Changes are not saved: the file cannot be written.")));
}

QWidget* SettingsPart::groupDivider() {
  return divider(kDividerPadding);
}

Toggle* SettingsPart::toggleRow(const char* label, Setting<bool>& isOn) {
  return boundToggle(ToggleLook::switched, label, isOn);
}

Toggle* SettingsPart::checkboxRow(const char* label, Setting<bool>& isOn) {
  return boundToggle(ToggleLook::checkbox, label, isOn);
}

Toggle* SettingsPart::boundToggle(ToggleLook look, const char* label, Setting<bool>& isOn) {
  auto* toggle =
      new Toggle(look, QString::fromUtf8(label), [&isOn](bool wanted) { isOn = wanted; });
  atRedraw([toggle, &isOn] { toggle->setOn(isOn); });
  return toggle;
}

QWidget* SettingsPart::stepperRow(const QString& label, StepperRange range,
                                  std::function<QString(int)> text, Setting<std::int64_t>& value) {
  auto* stepper = new Stepper(range, std::move(text), [&value](int number) { value = number; });
  stepper->setName(label);
  atRedraw([stepper, &value] { stepper->setValue(static_cast<int>(value.value())); });
  return row({}, {new Text(kLabelStyle, label), flexibleSpace(), stepper});
}

Button* SettingsPart::previewButton(const QString& what, std::function<bool()> isPlaying,
                                    std::function<void()> onPreview, std::function<void()> onStop) {
  auto* button =
      new Button({}, [isPlaying, onPreview = std::move(onPreview), onStop = std::move(onStop)] {
        isPlaying() ? onStop() : onPreview();
      });
  atRedraw([button, what, isPlaying = std::move(isPlaying)] {
    const bool stops = isPlaying();
    button->setLabel({.icon = stops ? Icon::stopCircle : Icon::playCircle, .style = kPreviewStyle});
    button->setHelp(stops ? QStringLiteral("Stop") : QStringLiteral("Preview"));
    button->setAccessibleName((stops ? QStringLiteral("Stop ") : QStringLiteral("Play ")) + what);
  });
  return button;
}

QWidget* SettingsPart::warning(const Warning& warning) {
  const TextStyle titleStyle{.size = warning.titleSize, .weight = QFont::Medium};
  auto* title = new Text(titleStyle, QString::fromUtf8(warning.title));
  auto* advice = new Text(kAdviceStyle, QString::fromUtf8(warning.advice));
  if (warning.advice == nullptr) advice->hide();
  auto* open =
      linkButton(QStringLiteral("Open System Settings →"),
                 [workspace = context_.workspace, pane = warning.pane, onOpen = warning.onOpen] {
                   if (onOpen) onOpen();
                   if (workspace != nullptr) workspace->openSettings(pane);
                 });
  return row({.spacing = warning.symbolSpacing, .alignment = Qt::AlignTop},
             {new Symbol(Icon::warningTriangle, warning.symbolSize, &Colors::orange),
              column({.spacing = warning.lineSpacing, .alignment = Qt::AlignLeft},
                     {title, advice, open})});
}

Button* SettingsPart::linkButton(const QString& text, std::function<void()> action) {
  return new Button({.text = text, .style = kLinkStyle}, std::move(action), ButtonLook::link);
}

}  // namespace Hilalor::Screens
