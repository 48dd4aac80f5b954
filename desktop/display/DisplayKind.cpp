#include "desktop/display/DisplayKind.hpp"

#include <QGuiApplication>
#include <QScreen>
#include <string_view>

#include "desktop/display/XConnection.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr const char* kChoice = "QT_QPA_PLATFORM";

bool doesXServerAnswer() {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool answers = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return answers;
}

/// Newer servers have an extension that says so; older ones name their outputs after themselves.
bool isOnXwayland() {
  constexpr std::string_view kExtension = "XWAYLAND";
  const auto cookie = xcb_query_extension(qtConnection(), kExtension.size(), kExtension.data());
  const auto reply = Xcb::answer(xcb_query_extension_reply, qtConnection(), cookie);
  if (reply && reply->present != 0) return true;
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen != nullptr && screen->name().startsWith(QStringLiteral("XWAYLAND"));
}

}  // namespace

DisplayKind displayKind() {
  if (QGuiApplication::platformName() == QStringLiteral("wayland")) return DisplayKind::wayland;
  if (!isOnX11()) return DisplayKind::x11;
  static const bool isThroughCompositor = isOnXwayland();
  return isThroughCompositor ? DisplayKind::xwayland : DisplayKind::x11;
}

bool isDesktop(const char* name) {
  const auto names = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
  return names.contains(QLatin1String(name), Qt::CaseInsensitive);
}

bool chooseX11() {
  if (qEnvironmentVariableIsSet(kChoice) || !qEnvironmentVariableIsSet("DISPLAY")) return false;
  return doesXServerAnswer() && qputenv(kChoice, "xcb");
}

void forgetChoice() {
  qunsetenv(kChoice);
}

}  // namespace Hilalor::Desktop
