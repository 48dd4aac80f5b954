#include "desktop/sound/LinuxSoundService.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include "desktop/sound/SilentOutput.hpp"
#include "tests/desktop/sound/SoundFiles.hpp"
#include "tests/fakes/MailboxLoop.hpp"
#include "tests/fakes/TemporaryFolder.hpp"

namespace Hilalor::Desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Outcome = SoundOutput::Outcome;

/// An output that does what the test says.
class ScriptedOutput final : public SoundOutput {
 public:
  using Script = std::function<Outcome(SampleSource&, const std::stop_token&)>;
  explicit ScriptedOutput(Script script) : script_(std::move(script)) {}
  Outcome play(SampleSource& stream, std::stop_token stop) const override {
    return script_(stream, stop);
  }

 private:
  Script script_;
};

/// Plays to the end at once, or until so many frames were taken.
Outcome take(SampleSource& stream, std::size_t frames, std::vector<float>& heard) {
  std::vector<float> samples(frames);
  samples.resize(stream.read(samples));
  heard.insert(heard.end(), samples.begin(), samples.end());
  return samples.size() < frames ? Outcome::finished : Outcome::lost;
}

/// Holds a sound until it is stopped.
Outcome hold(SampleSource&, const std::stop_token& stop) {
  std::promise<void> stopped;
  const std::stop_callback tell(stop, [&] { stopped.set_value(); });
  stopped.get_future().wait();
  return Outcome::finished;
}

struct Ends final : AudioPlayer::Delegate {
  void audioPlayerDidFinishPlaying(AudioPlayer& player, bool successfully) override {
    ended.push_back(&player);
    success = successfully;
    if (dropped != nullptr) dropped->reset();
  }
  std::vector<const AudioPlayer*> ended;
  bool success = false;
  std::shared_ptr<AudioPlayer>* dropped = nullptr;
};

class LinuxSoundServiceTest : public testing::Test {
 protected:
  LinuxSoundServiceTest() {
    create_directory(users());
    create_directory(shipped());
    writeSound(shipped() / "athan.aiff", kAiff, 1, ramp(1000));
  }

  [[nodiscard]] std::filesystem::path users() const { return folder.path() / "users"; }
  [[nodiscard]] std::filesystem::path shipped() const { return folder.path() / "shipped"; }

  template <typename... Scripts>
  std::unique_ptr<LinuxSoundService> serviceOver(Scripts... scripts) {
    SoundStage::Outputs outputs;
    (outputs.push_back(std::make_unique<ScriptedOutput>(scripts)), ...);
    return std::make_unique<LinuxSoundService>(
        loop, std::vector{users(), folder.path() / "missing", shipped()}, std::move(outputs));
  }

  [[nodiscard]] std::shared_ptr<AudioPlayer> athan(const LinuxSoundService& service) {
    auto player = service.player(shipped() / "athan.aiff");
    player->setDelegate(&ends);
    return player;
  }

  TemporaryFolder folder;
  MailboxLoop loop;
  Ends ends;
};

TEST_F(LinuxSoundServiceTest, TakesTheUsersFileFirst) {
  const auto service = serviceOver(hold);
  writeFile(shipped() / "athan.mp3", "");
  writeFile(shipped() / "athan2.mp3", "");
  writeFile(users() / "athan.mp3", "");
  create_directory(users() / "athan2.mp3");
  EXPECT_EQ(service->resource("athan", "mp3"), users() / "athan.mp3");
  EXPECT_EQ(service->resource("athan2", "mp3"), shipped() / "athan2.mp3");
  EXPECT_EQ(service->resource("after_athan", "mp3"), std::nullopt);
  EXPECT_EQ(service->resource("../users/athan", "mp3"), std::nullopt);
  EXPECT_EQ(service->resource("", "mp3"), std::nullopt);

  writeSound(shipped() / "Glass.aiff", kAiff, 1, ramp(kTestRate));
  EXPECT_EQ(service->soundNamed("Glass")->duration(), Seconds(1));
  writeSound(users() / "Glass.AIFF", kAiff, 1, ramp(2 * kTestRate));
  EXPECT_EQ(service->soundNamed("Glass")->duration(), Seconds(2));
  writeFile(users() / "Broken.aiff", "FORM");
  EXPECT_EQ(service->soundNamed("Broken"), nullptr);
  EXPECT_EQ(service->soundNamed("Gong"), nullptr);
}

