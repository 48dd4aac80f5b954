#include "desktop/session/LinuxWorkspace.hpp"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "desktop/session/SettingsTools.hpp"

namespace Hilalor::Desktop {
namespace {

bool isInstalled(const std::string& program) {
  return !QStandardPaths::findExecutable(QString::fromStdString(program)).isEmpty();
}

}  // namespace

void LinuxWorkspace::openSettings(SettingsPane pane) {
  const QByteArray desktops = qgetenv("XDG_CURRENT_DESKTOP");
  const auto tool = settingsTool(pane, desktops.toStdString(), isInstalled);
  if (!tool) return;
  QStringList arguments;
  for (const std::string& argument : tool->arguments)
    arguments.append(QString::fromStdString(argument));
  QProcess::startDetached(QString::fromStdString(tool->program), arguments);
}

void LinuxWorkspace::openWebPage(const std::string& address) {
  const QUrl url(QString::fromStdString(address), QUrl::StrictMode);
  const bool isWeb =
      url.scheme() == QStringLiteral("https") || url.scheme() == QStringLiteral("http");
  if (url.isValid() && isWeb) QDesktopServices::openUrl(url);
}

}  // namespace Hilalor::Desktop
