#include "desktop/session/LinuxWorkspace.hpp"

#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QStringList>
#include <QUrl>

namespace Hilalor::Desktop {
namespace {

/// Takes the place of the user's browser.
class Browser final : public QObject {
  Q_OBJECT

 public:
  Browser() {
    for (const char* scheme : kSchemes)
      QDesktopServices::setUrlHandler(scheme, this, "open");
  }
  ~Browser() override {
    for (const char* scheme : kSchemes)
      QDesktopServices::unsetUrlHandler(scheme);
  }

  QStringList opened;

 public Q_SLOTS:
  void open(const QUrl& url) { opened.append(url.toString()); }

 private:
  static constexpr const char* kSchemes[] = {"https", "http", "file"};
};

TEST(LinuxWorkspace, OpensPagesOfTheWebAlone) {
  Browser browser;
  LinuxWorkspace workspace;
  for (const char* address : {"https://example.org/a", "http://example.org", "file:///etc/passwd",
                              "/etc/passwd", "https://two words", ""})
    workspace.openWebPage(address);
  EXPECT_EQ(browser.opened, (QStringList{"https://example.org/a", "http://example.org"}));
}

}  // namespace
}  // namespace Hilalor::Desktop

#include "LinuxWorkspaceTest.moc"