TEST_F(LinuxSoundServiceTest, ReportsTheEndOfARecordingThatWasPlayedToIt) {
  std::vector<float> heard;
  const auto service = serviceOver([&](auto& stream, auto&) { return take(stream, 5000, heard); });
  auto player = athan(*service);
  ends.dropped = &player;
  player->play();
  EXPECT_TRUE(loop.runNext());
  EXPECT_EQ(ends.ended.size(), 1U);
  EXPECT_TRUE(ends.success);
  EXPECT_EQ(heard.size(), 1000U);
}

TEST_F(LinuxSoundServiceTest, PlaysToTheCardWhereThereIsNoServer) {
  const auto card = folder.path() / "heard";
  // All that the library knows: a card that writes what is played into a file.
  writeFile(folder.path() / "asound.conf", "pcm.default { type file; format raw; file " +
                                               card.string() + "; slave.pcm { type null } }");
  setenv("ALSA_CONFIG_PATH", (folder.path() / "asound.conf").c_str(), 1);
  setenv("PULSE_SERVER", "unix:/nonexistent", 1);
  const LinuxSoundService service(loop, {shipped()});
  const auto player = athan(service);
  player->play();
  EXPECT_TRUE(loop.runNext());
  EXPECT_EQ(ends.ended.size(), 1U);
  const auto heard = contentOf(card);
  ASSERT_EQ(heard.size(), 1000 * sizeof(float));
  float last = 0;
  std::memcpy(&last, &heard[999 * sizeof(float)], sizeof(float));
  EXPECT_NEAR(last, 0.999F, 0.001F);
}

TEST_F(LinuxSoundServiceTest, ReportsNoEndOfARecordingThatWasStoppedOrDropped) {
  const auto service = serviceOver(hold);
  auto stopped = athan(*service);
  auto dropped = athan(*service);
  stopped->play();
  dropped->play();
  stopped->stop();
  dropped.reset();
  EXPECT_TRUE(loop.runNext());
  EXPECT_TRUE(loop.runNext());
  EXPECT_THAT(ends.ended, IsEmpty());
}

TEST_F(LinuxSoundServiceTest, ReportsNoEndThatAStopOvertook) {
  std::promise<void> over;
  const auto service = serviceOver([&](auto&, auto&) {
    over.set_value();
    return Outcome::finished;
  });
  const auto player = athan(*service);
  player->play();
  over.get_future().wait();
  player->stop();
  EXPECT_TRUE(loop.runNext());
  EXPECT_THAT(ends.ended, IsEmpty());
}

TEST_F(LinuxSoundServiceTest, GoesOnThroughTheNextOutputWhereOneWasLost) {
  std::vector<float> first;
  std::vector<float> second;
  const auto service = serviceOver([&](auto& stream, auto&) { return take(stream, 300, first); },
                                   [&](auto& stream, auto&) { return take(stream, 200, second); });
  const auto player = athan(*service);
  player->play();
  EXPECT_TRUE(loop.runNext());
  EXPECT_EQ(ends.ended.size(), 1U);
  // 0 to 300 and 500 to 800 by the first, 300 to 500 and 800 to 1000 by the second.
  ASSERT_EQ(first.size(), 600U);
  ASSERT_EQ(second.size(), 400U);
  EXPECT_NEAR(second.front(), 0.3F, 0.001F);
  EXPECT_NEAR(first[300], 0.5F, 0.001F);
  EXPECT_NEAR(second.back(), 0.999F, 0.001F);
}

