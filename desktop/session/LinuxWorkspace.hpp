#pragma once

#include "platform/Workspace.hpp"

namespace Hilalor::Desktop {

/// Starts the running desktop's own tools and the user's browser, and does not wait for them.
class LinuxWorkspace final : public Workspace {
 public:
  // Workspace
  void openSettings(SettingsPane pane) override;
  void openWebPage(const std::string& address) override;
};

}  // namespace Hilalor::Desktop
