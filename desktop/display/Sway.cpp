#include "desktop/display/Sway.hpp"

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <utility>

#include "desktop/display/DisplayKind.hpp"

namespace Hilalor::Desktop::Sway {
namespace {

constexpr timeval kPatience{.tv_sec = 0, .tv_usec = 200'000};
constexpr std::uint32_t kMostBytes = 1 << 20;

enum class Question : std::uint32_t { runCommand = 0, workspaces = 1 };

/// As it stands before every message, in the machine's own byte order.
struct [[gnu::packed]] Head {
  char magic[6] = {'i', '3', '-', 'i', 'p', 'c'};
  std::uint32_t size = 0;
  std::uint32_t type = 0;
};

class Connection {
 public:
  Connection() : socket_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    const QByteArray path = qgetenv("SWAYSOCK");
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.isEmpty() || path.size() >= static_cast<qsizetype>(sizeof(address.sun_path))) return;
    std::copy(path.begin(), path.end(), address.sun_path);
    setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof(kPatience));
    setsockopt(socket_, SOL_SOCKET, SO_SNDTIMEO, &kPatience, sizeof(kPatience));
    isOpen_ = connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() { close(socket_); }

  [[nodiscard]] QJsonDocument ask(Question question, const QByteArray& text) const {
    Head head;
    head.size = static_cast<std::uint32_t>(text.size());
    head.type = static_cast<std::uint32_t>(question);
    const QByteArray message =
        QByteArray(reinterpret_cast<const char*>(&head), sizeof(head)) + text;
    if (!isOpen_ || send(socket_, message.data(), static_cast<std::size_t>(message.size()),
                         MSG_NOSIGNAL) != message.size())
      return {};
    if (!read(&head, sizeof(head)) || head.size > kMostBytes) return {};
    QByteArray answer(static_cast<qsizetype>(head.size), '\0');
    if (!read(answer.data(), head.size)) return {};
    return QJsonDocument::fromJson(answer);
  }

 private:
  bool read(void* memory, std::size_t size) const {
    return recv(socket_, memory, size, MSG_WAITALL) == static_cast<ssize_t>(size);
  }

  int socket_;
  bool isOpen_ = false;
};

QJsonDocument ask(Question question, const QByteArray& text = {}) {
  return isHere() ? Connection().ask(question, text) : QJsonDocument();
}

QRect rect(const QJsonObject& from) {
  return {from["x"].toInt(), from["y"].toInt(), from["width"].toInt(), from["height"].toInt()};
}

/// The words for a command to this program's window of that title.
QString windowOf(const QString& title) {
  return QStringLiteral("[pid=%1 title=\"^%2$\"] ")
      .arg(QCoreApplication::applicationPid())
      .arg(title);
}

QString placing(QPoint corner) {
  return QStringLiteral("move absolute position %1 px %2 px").arg(corner.x()).arg(corner.y());
}

/// From its next showing on. Not told twice, since sway keeps all it was told.
void whenShown(const QString& title, const QString& action) {
  static QHash<QString, QString> told;
  if (std::exchange(told[title], action) == action) return;
  ask(Question::runCommand, (QStringLiteral("for_window ") + windowOf(title) + action).toUtf8());
}

}  // namespace

bool isHere() {
  return displayKind() != DisplayKind::x11 && qEnvironmentVariableIsSet("SWAYSOCK");
}

std::vector<QRect> freeAreas() {
  std::vector<QRect> areas;
  for (const auto& entry : ask(Question::workspaces).array()) {
    const QJsonObject workspace = entry.toObject();
    if (workspace["visible"].toBool()) areas.push_back(rect(workspace["rect"].toObject()));
  }
  return areas;
}

void place(const QString& title, QPoint corner) {
  ask(Question::runCommand, (windowOf(title) + placing(corner)).toUtf8());
}

void placeWhenShown(const QString& title, QPoint corner) {
  whenShown(title, placing(corner));
}

void floatWhenShown(const QString& title) {
  whenShown(title, QStringLiteral("floating enable"));
}

}  // namespace Hilalor::Desktop::Sway
