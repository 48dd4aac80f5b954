#pragma once

#include <QPixmap>

#include "platform/Updater.hpp"
#include "screens/settings/SettingsPart.hpp"

namespace Hilalor::Screens {

/// What the program is, who made it, and a way to newer releases.
class AboutCard final : public SettingsPart {
 public:
  /// Without an updater there is no button for updates, without an icon the texts stand alone.
  AboutCard(const SettingsContext& context, Updater* updater, const QPixmap& appIcon);

 private:
  [[nodiscard]] QWidget* program(const QPixmap& appIcon);
  [[nodiscard]] QWidget* creditLine();
  [[nodiscard]] static QWidget* updateButton(Updater& updater);
};

}  // namespace Hilalor::Screens
