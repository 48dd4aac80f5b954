#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>

#include "datetime/Date.hpp"

namespace Hilalor {

/// How a sound's samples lie: frames per second, and samples per frame (1 or 2, left first).
struct SoundFormat {
  int rate = 0;
  int channels = 0;
  friend bool operator==(const SoundFormat&, const SoundFormat&) = default;
};

/// Decodes one kind of sound file. May be handed from one thread to another.
class SoundReader {
 public:
  virtual ~SoundReader() = default;

  [[nodiscard]] virtual SoundFormat format() const = 0;

  /// By the file's own account; what is read may be shorter or longer.
  [[nodiscard]] virtual Seconds duration() const = 0;

  /// Fills the samples with whole frames and returns how many frames those are: fewer than there is
  /// room for only at the end, then none.
  [[nodiscard]] virtual std::size_t read(std::span<float> samples) = 0;

  /// Begins anew at the first frame; false where the file cannot.
  virtual bool rewind() = 0;

  /// Whether the end came because the rest could not be read.
  [[nodiscard]] virtual bool isBroken() const = 0;
};

/// A reader for MPEG audio; null when the file holds none.
[[nodiscard]] std::unique_ptr<SoundReader> openMpeg(const std::filesystem::path& path);

/// A reader for AIFF and the other kinds that libsndfile knows; null when the file is none of them.
/// Of more than two channels the first two are read.
[[nodiscard]] std::unique_ptr<SoundReader> openSampled(const std::filesystem::path& path);

}  // namespace Hilalor
