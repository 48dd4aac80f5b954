#pragma once

#include <QPointer>
#include <QString>
#include <memory>
#include <optional>

#include "datetime/Date.hpp"
#include "desktop/updates/FeedReader.hpp"
#include "desktop/updates/UpdateDialog.hpp"
#include "platform/Clock.hpp"
#include "platform/RunLoop.hpp"
#include "platform/Updater.hpp"
#include "platform/Workspace.hpp"

namespace Hilalor::Desktop {

/// Looks for newer releases in a list on the web or on the disk: soon after the start and then once
/// a day in the background, where only a newer release is told of, and that once; and at once when
/// the user asks, with an answer in any case.
class FeedUpdater final : public Updater {
 public:
  struct Program {
    QString version;       ///< Of the running program.
    QString feed;          ///< Web address or path of a list of releases in AppStream's format.
    QString downloadPage;  ///< For releases that name no page of their own.
  };

  FeedUpdater(RunLoop& loop, const Clock& clock, Workspace& workspace, Program program);
  ~FeedUpdater() override;
  FeedUpdater(const FeedUpdater&) = delete;
  FeedUpdater& operator=(const FeedUpdater&) = delete;

  // Updater
  void start() override;
  void checkForUpdates() override;

  [[nodiscard]] bool isReading() const { return reader_.isReading(); }

 private:
  void readIfDue();
  void read();
  void take(const std::optional<QByteArray>& content);
  [[nodiscard]] UpdateState outcome(const std::optional<QByteArray>& content) const;
  [[nodiscard]] bool hasDialog() const;
  void tell(const UpdateState& state);
  void download(const Release& release) const;

  RunLoop& loop_;
  const Clock& clock_;
  Workspace& workspace_;
  Program program_;
  FeedReader reader_;
  QPointer<UpdateDialog> dialog_;
  std::optional<Date> lastRead_;  // With success.
  QString toldVersion_;           // The last that was told of unasked.
  std::unique_ptr<Timer> starting_;
  std::unique_ptr<Timer> hourly_;
};

}  // namespace Hilalor::Desktop
