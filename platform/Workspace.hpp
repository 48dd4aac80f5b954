#pragma once

#include <string>

namespace Hilalor {

/// A part of the desktop's own settings.
enum class SettingsPane {
  notifications,
  locationPrivacy,  ///< Who may know where the machine is.
};

/// Opens what belongs to other programs. What cannot be opened is passed over in silence. Main
/// thread.
class Workspace {
 public:
  virtual ~Workspace() = default;

  virtual void openSettings(SettingsPane pane) = 0;

  /// In the user's browser; only what begins with "https://" or "http://".
  virtual void openWebPage(const std::string& address) = 0;
};

}  // namespace Hilalor
