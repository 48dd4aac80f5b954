#include "desktop/updates/FeedUpdater.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <fstream>

#include "tests/fakes/FakeDesktop.hpp"
#include "tests/fakes/Parts.hpp"
#include "tests/fakes/TemporaryFolder.hpp"
#include "tests/fakes/VirtualLoop.hpp"
#include "ui/Button.hpp"
#include "ui/Text.hpp"

namespace Hilalor::Desktop {

using namespace Ui;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QByteArray kNewer = R"(<releases><release version="1.6">
  <description><p>Quieter.</p></description><url>https://example.org/1.6</url>
</release></releases>)";
const QByteArray kOlder = "<releases><release version='1.5'/></releases>";

/// A web server with a single page.
class Server {
 public:
  Server() {
    server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
      QTcpSocket* socket = server_.nextPendingConnection();
      QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { answer(*socket); });
    });
  }

  [[nodiscard]] QString address() const {
    return QStringLiteral("http://127.0.0.1:%1/releases.xml").arg(server_.serverPort());
  }

  void close() { server_.close(); }

  int requests = 0;
  QByteArray status = "200 OK";
  QByteArray page = kOlder;
  bool isSilent = false;

 private:
  void answer(QTcpSocket& socket) {
    if (!socket.readAll().contains("\r\n\r\n")) return;
    ++requests;
    if (isSilent) return;
    socket.write("HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(page.size()) +
                 "\r\nConnection: close\r\n\r\n" + page);
    socket.disconnectFromHost();
  }

  QTcpServer server_;
};

class FeedUpdaterTest : public testing::Test {
 protected:
  void start(const QString& feed) {
    updater = std::make_unique<FeedUpdater>(
        loop, loop, workspace,
        FeedUpdater::Program{
            .version = "1.5", .feed = feed, .downloadPage = "https://example.org/download"});
  }

  /// What the dialog says; nothing while there is none.
  [[nodiscard]] static QStringList dialog() {
    QStringList texts;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      if (dynamic_cast<const UpdateDialog*>(window) == nullptr || !window->isVisible()) continue;
      for (const Text* text : parts<Text>(*window))
        if (text->isVisible()) texts.append(text->text());
    }
    return texts;
  }

  [[nodiscard]] static bool waitFor(const QString& title) {
    return QTest::qWaitFor([&] { return dialog().value(0) == title; });
  }

  /// Waits until the server has been asked so often and its last answer has come.
  [[nodiscard]] bool waitForRequests(int count) {
    return QTest::qWaitFor([&] { return server.requests >= count && !updater->isReading(); }) &&
           server.requests == count;
  }

  static void click(const QString& name) {
    for (const QWidget* window : QApplication::topLevelWidgets())
      for (Button* button : parts<Button>(*window))
        if (button->isVisible() && button->accessibleName() == name)
          return QTest::mouseClick(button, Qt::LeftButton);
    throw std::out_of_range("no such button");
  }

  VirtualLoop loop{{1771754400}};
  FakeWorkspace workspace;
  Server server;
  std::unique_ptr<FeedUpdater> updater;
};

TEST_F(FeedUpdaterTest, AnswersWhoAsksInAnyCase) {
  const QString upToDate = "Hilalor is up to date.";
  const QString couldNot = "Could not look for updates.";
  const struct {
    const char* status;
    QByteArray page;
    QStringList dialog;
  } cases[] = {
      {"200 OK", kOlder, {upToDate, "Version 1.5 is the newest release."}},
      {"404 Not Found", kNewer, {couldNot}},
      {"200 OK", "<html>Please log in to this network.</html>", {couldNot}},
      {"200 OK", kOlder + QByteArray(2 << 20, ' '), {couldNot}},
      {"200 OK", kNewer, {"Hilalor 1.6 is available.", "You have version 1.5.", "Quieter."}},
  };
  start(server.address());
  for (const auto& [status, page, expected] : cases) {
    SCOPED_TRACE(page.left(60).toStdString());
    server.status = status;
    server.page = page;
    updater->checkForUpdates();
    EXPECT_EQ(dialog(), QStringList{"Looking for updates…"}) << "at once";
    ASSERT_TRUE(waitFor(expected[0]));
    EXPECT_EQ(dialog().first(expected.size()), expected);
    click(expected[0] == couldNot || expected[0] == upToDate ? "OK" : "Download");
    EXPECT_EQ(dialog(), QStringList{});
  }
  EXPECT_THAT(workspace.pages, ElementsAre("https://example.org/1.6"));
  server.close();
  updater->checkForUpdates();
  EXPECT_TRUE(waitFor(couldNot)) << "the server is gone";
}

TEST_F(FeedUpdaterTest, ReadsAFileAndOffersTheGeneralPageWhereTheReleaseHasNone) {
  const TemporaryFolder folder;
  const auto file = folder.path() / "releases.xml";
  std::ofstream(file) << "<releases><release version='2'/></releases>";
  start(QString::fromStdString(file));
  updater->checkForUpdates();
  ASSERT_TRUE(waitFor("Hilalor 2 is available."));
  click("Download");
  EXPECT_THAT(workspace.pages, ElementsAre("https://example.org/download"));
}

TEST_F(FeedUpdaterTest, LooksAfterTheStartAndOnceADayOrWithinTheHourWhereItFailed) {
  server.status = "503 Service Unavailable";
  start(server.address());
  updater->start();
  loop.advance(Seconds(1));
  EXPECT_FALSE(updater->isReading()) << "not while the session begins";
  loop.advance(Seconds(60));
  ASSERT_TRUE(waitForRequests(1));
  EXPECT_EQ(dialog(), QStringList{}) << "nobody asked";
  server.status = "200 OK";
  loop.advance(Seconds(3600));
  ASSERT_TRUE(waitForRequests(2));
  loop.advance(Seconds(23 * 3600.0));
  ASSERT_TRUE(waitForRequests(2));
  loop.advance(Seconds(2 * 3600.0));
  ASSERT_TRUE(waitForRequests(3));
  EXPECT_EQ(dialog(), QStringList{}) << "there is nothing new";
}

TEST_F(FeedUpdaterTest, TellsOfANewerReleaseOnceByItself) {
  server.page = kNewer;
  start(server.address());
  updater->start();
  loop.advance(Seconds(60));
  ASSERT_TRUE(waitFor("Hilalor 1.6 is available."));
  click("Later");
  EXPECT_THAT(workspace.pages, IsEmpty());
  loop.advance(Seconds(25 * 3600.0));
  ASSERT_TRUE(waitForRequests(2));
  EXPECT_EQ(dialog(), QStringList{});
  updater->checkForUpdates();
  EXPECT_TRUE(waitFor("Hilalor 1.6 is available.")) << "whoever asks is told again";
}

TEST_F(FeedUpdaterTest, MayEndWhileItWaits) {
  server.isSilent = true;
  start(server.address());
  updater->checkForUpdates();
  ASSERT_TRUE(QTest::qWaitFor([&] { return server.requests == 1; }));
  updater.reset();
  EXPECT_EQ(dialog(), QStringList{});
}

}  // namespace
}  // namespace Hilalor::Desktop
