#pragma once

#include <functional>

#include "rules/calendar/PanelModel.hpp"
#include "ui/View.hpp"

namespace Hilalor::Screens {

/// The month's or the year's name between the arrows that step. A double click on the name switches
/// between both.
class MonthHeader final : public Ui::View {
 public:
  /// `onChange` is told when the user has changed the model. To be redrawn with the panel.
  MonthHeader(PanelModel& model, std::function<void()> onChange);

 private:
  [[nodiscard]] Ui::Button* arrow(const char* sign, void (PanelModel::*step)());
  [[nodiscard]] QWidget* titleBlock();

  PanelModel& model_;
  std::function<void()> onChange_;
};

}  // namespace Hilalor::Screens
