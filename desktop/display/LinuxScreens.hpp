#pragma once

#include "platform/ScreenService.hpp"

namespace Hilalor::Desktop {

/// The screens as Qt knows them, each without the bars that X11's window manager lists: Qt leaves
/// those in as soon as there are two screens.
class LinuxScreens final : public ScreenService {
 public:
  [[nodiscard]] std::vector<Screen> all() const override;
};

}  // namespace Hilalor::Desktop
