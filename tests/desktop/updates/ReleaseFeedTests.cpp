#include "desktop/updates/ReleaseFeed.hpp"

#include <gtest/gtest.h>

#include <QByteArray>

namespace Hilalor::Desktop {
namespace {

TEST(ReleaseFeed, NamesTheNewestReleaseThatIsForEverybody) {
  const auto feed = ReleaseFeed::parse(R"(<?xml version="1.0" encoding="UTF-8"?>
<releases>
  <release version="1.9" date="2026-01-01"/>
  <release version="2.0" type="development" date="2026-03-01"/>
  <release version="1.10" type="stable" date="2026-02-01" urgency="medium">
    <description>
      <p>Prayer times in
         the   mountains.</p>
      <p xml:lang="de">Gebetszeiten in den Bergen.</p>
      <ul>
        <li>A <em>smaller</em> panel</li>
        <li xml:lang="fr">Un panneau plus petit</li>
      </ul>
    </description>
    <url type="details"> https://example.org/1.10 </url>
    <artifacts><artifact type="source"><location>x</location></artifact></artifacts>
  </release>
  <release version="soon"/>
  <release/>
</releases>)");
  ASSERT_TRUE(feed);
  ASSERT_TRUE(feed->newest);
  EXPECT_EQ(feed->newest->version, "1.10");
  EXPECT_EQ(feed->newest->news,
            (QStringList{"Prayer times in the mountains.", "\u2022 A smaller panel"}));
  EXPECT_EQ(feed->newest->page, "https://example.org/1.10");

  const auto inComponent = ReleaseFeed::parse(
      "<component><name>Hilalor</name><releases><release version='1.6'/></releases></component>");
  EXPECT_EQ(inComponent->newest->version, "1.6");
  EXPECT_FALSE(ReleaseFeed::parse("<releases/>")->newest);
}

TEST(ReleaseFeed, IsNotMadeOfAnythingElse) {
  const QByteArray deep =
      "<releases><release version='9'><description>" + QByteArray("<ul>").repeated(100'000);
  for (const QByteArray& text :
       {QByteArray(""), QByteArray("not found"), QByteArray("<html><body>Not found</body></html>"),
        QByteArray("<releases><release version='9'>"), QByteArray("<releases></wrong>"), deep}) {
    SCOPED_TRACE(text.left(60).toStdString());
    EXPECT_FALSE(ReleaseFeed::parse(text));
  }
}

TEST(ReleaseFeed, VersionsAreComparedByTheirNumbers) {
  EXPECT_TRUE(isLaterVersion("1.10", "1.9"));
  EXPECT_TRUE(isLaterVersion("2", "1.99"));
  EXPECT_TRUE(isLaterVersion("1.5.1", "1.5"));
  EXPECT_FALSE(isLaterVersion("1.5", "1.5"));
  EXPECT_FALSE(isLaterVersion("1.5.0", "1.5"));
  EXPECT_FALSE(isLaterVersion("1.4.9", "1.5"));
}

}  // namespace
}  // namespace Hilalor::Desktop
