#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "desktop/sound/SoundStage.hpp"
#include "platform/RunLoop.hpp"
#include "platform/SoundService.hpp"

namespace Hilalor::Desktop {

/// Sounds from files: MP3 recordings, AIFF beeps. No file, device or thread is held while nothing
/// plays.
class LinuxSoundService final : public SoundService {
 public:
  /// The sound server, else the sound card, else silence.
  [[nodiscard]] static SoundStage::Outputs defaultOutputs();

  /// Of files of the same name the one in the earlier folder is taken.
  LinuxSoundService(RunLoop& loop, std::vector<std::filesystem::path> folders,
                    SoundStage::Outputs outputs = defaultOutputs());
  ~LinuxSoundService() override;

  [[nodiscard]] std::optional<std::filesystem::path> resource(
      std::string_view name, std::string_view extension) const override;
  [[nodiscard]] std::shared_ptr<AudioPlayer> player(
      const std::filesystem::path& recording) const override;
  [[nodiscard]] std::unique_ptr<SystemSound> soundNamed(std::string_view name) const override;
  void beep() override;

 private:
  std::vector<std::filesystem::path> folders_;
  std::shared_ptr<SoundStage> stage_;
  std::unique_ptr<SystemSound> alert_;
};

}  // namespace Hilalor::Desktop
