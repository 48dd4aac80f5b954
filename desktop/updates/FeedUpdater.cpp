#include "desktop/updates/FeedUpdater.hpp"

#include <QApplication>
#include <QDir>
#include <utility>

namespace Hilalor::Desktop {
namespace {

// A session that begins has better things to do.
constexpr Seconds kAfterStart{10};
constexpr Seconds kHour{3600};
constexpr Seconds kDay{86400};

QUrl address(const QString& feed) {
  return QUrl::fromUserInput(feed, QDir::rootPath(), QUrl::AssumeLocalFile);
}

}  // namespace

FeedUpdater::FeedUpdater(RunLoop& loop, const Clock& clock, Workspace& workspace, Program program)
    : loop_(loop),
      clock_(clock),
      workspace_(workspace),
      program_(std::move(program)),
      reader_(QStringLiteral("Hilalor/") + program_.version) {}

FeedUpdater::~FeedUpdater() {
  delete dialog_;
}

void FeedUpdater::start() {
  starting_ = loop_.once(kAfterStart, [this] { readIfDue(); });
  // A timer of a day would count only the time that the machine is awake.
  hourly_ = loop_.repeating(kHour, [this] { readIfDue(); });
}

void FeedUpdater::checkForUpdates() {
  tell(LookingForReleases{});
  dialog_->show();
  dialog_->raise();
  dialog_->activateWindow();
  read();
}

void FeedUpdater::readIfDue() {
  const Date now = clock_.now();
  const bool isFresh = lastRead_ && now >= *lastRead_ && now - *lastRead_ < kDay;
  if (!isFresh) read();
}

void FeedUpdater::read() {
  if (reader_.isReading()) return;
  reader_.read(address(program_.feed),
               [this](const std::optional<QByteArray>& content) { take(content); });
}

void FeedUpdater::take(const std::optional<QByteArray>& content) {
  const UpdateState state = outcome(content);
  if (!std::holds_alternative<FeedOutOfReach>(state)) lastRead_ = clock_.now();
  if (hasDialog()) return tell(state);
  const auto* release = std::get_if<Release>(&state);
  if (release == nullptr || release->version == toldVersion_) return;
  tell(state);
  // Nobody asked for it.
  dialog_->setAttribute(Qt::WA_ShowWithoutActivating);
  dialog_->show();
}

UpdateState FeedUpdater::outcome(const std::optional<QByteArray>& content) const {
  const auto feed = content ? ReleaseFeed::parse(*content) : std::nullopt;
  if (!feed) return FeedOutOfReach{};
  if (!feed->newest || !isLaterVersion(feed->newest->version, program_.version))
    return NoNewerRelease{};
  return *feed->newest;
}

// One that was closed lives on for a moment.
bool FeedUpdater::hasDialog() const {
  return dialog_ && dialog_->isVisible();
}

void FeedUpdater::tell(const UpdateState& state) {
  if (!hasDialog()) {
    dialog_ = new UpdateDialog(QApplication::activeWindow(), program_.version,
                               [this](const Release& release) { download(release); });
  }
  if (const auto* release = std::get_if<Release>(&state)) toldVersion_ = release->version;
  dialog_->setState(state);
}

void FeedUpdater::download(const Release& release) const {
  const QString& page = release.page.isEmpty() ? program_.downloadPage : release.page;
  workspace_.openWebPage(page.toStdString());
}

}  // namespace Hilalor::Desktop
