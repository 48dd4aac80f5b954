#include "desktop/updates/FeedReader.hpp"

#include <QNetworkRequest>
#include <cassert>
#include <chrono>
#include <utility>

namespace Hilalor::Desktop {
namespace {

// Without a byte for so long, the other side is taken to be gone.
constexpr std::chrono::milliseconds kPatience = std::chrono::seconds(20);
constexpr qint64 kLargestFeed = 1 << 20;

}  // namespace

FeedReader::FeedReader(QString userAgent) : userAgent_(std::move(userAgent)) {}

FeedReader::~FeedReader() {
  // An aborted reply says so at once, to nobody.
  if (reply_ != nullptr) reply_->disconnect();
}

void FeedReader::read(const QUrl& url, Answer answer) {
  assert(!isReading());
  answer_ = std::move(answer);
  network_ = std::make_unique<QNetworkAccessManager>();
  QNetworkRequest request(url);
  request.setTransferTimeout(static_cast<int>(kPatience.count()));
  request.setHeader(QNetworkRequest::UserAgentHeader, userAgent_);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::NoLessSafeRedirectPolicy);
  reply_ = network_->get(request);
  reply_->setReadBufferSize(kLargestFeed + 1);
  QObject::connect(reply_, &QNetworkReply::readyRead, reply_, [reply = reply_] {
    if (reply->bytesAvailable() > kLargestFeed) reply->abort();
  });
  // Queued, since a reply may finish before it was given out.
  QObject::connect(
      reply_, &QNetworkReply::finished, reply_, [this] { finish(); }, Qt::QueuedConnection);
}

void FeedReader::finish() {
  std::optional<QByteArray> content;
  if (reply_->error() == QNetworkReply::NoError) content = reply_->readAll();
  reply_ = nullptr;
  // It is in the middle of telling us.
  network_.release()->deleteLater();
  const auto answer = std::exchange(answer_, nullptr);
  answer(std::move(content));
}

}  // namespace Hilalor::Desktop
