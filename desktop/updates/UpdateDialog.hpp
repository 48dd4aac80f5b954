#pragma once

#include <QDialog>
#include <QString>
#include <functional>
#include <variant>

#include "desktop/updates/ReleaseFeed.hpp"

namespace Hilalor::Desktop {

/// How far a look for a newer release has come.
struct LookingForReleases {};
struct NoNewerRelease {};
struct FeedOutOfReach {};
using UpdateState = std::variant<LookingForReleases, NoNewerRelease, FeedOutOfReach, Release>;

/// Tells the user what came of a look for newer releases. Deletes itself when it is closed.
class UpdateDialog final : public QDialog {
 public:
  /// `owner` is the window it belongs to; null for none. `version` is what the user has.
  /// `onDownload` is told the release that is wanted.
  UpdateDialog(QWidget* owner, QString version, std::function<void(const Release&)> onDownload);

  void setState(const UpdateState& state);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QWidget* content(LookingForReleases looking);
  [[nodiscard]] QWidget* content(NoNewerRelease none);
  [[nodiscard]] QWidget* content(FeedOutOfReach outOfReach);
  [[nodiscard]] QWidget* content(const Release& release);
  [[nodiscard]] QWidget* message(const QString& title, const QString& text);

  QString version_;
  std::function<void(const Release&)> onDownload_;
  QWidget* content_ = nullptr;
};

}  // namespace Hilalor::Desktop
