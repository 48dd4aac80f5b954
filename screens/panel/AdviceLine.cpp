#include "screens/panel/AdviceLine.hpp"

#include <utility>

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr TextStyle kTextStyle{.size = 10, .color = &Colors::secondary};
constexpr TextStyle kButtonStyle{.size = 13, .color = &Colors::secondary};
constexpr int kSpacing = 6;
constexpr Insets kInset = Insets::sides(16);

}  // namespace

AdviceLine::AdviceLine(std::optional<Advice> advice) {
  if (!advice) {
    hide();
    return;
  }
  auto* text = fullWidth(new Text(kTextStyle, QString::fromStdString(advice->text)));
  auto* button = new Button({.text = QStringLiteral("\u00D7"), .style = kButtonStyle},
                            [this, onPutAway = std::move(advice->onPutAway)] {
                              hide();
                              onPutAway();
                            });
  setBody(row({.spacing = kSpacing, .padding = kInset},
              {text, helped(QStringLiteral("Do not show this again"), button)}));
}

}  // namespace Hilalor::Screens
