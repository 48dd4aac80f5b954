#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/Signal.hpp"
#include "screens/settings/SettingsContext.hpp"
#include "ui/Picker.hpp"
#include "ui/Stepper.hpp"
#include "ui/Toggle.hpp"
#include "ui/View.hpp"

namespace Hilalor::Screens {

/// A part of the settings window. Its rows show the preferences and store a change the moment it is
/// made; a preference that changes elsewhere is shown too.
class SettingsPart : public Ui::View {
 protected:
  /// Between the rows of a card.
  static constexpr int kRowSpacing = 10;

  explicit SettingsPart(const SettingsContext& context);

  /// Redraws whenever the object's watchers are told of a change.
  void observe(Signal<>& willChange);

  [[nodiscard]] static Ui::Text* rowLabel(const char* text);

  /// Says that changes are not stored, while they are not.
  [[nodiscard]] QWidget* unsavedLine();

  /// The line between groups of rows.
  [[nodiscard]] static QWidget* groupDivider();

  [[nodiscard]] Ui::Toggle* toggleRow(const char* label, Setting<bool>& isOn);
  [[nodiscard]] Ui::Toggle* checkboxRow(const char* label, Setting<bool>& isOn);

  /// A number to step up and down, at the end of its row.
  [[nodiscard]] QWidget* stepperRow(const QString& label, Ui::StepperRange range,
                                    std::function<QString(int)> text, Setting<std::int64_t>& value);

  /// A ring with a dot while the preference is the choice; a click makes it so.
  template <typename Value>
  [[nodiscard]] Ui::Toggle* radioButton(const char* label, Setting<Value>& selection,
                                        Value choice) {
    auto* ring = new Ui::Toggle(Ui::ToggleLook::radio, QString::fromUtf8(label),
                                [&selection, choice](bool) { selection = choice; });
    atRedraw([ring, &selection, choice] { ring->setOn(selection == choice); });
    return ring;
  }

  /// Plays or stops something to listen to, as it plays or not. `what` is what a screen reader
  /// calls that.
  [[nodiscard]] Ui::Button* previewButton(const QString& what, std::function<bool()> isPlaying,
                                          std::function<void()> onPreview,
                                          std::function<void()> onStop);

  /// A text that opens a menu of the options, asked for whenever it opens. `help` is what a screen
  /// reader says of it.
  template <typename Value>
  [[nodiscard]] Ui::GreenPickerButton* greenPicker(const char* help, Setting<Value>& selection,
                                                   std::function<std::vector<Value>()> options,
                                                   std::function<QString(const Value&)> label) {
    const auto offered = std::make_shared<std::vector<Value>>();
    auto* picker = new Ui::GreenPickerButton(
        [&selection, options = std::move(options), label, offered] {
          *offered = options();
          return pickerMenu(*offered, selection.value(), label);
        },
        [&selection, offered](int index) {
          const auto place = static_cast<std::size_t>(index);
          if (place < offered->size()) selection = (*offered)[place];
        });
    picker->setHelp(QString::fromUtf8(help));
    atRedraw([picker, &selection, label] { picker->setText(label(selection.value())); });
    return picker;
  }

  /// Says what is not allowed, with a link to the desktop's settings.
  struct Warning {
    const char* title;
    const char* advice = nullptr;  ///< Under the title; none if null.
    SettingsPane pane;
    int symbolSize;     ///< Of the type that the triangle suits, in logical pixels.
    int titleSize;      ///< Of the type.
    int symbolSpacing;  ///< Between the triangle and the texts.
    int lineSpacing;
    std::function<void()> onOpen = {};  ///< The user opens the desktop's settings.
  };
  [[nodiscard]] QWidget* warning(const Warning& warning);

  static constexpr Ui::TextStyle kLinkStyle{.size = 11, .color = &Ui::Colors::accent};
  [[nodiscard]] static Ui::Button* linkButton(const QString& text, std::function<void()> action);

  SettingsContext context_;
  AppSettings& settings_ = context_.settings;

 private:
  template <typename Value>
  [[nodiscard]] static Ui::PickerMenu pickerMenu(
      const std::vector<Value>& options, const Value& current,
      const std::function<QString(const Value&)>& label) {
    Ui::PickerMenu menu;
    for (const Value& option : options) {
      if (option == current) menu.current = static_cast<int>(menu.options.size());
      menu.options.append(label(option));
    }
    return menu;
  }

  [[nodiscard]] Ui::Toggle* boundToggle(Ui::ToggleLook look, const char* label,
                                        Setting<bool>& isOn);

  std::vector<Subscription> changes_;
};

}  // namespace Hilalor::Screens
