#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>

namespace Hilalor::Desktop {

/// Fetches a small file from the web or from the disk, without holding anybody up. Between two
/// readings it keeps no connection and no thread. Main thread.
class FeedReader final {
 public:
  /// The content; none where it could not be had whole.
  using Answer = std::function<void(std::optional<QByteArray> content)>;

  /// Names the program in its requests.
  explicit FeedReader(QString userAgent);
  ~FeedReader();
  FeedReader(const FeedReader&) = delete;
  FeedReader& operator=(const FeedReader&) = delete;

  /// Answers on a later pass of the event loop, not at all once the reader is gone. Not while it
  /// is reading.
  void read(const QUrl& url, Answer answer);

  [[nodiscard]] bool isReading() const { return reply_ != nullptr; }

 private:
  void finish();

  QString userAgent_;
  Answer answer_;
  std::unique_ptr<QNetworkAccessManager> network_;
  QNetworkReply* reply_ = nullptr;  // The network's own.
};

}  // namespace Hilalor::Desktop