TEST_F(LinuxSoundServiceTest, AsksAnOutputThatDoesNotAnswerOnlyOnceASound) {
  std::vector<float> heard;
  int asked = 0;
  const auto service = serviceOver(
      [&](auto&, auto&) {
        ++asked;
        return Outcome::unanswered;
      },
      [&](auto& stream, auto&) { return take(stream, 200, heard); });
  for (int sound = 1; sound <= 2; ++sound) {
    const auto player = athan(*service);
    player->play();
    EXPECT_TRUE(loop.runNext());
    EXPECT_EQ(asked, sound);
  }
  EXPECT_EQ(ends.ended.size(), 2U);
}

TEST_F(LinuxSoundServiceTest, LoopsABeepUntilItIsStopped) {
  std::promise<void> longEnough;
  const auto service = serviceOver([&](SampleSource& stream, const std::stop_token& stop) {
    std::vector<float> samples(2500);
    EXPECT_EQ(stream.read(samples), samples.size());
    longEnough.set_value();
    return hold(stream, stop);
  });
  const auto beep = service->soundNamed("athan");
  beep->setLoops(true);
  beep->play();
  longEnough.get_future().wait();
  beep->stop();
  EXPECT_TRUE(loop.runNext());
}

TEST_F(LinuxSoundServiceTest, AFileThatVanishesBeforeItIsOpenedIsNone) {
  const auto service = serviceOver(hold);
  const auto beep = service->soundNamed("athan");
  const auto found = service->resource("athan", "aiff");
  std::filesystem::remove(shipped() / "athan.aiff");
  EXPECT_EQ(service->player(*found), nullptr);
  beep->play();
  service->beep();
}

TEST_F(LinuxSoundServiceTest, EndsWithItsSoundsAndOutlivesNoneOfThem) {
  auto service = serviceOver(hold);
  const auto player = athan(*service);
  const auto beep = service->soundNamed("athan");
  player->play();
  beep->play();
  service.reset();
  player->stop();
  beep->play();
  EXPECT_THAT(ends.ended, IsEmpty());
}

TEST(PlaybackThreads, EndWithTheirWorkAndLeaveBehindWhatHangs) {
  MailboxLoop loop;
  auto release = std::make_shared<std::promise<void>>();
  auto left = std::make_shared<std::promise<void>>();
  {
    PlaybackThreads threads(loop, std::chrono::seconds(0));
    bool ended = false;
    threads.start([](const auto&) {}, [&] { ended = true; });
    EXPECT_TRUE(loop.runNext());
    EXPECT_TRUE(ended);
    EXPECT_EQ(threads.count(), 0U) << "gone after its work";
    threads.start(
        [release, left](const auto&) {
          release->get_future().wait();
          left->set_value();
        },
        {});
  }
  release->set_value();
  left->get_future().wait();
}

TEST(SilentOutput, LetsTimePassAsIfItSounded) {
  const TemporaryFolder folder;
  writeSound(folder.path() / "a.aiff", kAiff, 1, ramp(static_cast<std::size_t>(3.5 * kTestRate)));
  const auto stream = SoundStream::open(folder.path() / "a.aiff", Repeat::no);
  std::vector<double> waits;
  std::stop_source stop;
  const SilentOutput silence([&](Seconds span, auto) {
    waits.push_back(span.count());
    if (waits.size() == 5) stop.request_stop();
  });
  EXPECT_EQ(silence.play(*stream, stop.get_token()), Outcome::lost) << "the others' turn";
  EXPECT_THAT(waits, ElementsAre(1, 1));
  EXPECT_EQ(silence.play(*stream, stop.get_token()), Outcome::finished);
  EXPECT_THAT(waits, ElementsAre(1, 1, 1, 0.5));

  const auto again = SoundStream::open(folder.path() / "a.aiff", Repeat::forever);
  EXPECT_EQ(silence.play(*again, stop.get_token()), Outcome::finished) << "stopped";
  EXPECT_EQ(waits.size(), 5U);
}

}  // namespace
}  // namespace Hilalor::Desktop
