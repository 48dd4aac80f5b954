#include "desktop/updates/ReleaseFeed.hpp"

#include <QVersionNumber>
#include <QXmlStreamReader>

namespace Hilalor::Desktop {
namespace {

/// A list in a list in a release's description is deep; whatever goes on for ever is no feed.
constexpr int kDeepest = 32;

bool isTooDeep(const QByteArray& xml) {
  QXmlStreamReader reader(xml);
  int depth = 0;
  while (!reader.atEnd() && depth <= kDeepest) {
    const auto token = reader.readNext();
    if (token == QXmlStreamReader::StartElement) ++depth;
    if (token == QXmlStreamReader::EndElement) --depth;
  }
  return depth > kDeepest;
}

/// Texts without a language are English.
bool isForeign(const QXmlStreamReader& xml) {
  const auto language = xml.attributes().value(QStringLiteral("xml:lang"));
  return !language.isEmpty() && !language.startsWith(QStringLiteral("en"));
}

void readNews(QXmlStreamReader& xml, QStringList& news) {
  while (xml.readNextStartElement()) {
    if (isForeign(xml)) {
      xml.skipCurrentElement();
    } else if (xml.name() == QStringLiteral("ul") || xml.name() == QStringLiteral("ol")) {
      readNews(xml, news);
    } else {
      const bool isItem = xml.name() == QStringLiteral("li");
      const QString text = xml.readElementText(QXmlStreamReader::IncludeChildElements).simplified();
      if (!text.isEmpty()) news.append(isItem ? QStringLiteral("\u2022 ") + text : text);
    }
  }
}

/// None for a release that is not for everybody, or has no version.
std::optional<Release> readRelease(QXmlStreamReader& xml) {
  const auto attributes = xml.attributes();
  const auto type = attributes.value(QStringLiteral("type"));
  Release release{
      .version = attributes.value(QStringLiteral("version")).toString(), .news = {}, .page = {}};
  while (xml.readNextStartElement()) {
    if (xml.name() == QStringLiteral("description") && !isForeign(xml)) {
      readNews(xml, release.news);
    } else if (xml.name() == QStringLiteral("url")) {
      release.page = xml.readElementText().trimmed();
    } else {
      xml.skipCurrentElement();
    }
  }
  const bool isStable = type.isEmpty() || type == QStringLiteral("stable");
  if (!isStable || QVersionNumber::fromString(release.version).isNull()) return std::nullopt;
  return release;
}

}  // namespace

std::optional<ReleaseFeed> ReleaseFeed::parse(const QByteArray& xml) {
  if (isTooDeep(xml)) return std::nullopt;
  QXmlStreamReader reader(xml);
  ReleaseFeed feed;
  bool isFeed = false;
  while (!reader.atEnd()) {
    if (reader.readNext() != QXmlStreamReader::StartElement) continue;
    if (reader.name() == QStringLiteral("releases")) isFeed = true;
    if (!isFeed || reader.name() != QStringLiteral("release")) continue;
    const auto release = readRelease(reader);
    if (!release) continue;
    if (!feed.newest || isLaterVersion(release->version, feed.newest->version))
      feed.newest = release;
  }
  if (reader.hasError() || !isFeed) return std::nullopt;
  return feed;
}

bool isLaterVersion(const QString& version, const QString& than) {
  // Normalised, so that 1.5.0 is no later than 1.5.
  return QVersionNumber::fromString(version).normalized() >
         QVersionNumber::fromString(than).normalized();
}

}  // namespace Hilalor::Desktop
