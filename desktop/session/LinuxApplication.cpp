#include "desktop/session/LinuxApplication.hpp"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QSessionManager>
#include <QThread>
#include <QVariantList>
#include <QVariantMap>
#include <array>
#include <chrono>
#include <cstdlib>
#include <utility>

#include "desktop/process/ProgramId.hpp"
#include "desktop/session/BusCall.hpp"
#include "desktop/session/BusProbe.hpp"
#include "desktop/session/RunningCopy.hpp"

namespace Hilalor::Desktop {
namespace {

// The desktop's way to talk to a program that runs once a session.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
  ApplicationAdaptor(QObject* parent, std::function<void()> activate,
                     std::function<void(const QString&)> act)
      : QDBusAbstractAdaptor(parent), activate_(std::move(activate)), act_(std::move(act)) {}

 public Q_SLOTS:
  void Activate(const QVariantMap& platformData) {
    takeToken(platformData);
    activate_();
  }

  void ActivateAction(const QString& name, const QVariantList&, const QVariantMap& platformData) {
    takeToken(platformData);
    act_(name);
  }

 private:
  // Qt shows it to the compositor with the next window that it activates.
  static void takeToken(const QVariantMap& platformData) {
    const QByteArray token = platformData[kTokenKey].toString().toUtf8();
    if (!token.isEmpty()) qputenv(kToken, token);
  }

  std::function<void()> activate_;
  std::function<void(const QString&)> act_;
};

// Signal handlers may do little: they write to a pipe that the event loop reads.
std::array<int, 2> signalPipe{-1, -1};

void noteSignal(int) {
  const char byte = 0;
  [[maybe_unused]] const auto written = write(signalPipe[1], &byte, 1);
}

constexpr unsigned long kMillisecondsBetweenTries = 50;
constexpr unsigned kSecondsToEnd = 30;

void endAtOnce(int) {
  _exit(EXIT_SUCCESS);
}

bool isRunning = false;

std::function<void()> lostDisplayHandler;

// When the X server goes, Qt leaves by exit(1) from within the event loop. To this program that is
// the end of the session like any other.
void endWithTheSession() {
  if (!isRunning) return;
  if (lostDisplayHandler) lostDisplayHandler();
  _exit(EXIT_SUCCESS);
}

}  // namespace

LinuxApplication::LinuxApplication() {
  isRunning = true;
  std::atexit(endWithTheSession);
  endOnSignals();
  new ApplicationAdaptor(
      this,
      [this] {
        if (reopen_) reopen_();
      },
      [this](const QString& action) { act(action); });
  // A restored session would start the program beside its autostart entry.
  QObject::connect(
      qGuiApp, &QGuiApplication::commitDataRequest, this,
      [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); });
}

LinuxApplication::~LinuxApplication() {
  isRunning = false;
  setLostDisplayHandler({});
  signalNotifier_.reset();
  for (int& end : signalPipe)
    close(std::exchange(end, -1));
}

bool LinuxApplication::becomeTheRunningCopy(std::chrono::seconds patienceWithAnother) {
  if (sessionBusAddress().empty()) return true;
  auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return true;
  named_ = bus;
  bus.registerObject(kBusPath, this);
  const QDeadlineTimer patience(patienceWithAnother);
  while (true) {
    const auto reply = bus.interface()->registerService(kProgramId);
    if (!reply.isValid() || reply.value() == QDBusConnectionInterface::ServiceRegistered) {
      return true;
    }
    const auto answer = showRunningCopy(bus);
    if (answer == CopyAnswer::done) return false;
    if (answer == CopyAnswer::none && patience.hasExpired()) return false;
    QThread::msleep(kMillisecondsBetweenTries);
  }
}

void LinuxApplication::remainTheRunningCopy(SessionBus& sessionBus) {
  ofBus_ = sessionBus.changed.subscribe([this, &sessionBus] {
    const bool hasName = named_ && named_->isConnected();
    if (!hasName && sessionBus.connection()) takeNameOn(*sessionBus.connection());
  });
}

void LinuxApplication::takeNameOn(QDBusConnection bus) {
  constexpr uint kDoNotQueue = 4;
  constexpr uint kIsTaken = 3;
  named_ = bus;
  bus.registerObject(kBusPath, this);
  whenAnswered(bus.asyncCall(busCall("RequestName", {kProgramId, kDoNotQueue})), this,
               [this](const QDBusPendingCall& answer) {
                 const QDBusPendingReply<uint> reply = answer;
                 // Two copies would announce every prayer twice.
                 if (reply.isValid() && reply.value() == kIsTaken) terminate();
               });
}

void LinuxApplication::terminate() {
  // SIGHUP may come right after SIGTERM when a session ends. It is no sign of impatience.
  for (const int number : {SIGTERM, SIGINT})
    signal(number, SIG_DFL);
  // Who wants to start a copy from now on waits for the end of this one, which is to come.
  if (named_) named_->unregisterObject(kBusPath);
  signal(SIGALRM, endAtOnce);
  alarm(kSecondsToEnd);
  QCoreApplication::exit(EXIT_SUCCESS);
}

void LinuxApplication::setLostDisplayHandler(std::function<void()> handler) {
  lostDisplayHandler = std::move(handler);
}

void LinuxApplication::setReopenHandler(std::function<void()> handler) {
  reopen_ = std::move(handler);
}

void LinuxApplication::setSettingsHandler(std::function<void()> handler) {
  openSettings_ = std::move(handler);
}

void LinuxApplication::act(const QString& action) {
  if (action == kSettingsAction && openSettings_) openSettings_();
  if (action == kQuitAction) terminate();
}

void LinuxApplication::setResumeHandler(std::function<void()> handler) {
  resume_ = std::move(handler);
  sleepWatch_.reset();
  if (resume_) useSystemBus(QDBusConnection::systemBus());
}

void LinuxApplication::useSystemBus(const QDBusConnection& bus) {
  sleepWatch_ = std::make_unique<SleepWatch>(bus, [this] {
    if (resume_) resume_();
  });
}

void LinuxApplication::endOnSignals() {
  if (pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  signalNotifier_ = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
  QObject::connect(signalNotifier_.get(), &QSocketNotifier::activated, this,
                   [this] { terminate(); });
  struct sigaction action {};
  action.sa_handler = noteSignal;
  for (const int signal : {SIGTERM, SIGINT, SIGHUP})
    sigaction(signal, &action, nullptr);
}

}  // namespace Hilalor::Desktop

#include "LinuxApplication.moc"
