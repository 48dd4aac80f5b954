#include "screens/panel/MonthHeader.hpp"

#include <utility>

#include "ui/DoubleClickable.hpp"

namespace Hilalor::Screens {

using namespace Ui;

namespace {

constexpr Insets kSides = Insets::sides(12);
constexpr Insets kInset = Insets::sides(4);
constexpr TextStyle kArrowStyle{.size = 14, .weight = QFont::DemiBold};
constexpr TextStyle kTitleStyle{.size = 13, .weight = QFont::DemiBold};
constexpr TextStyle kYearHintStyle{.size = 8, .color = &Colors::secondary};
constexpr int kTitleSpacing = 2;

}  // namespace

MonthHeader::MonthHeader(PanelModel& model, std::function<void()> onChange)
    : model_(model), onChange_(std::move(onChange)) {
  auto* previous = arrow("<", &PanelModel::showPrevious);
  auto* next = arrow(">", &PanelModel::showNext);
  atRedraw([this, previous, next] {
    const bool isYear = model_.isYearMode();
    previous->setAccessibleName(isYear ? QStringLiteral("Previous year")
                                       : QStringLiteral("Previous month"));
    next->setAccessibleName(isYear ? QStringLiteral("Next year") : QStringLiteral("Next month"));
    // Who has pressed one is told where that has led.
    for (Button* button : {previous, next})
      button->setAccessibleDescription(QString::fromStdString(model_.title()));
  });
  setBody(padded(kSides, row({.padding = kInset},
                             {previous, flexibleSpace(), titleBlock(), flexibleSpace(), next})));
}

Button* MonthHeader::arrow(const char* sign, void (PanelModel::*step)()) {
  return new Button({.text = QString::fromUtf8(sign), .style = kArrowStyle}, [this, step] {
    (model_.*step)();
    onChange_();
  });
}

QWidget* MonthHeader::titleBlock() {
  auto* title =
      centred(liveText(kTitleStyle, [this] { return QString::fromStdString(model_.title()); }));
  auto* hint = centred(new Text(kYearHintStyle, QStringLiteral("double-click to exit")));
  auto* lines = column({.spacing = kTitleSpacing},
                       {title, onlyWhile([this] { return model_.isYearMode(); }, hint)});
  return new DoubleClickable(lines, [this] {
    model_.toggleYearMode();
    onChange_();
  });
}

}  // namespace Hilalor::Screens
