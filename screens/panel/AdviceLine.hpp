#pragma once

#include <optional>

#include "platform/Surfaces.hpp"
#include "ui/View.hpp"

namespace Hilalor::Screens {

/// An advice with a button that puts it away for good; hidden without one.
class AdviceLine final : public Ui::View {
 public:
  explicit AdviceLine(std::optional<Advice> advice);
};

}  // namespace Hilalor::Screens
