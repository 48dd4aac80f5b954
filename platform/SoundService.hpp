#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>

#include "datetime/Date.hpp"

namespace Hilalor {

/// Plays one recording once. Main thread, but may be made on another. A player that is dropped
/// falls silent.
class AudioPlayer {
 public:
  /// Hears that a recording was played to its end, on the main thread and never from inside `play`
  /// or `stop`. It may drop the player there and then.
  class Delegate {
   public:
    virtual ~Delegate() = default;

    /// The player has no more to play. Not told of a player that was stopped or dropped. The flag
    /// is false where the rest of the recording could not be read.
    virtual void audioPlayerDidFinishPlaying(AudioPlayer& player, bool successfully) = 0;
  };

  virtual ~AudioPlayer() = default;

  /// Null for none; the delegate must outlive the player or be taken back.
  virtual void setDelegate(Delegate* delegate) = 0;

  virtual void play() = 0;
  virtual void stop() = 0;
};

/// A short sound of the desktop. One that is dropped falls silent. Main thread.
class SystemSound {
 public:
  virtual ~SystemSound() = default;

  /// How long it sounds when it is played once.
  [[nodiscard]] virtual Seconds duration() const = 0;

  /// Whether it is to begin anew at its end, until it is stopped. Said before it is played.
  virtual void setLoops(bool loops) = 0;

  virtual void play() = 0;
  virtual void stop() = 0;
};

/// The sounds of the desktop. Where there is nothing to play them on, they take as long in silence.
/// Main thread, but for `player`.
class SoundService {
 public:
  virtual ~SoundService() = default;

  /// The file of that name and extension ("athan", "mp3") among the program's resources and the
  /// user's own sounds, which go first; none when there is none.
  [[nodiscard]] virtual std::optional<std::filesystem::path> resource(
      std::string_view name, std::string_view extension) const = 0;

  /// A player of the recording, which has read its beginning and so sounds as soon as it is played;
  /// null when the file is not there or holds nothing that can be played. Any thread.
  [[nodiscard]] virtual std::shared_ptr<AudioPlayer> player(
      const std::filesystem::path& recording) const = 0;

  /// The sound of that name ("Glass"); null when there is none.
  [[nodiscard]] virtual std::unique_ptr<SystemSound> soundNamed(std::string_view name) const = 0;

  /// Plays the plain alert sound.
  virtual void beep() = 0;
};

}  // namespace Hilalor
