#pragma once

#include <QDBusConnection>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace Hilalor {

/// A message bus of our own, on which nothing is started by being called.
class PrivateBus {
 public:
  PrivateBus() {
    QFile configuration(folder_.filePath(QStringLiteral("bus.conf")));
    if (!configuration.open(QIODevice::WriteOnly)) return;
    const auto address = QStringLiteral("unix:path=") + folder_.filePath(QStringLiteral("bus"));
    configuration.write(QStringLiteral(R"(<busconfig><type>session</type><listen>%1</listen>
        <policy context="default"><allow user="*"/><allow own="*"/><allow send_destination="*"/>
        <allow receive_sender="*"/></policy></busconfig>)")
                            .arg(address)
                            .toUtf8());
    configuration.close();
    daemon_.setStandardErrorFile(QProcess::nullDevice());
    daemon_.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--config-file=") + configuration.fileName(),
                   QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    if (daemon_.waitForStarted() && daemon_.waitForReadyRead()) address_ = address;
  }

  ~PrivateBus() {
    daemon_.kill();
    daemon_.waitForFinished();
  }

  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  /// False where the machine has no message bus.
  [[nodiscard]] bool isRunning() const { return !address_.isEmpty(); }

  [[nodiscard]] QDBusConnection connection(const QString& name) const {
    return QDBusConnection::connectToBus(address_, name);
  }

 private:
  QTemporaryDir folder_;
  QProcess daemon_;
  QString address_;
};

}  // namespace Hilalor
