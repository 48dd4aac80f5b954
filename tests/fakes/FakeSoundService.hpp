#pragma once

#include <algorithm>
#include <filesystem>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/Clock.hpp"
#include "platform/SoundService.hpp"

namespace Hilalor {

/// Sounds that nobody hears: tells which ones would be audible now. Recordings go on until the test
/// ends them, sounds for their duration by the clock.
class FakeSoundService final : public SoundService {
 public:
  explicit FakeSoundService(const Clock& clock) : air_(std::make_shared<Air>(clock)) {}

  std::map<std::string, Seconds, std::less<>> sounds{{"Glass", Seconds(1.5)},
                                                     {"Bowl", Seconds(2.0)}};
  std::set<std::string, std::less<>> recordings{"athan", "athan2", "after_athan"};
  std::set<std::string> unreadable;
  std::filesystem::path folder;  ///< Of the recordings.

  /// What sounds now, in the order in which it began; "Glass looped" for a sound in a loop.
  [[nodiscard]] std::vector<std::string> audible() const { return air_->audible(); }

  /// Everything that began to sound so far, "alert" for the plain alert sound.
  [[nodiscard]] const std::vector<std::string>& begun() const { return air_->begun; }

  /// Lets the playing recording of that name come to its end; false when there is none.
  bool finish(const std::string& recording) {
    for (auto* player : air_->players) {
      if (player->name != recording || !player->playing()) continue;
      player->finish();
      return true;
    }
    return false;
  }

  /// Players that are still held.
  [[nodiscard]] std::size_t players() const { return air_->players.size(); }

  // SoundService
  [[nodiscard]] std::optional<std::filesystem::path> resource(
      std::string_view name, std::string_view extension) const override {
    if (!recordings.contains(name) || extension != "mp3") return std::nullopt;
    return folder / name;
  }

  [[nodiscard]] std::shared_ptr<AudioPlayer> player(
      const std::filesystem::path& recording) const override {
    const auto name = recording.filename().string();
    if (unreadable.contains(name)) return nullptr;
    return std::make_shared<Player>(air_, name);
  }

  [[nodiscard]] std::unique_ptr<SystemSound> soundNamed(std::string_view name) const override {
    const auto found = sounds.find(name);
    if (found == sounds.end()) return nullptr;
    return std::make_unique<Sound>(air_, found->first, found->second);
  }

  void beep() override { air_->begun.emplace_back("alert"); }

 private:
  struct Player;

  struct Noise {
    const void* source;
    std::string name;
    Date until;
  };

  /// Where all sounds meet.
  struct Air {
    explicit Air(const Clock& time) : clock(time) {}

    void begin(const void* source, const std::string& name, Date until) {
      begun.push_back(name);
      noises.push_back({source, name, until});
    }

    void end(const void* source) {
      std::erase_if(noises, [source](const Noise& noise) { return noise.source == source; });
    }

    [[nodiscard]] std::vector<std::string> audible() const {
      std::vector<std::string> names;
      for (const auto& noise : noises) {
        if (noise.until > clock.now()) names.push_back(noise.name);
      }
      return names;
    }

    const Clock& clock;
    std::vector<Noise> noises;
    std::vector<std::string> begun;
    std::vector<Player*> players;
  };

  static constexpr Date kNever{std::numeric_limits<double>::infinity()};

  struct Player final : AudioPlayer {
    Player(std::shared_ptr<Air> around, std::string recording)
        : name(std::move(recording)), air(std::move(around)) {
      air->players.push_back(this);
    }
    ~Player() override {
      air->end(this);
      std::erase(air->players, this);
    }

    void setDelegate(Delegate* hears) override { delegate = hears; }
    void play() override { air->begin(this, name, kNever); }
    void stop() override { air->end(this); }

    [[nodiscard]] bool playing() const {
      return std::any_of(air->noises.begin(), air->noises.end(),
                         [this](const Noise& noise) { return noise.source == this; });
    }

    void finish() {
      air->end(this);
      if (delegate != nullptr) delegate->audioPlayerDidFinishPlaying(*this, true);
    }

    std::string name;
    std::shared_ptr<Air> air;
    Delegate* delegate = nullptr;
  };

  struct Sound final : SystemSound {
    Sound(std::shared_ptr<Air> around, std::string sound, Seconds length)
        : air(std::move(around)), name(std::move(sound)), once(length) {}
    ~Sound() override { air->end(this); }

    [[nodiscard]] Seconds duration() const override { return once; }
    void setLoops(bool loops) override { looped = loops; }
    void play() override {
      air->begin(this, looped ? name + " looped" : name, looped ? kNever : air->clock.now() + once);
    }
    void stop() override { air->end(this); }

    std::shared_ptr<Air> air;
    std::string name;
    Seconds once;
    bool looped = false;
  };

  std::shared_ptr<Air> air_;
};

}  // namespace Hilalor
