#pragma once

#include <QDBusConnection>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <csignal>

namespace Hilalor {

/// A message bus of our own, on which nothing is started by being called.
class PrivateBus {
 public:
  PrivateBus() {
    QFile configuration(configurationPath());
    if (!configuration.open(QIODevice::WriteOnly)) return;
    configuration.write(QStringLiteral(R"(<busconfig><type>session</type><listen>%1</listen>
        <policy context="default"><allow user="*"/><allow own="*"/><allow send_destination="*"/>
        <allow receive_sender="*"/></policy></busconfig>)")
                            .arg(address())
                            .toUtf8());
    configuration.close();
    daemon_.setStandardErrorFile(QProcess::nullDevice());
    start();
  }

  ~PrivateBus() { end(); }

  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  /// False where the machine has no message bus.
  [[nodiscard]] bool isRunning() const { return isRunning_; }

  [[nodiscard]] QString address() const {
    return QStringLiteral("unix:path=") + folder_.filePath(QStringLiteral("bus"));
  }

  /// Ends the bus with its connections; another comes under the same address.
  void restart() {
    end();
    start();
  }

  /// From now on it says nothing more, and its connections stay.
  void freeze() { kill(static_cast<pid_t>(daemon_.processId()), SIGSTOP); }

  [[nodiscard]] QDBusConnection connection(const QString& name) const {
    return QDBusConnection::connectToBus(address(), name);
  }

 private:
  [[nodiscard]] QString configurationPath() const {
    return folder_.filePath(QStringLiteral("bus.conf"));
  }

  void start() {
    daemon_.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--config-file=") + configurationPath(),
                   QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    isRunning_ = daemon_.waitForStarted() && daemon_.waitForReadyRead();
  }

  void end() {
    daemon_.kill();
    daemon_.waitForFinished();
  }

  QTemporaryDir folder_;
  QProcess daemon_;
  bool isRunning_ = false;
};

}  // namespace Hilalor
