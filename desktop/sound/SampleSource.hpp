#pragma once

#include <cstddef>
#include <span>

namespace Hilalor::Desktop {

/// How a sound's samples lie: frames per second, and samples per frame (1 or 2, left first).
struct SoundFormat {
  int rate = 0;
  int channels = 0;
  friend bool operator==(const SoundFormat&, const SoundFormat&) = default;
};

/// Where the samples of a sound come from. May be handed from one thread to another.
class SampleSource {
 public:
  virtual ~SampleSource() = default;

  [[nodiscard]] virtual SoundFormat format() const = 0;

  /// Fills the samples with whole frames and returns how many frames those are: fewer than there is
  /// room for only at the end, then none.
  [[nodiscard]] virtual std::size_t read(std::span<float> samples) = 0;
};

}  // namespace Hilalor::Desktop
