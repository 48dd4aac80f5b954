#include "desktop/sound/SoundModule.hpp"
#include "desktop/sound/module/AlsaOutput.hpp"
#include "desktop/sound/module/PulseOutput.hpp"
#include "desktop/sound/module/SoundReaders.hpp"

namespace Hilalor {
namespace {

class LinkedSoundModule final : public SoundModule {
 public:
  [[nodiscard]] std::unique_ptr<SoundReader> openMpeg(
      const std::filesystem::path& file) const override {
    return Hilalor::openMpeg(file);
  }
  [[nodiscard]] std::unique_ptr<SoundReader> openSampled(
      const std::filesystem::path& file) const override {
    return Hilalor::openSampled(file);
  }
  [[nodiscard]] const SoundOutput& server() const override { return server_; }
  [[nodiscard]] const SoundOutput& card() const override { return card_; }

 private:
  PulseOutput server_;
  AlsaOutput card_;
};

}  // namespace
}  // namespace Hilalor

extern "C" [[gnu::visibility("default")]] const Hilalor::SoundModule*
HILALOR_SOUND_MODULE_FACTORY() {
  // Left for the process's end: a sound that hangs in a device may still use it.
  static const auto* const module = new Hilalor::LinkedSoundModule;  // NOLINT: never freed
  return module;
}
