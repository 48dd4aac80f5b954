#include "desktop/sound/SoundModule.hpp"
#include "desktop/sound/module/AlsaOutput.hpp"
#include "desktop/sound/module/PulseOutput.hpp"
#include "desktop/sound/module/SoundReaders.hpp"

namespace Hilalor::Desktop {
namespace {

class LinkedSoundModule final : public SoundModule {
 public:
  [[nodiscard]] std::unique_ptr<SoundReader> openMpeg(
      const std::filesystem::path& file) const override {
    return Hilalor::Desktop::openMpeg(file);
  }
  [[nodiscard]] std::unique_ptr<SoundReader> openSampled(
      const std::filesystem::path& file) const override {
    return Hilalor::Desktop::openSampled(file);
  }
  [[nodiscard]] const SoundOutput& server() const override { return server_; }
  [[nodiscard]] const SoundOutput& card() const override { return card_; }

 private:
  PulseOutput server_;
  AlsaOutput card_;
};

}  // namespace
}  // namespace Hilalor::Desktop

extern "C" [[gnu::visibility("default")]] const Hilalor::Desktop::SoundModule*
HILALOR_SOUND_MODULE_FACTORY() {
  // Left for the process's end: a sound that hangs in a device may still use it.
  static const auto* const module = new Hilalor::Desktop::LinkedSoundModule;  // NOLINT: never freed
  return module;
}
