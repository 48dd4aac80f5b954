#include "desktop/sound/SoundStream.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tests/desktop/sound/SoundFiles.hpp"
#include "tests/fakes/TemporaryFolder.hpp"

namespace Hilalor::Desktop {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::FloatNear;
using testing::Pointwise;

/// Twice that of 16-bit samples, which libsndfile writes by one scale and reads by another.
constexpr float kStep = 2.0F / 32768;

class SoundStreamTest : public testing::Test {
 protected:
  [[nodiscard]] std::filesystem::path path(const std::string& name) const {
    return folder.path() / name;
  }

  /// Everything there is, at most so many frames.
  static std::vector<float> everything(SoundStream& stream, std::size_t most = 1U << 20U) {
    const auto channels = static_cast<std::size_t>(stream.format().channels);
    std::vector<float> all;
    std::vector<float> part(321 * channels);
    while (all.size() < most * channels) {
      const auto frames = stream.read(part);
      all.insert(all.end(), part.begin(),
                 part.begin() + static_cast<std::ptrdiff_t>(frames * channels));
      if (frames == 0) break;
    }
    return all;
  }

  TemporaryFolder folder;
};

TEST_F(SoundStreamTest, ReadsABeepFromItsFirstSampleToItsLast) {
  const auto samples = ramp(4000);
  writeSound(path("a.aiff"), kAiff, 1, samples);
  const auto stream = SoundStream::open(path("a.aiff"), Repeat::no);
  ASSERT_NE(stream, nullptr);
  EXPECT_EQ(stream->format(), (SoundFormat{kTestRate, 1}));
  EXPECT_EQ(stream->duration(), Seconds(0.5));
  EXPECT_THAT(everything(*stream), Pointwise(FloatNear(kStep), samples));
  EXPECT_FALSE(stream->isBroken());
}

TEST_F(SoundStreamTest, RepeatsWithoutAGap) {
  const auto samples = ramp(1000);
  writeSound(path("a.aiff"), kAiff, 1, samples);
  const auto stream = SoundStream::open(path("a.aiff"), Repeat::forever);
  ASSERT_NE(stream, nullptr);
  auto expected = samples;
  for (int time = 0; time < 2; ++time)
    expected.insert(expected.end(), samples.begin(), samples.end());
  auto heard = everything(*stream, expected.size());
  heard.resize(expected.size());
  EXPECT_THAT(heard, Pointwise(FloatNear(kStep), expected));
}

TEST_F(SoundStreamTest, ReadsTheFirstTwoOfManyChannels) {
  writeSound(path("a.aiff"), kFloatAiff, 3, {0.1F, 0.2F, 0.9F, 0.3F, 0.4F, 0.9F});
  const auto stream = SoundStream::open(path("a.aiff"), Repeat::no);
  ASSERT_NE(stream, nullptr);
  EXPECT_THAT(everything(*stream), ElementsAre(0.1F, 0.2F, 0.3F, 0.4F));
}

TEST_F(SoundStreamTest, KeepsEverySampleWithinFullScale) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  writeSound(path("a.aiff"), kFloatAiff, 1, {7.0F, -kInfinity, kNaN, 0.25F});
  const auto stream = SoundStream::open(path("a.aiff"), Repeat::no);
  ASSERT_NE(stream, nullptr);
  EXPECT_THAT(everything(*stream), ElementsAre(1.0F, -1.0F, 0.0F, 0.25F));
}

TEST_F(SoundStreamTest, ReadsARecordingOfVaryingBitRateToItsEnd) {
  // Noise before silence, and without the table of contents: the first frames promise a file of a
  // quarter of its length.
  std::vector<float> samples(4 * 32000);
  std::mt19937 random;
  std::uniform_real_distribution<float> noise(-0.5F, 0.5F);
  std::generate_n(samples.begin(), 32000, [&] { return noise(random); });
  writeSound(path("whole.mp3"), kMp3, 1, samples, 32000);
  const auto content = contentOf(path("whole.mp3"));
  writeFile(path("a.mp3"), content.substr(content.find(content.substr(0, 2), 2)));

  const auto stream = SoundStream::open(path("a.mp3"), Repeat::no);
  ASSERT_NE(stream, nullptr);
  EXPECT_NEAR(static_cast<double>(everything(*stream).size()) / 32000, 4.0, 0.1);
  EXPECT_FALSE(stream->isBroken());
}

TEST_F(SoundStreamTest, RefusesWhatHoldsNoSound) {
  writeSound(path("whole.aiff"), kAiff, 1, ramp(4000));
  writeSound(path("whole.mp3"), kMp3, 1, ramp(32000), 32000);
  const auto aiff = contentOf(path("whole.aiff"));
  const auto mp3 = contentOf(path("whole.mp3"));
  std::string text;
  for (int line = 0; line < 1000; ++line)
    text += "Allahu akbar\n";

  const std::vector<std::pair<std::string, std::string>> contents{
      {"empty", ""},
      {"one byte", "\xff"},
      {"text", text},
      {"first bytes of AIFF", aiff.substr(0, 12)},
      {"head of AIFF", aiff.substr(0, 54)},
      {"head of MP3", mp3.substr(0, 10)},
      {"head of MP3, then text", mp3.substr(0, 4) + text}};
  for (const auto& [what, content] : contents) {
    for (const auto* name : {"a.aiff", "a.mp3"}) {
      SCOPED_TRACE(what + " as " + name);
      writeFile(path(name), content);
      EXPECT_EQ(SoundStream::open(path(name), Repeat::no), nullptr);
    }
  }
  EXPECT_EQ(SoundStream::open(path("missing.mp3"), Repeat::no), nullptr);
  EXPECT_EQ(SoundStream::open(folder.path(), Repeat::no), nullptr);
  writeSound(path("fast.aiff"), kAiff, 1, ramp(4000), 768000);
  EXPECT_EQ(SoundStream::open(path("fast.aiff"), Repeat::no), nullptr);
}

TEST_F(SoundStreamTest, PlaysWhatIsLeftOfACutFile) {
  for (const auto& [name, kind] : {std::pair("a.aiff", kAiff), std::pair("a.mp3", kMp3)}) {
    SCOPED_TRACE(name);
    writeSound(path(name), kind, 1, ramp(64000), 32000);
    const auto content = contentOf(path(name));
    writeFile(path(name), content.substr(0, content.size() / 2));
    const auto stream = SoundStream::open(path(name), Repeat::no);
    ASSERT_NE(stream, nullptr);
    EXPECT_NEAR(static_cast<double>(everything(*stream).size()), 32000, 4000);
  }
}

}  // namespace
}  // namespace Hilalor::Desktop
