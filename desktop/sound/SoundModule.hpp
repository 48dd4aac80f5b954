#pragma once

#include <filesystem>
#include <memory>

#include "desktop/sound/SoundOutput.hpp"
#include "desktop/sound/SoundReader.hpp"

namespace Hilalor::Desktop {

/// All that needs the libraries of sound: decoders, the sound server, the sound card. They are some
/// twenty shared objects and take 1.6 MB, which a program that sounds five times a day need not
/// hold all day. So they are linked into a module. The first sound loads it, and it stays.
class SoundModule {
 public:
  /// Loads the module when it is asked for first: `hilalor/hilalor-sound.so` in the folder of
  /// libraries, found from the running program's own place, or else the build tree's. Null where it
  /// cannot be loaded, or is of another build; then there is no sound that could be read, and the
  /// next sound tries again. Any thread.
  [[nodiscard]] static const SoundModule* loaded();

  virtual ~SoundModule() = default;

  /// A reader for MPEG audio; null when the file holds none.
  [[nodiscard]] virtual std::unique_ptr<SoundReader> openMpeg(
      const std::filesystem::path& file) const = 0;

  /// A reader for AIFF and the other kinds that libsndfile knows; null when the file is none of
  /// them. Of more than two channels the first two are read.
  [[nodiscard]] virtual std::unique_ptr<SoundReader> openSampled(
      const std::filesystem::path& file) const = 0;

  /// The user's sound server.
  [[nodiscard]] virtual const SoundOutput& server() const = 0;

  /// The sound card.
  [[nodiscard]] virtual const SoundOutput& card() const = 0;
};

/// What the module exports, under a name that ends in a digest of these interfaces: a program that
/// ran on while its files were replaced does not take a module that it would misunderstand. The
/// module is never destroyed.
using SoundModuleFactory = const SoundModule*();

}  // namespace Hilalor::Desktop
