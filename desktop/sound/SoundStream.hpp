#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

#include "desktop/sound/SoundReader.hpp"

namespace Hilalor::Desktop {

enum class Repeat { no, forever };

/// The samples of a sound file as they are played: once, or over and over without a gap.
class SoundStream final : public SampleSource {
 public:
  /// Reads the beginning. Null when the file is not there or holds no sound that can be played.
  [[nodiscard]] static std::unique_ptr<SoundStream> open(const std::filesystem::path& file,
                                                         Repeat repeat);

  /// Reads nothing beforehand.
  SoundStream(std::unique_ptr<SoundReader> reader, Repeat repeat);

  [[nodiscard]] SoundFormat format() const override { return reader_->format(); }

  /// How long it plays once, by the file's own account.
  [[nodiscard]] Seconds duration() const { return reader_->duration(); }

  /// All samples are in [-1, 1].
  [[nodiscard]] std::size_t read(std::span<float> samples) override;

  /// Whether the end came because the rest could not be read.
  [[nodiscard]] bool isBroken() const { return reader_->isBroken(); }

 private:
  [[nodiscard]] bool prepare();
  [[nodiscard]] std::size_t readPrepared(std::span<float> samples);

  std::unique_ptr<SoundReader> reader_;
  Repeat repeat_;
  std::vector<float> prepared_;
  std::size_t preparedRead_ = 0;  // of its samples
};

}  // namespace Hilalor::Desktop
