#include "desktop/sound/LinuxSoundService.hpp"

#include <algorithm>
#include <string>
#include <utility>

#include "desktop/sound/FilePlayer.hpp"
#include "desktop/sound/FileSound.hpp"
#include "desktop/sound/SilentOutput.hpp"
#include "desktop/sound/SoundModule.hpp"
#include "desktop/sound/SoundStream.hpp"

namespace Hilalor::Desktop {
namespace {

constexpr std::string_view kBeepExtension = "aiff";
constexpr std::string_view kAlertName = "Alert";

/// Whether the text is that extension, in letters of either case.
bool isExtension(std::string_view text, std::string_view extension) {
  return std::equal(text.begin(), text.end(), extension.begin(), extension.end(),
                    [](char one, char other) {
                      return (one >= 'A' && one <= 'Z' ? one - 'A' + 'a' : one) == other;
                    });
}

std::optional<std::filesystem::path> fileIn(const std::filesystem::path& folder,
                                            std::string_view name, std::string_view extension) {
  const auto dotted = std::string(".").append(extension);
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const auto& path = entry->path();
    std::error_code unreadable;
    if (path.stem() == name && isExtension(path.extension().native(), dotted) &&
        entry->is_regular_file(unreadable)) {
      return path;
    }
  }
  return std::nullopt;
}

/// An output of the module, which is loaded only when something plays.
class ModuleOutput final : public SoundOutput {
 public:
  using Which = const SoundOutput& (SoundModule::*)() const;
  explicit ModuleOutput(Which which) : which_(which) {}

  Outcome play(SampleSource& source, std::stop_token stop) const override {
    const auto* module = SoundModule::loaded();
    return module == nullptr ? Outcome::lost : (module->*which_)().play(source, std::move(stop));
  }

 private:
  Which which_;
};

}  // namespace

SoundStage::Outputs LinuxSoundService::defaultOutputs() {
  SoundStage::Outputs outputs;
  outputs.push_back(std::make_unique<ModuleOutput>(&SoundModule::server));
  outputs.push_back(std::make_unique<ModuleOutput>(&SoundModule::card));
  outputs.push_back(std::make_unique<SilentOutput>());
  return outputs;
}

LinuxSoundService::LinuxSoundService(RunLoop& loop, std::vector<std::filesystem::path> folders,
                                     SoundStage::Outputs outputs)
    : folders_(std::move(folders)),
      stage_(std::make_shared<SoundStage>(loop, std::move(outputs))) {}

LinuxSoundService::~LinuxSoundService() = default;

std::optional<std::filesystem::path> LinuxSoundService::resource(std::string_view name,
                                                                 std::string_view extension) const {
  for (const auto& folder : folders_) {
    if (auto file = fileIn(folder, name, extension)) return file;
  }
  return std::nullopt;
}

std::shared_ptr<AudioPlayer> LinuxSoundService::player(
    const std::filesystem::path& recording) const {
  auto stream = SoundStream::open(recording, Repeat::no);
  return stream ? std::make_shared<FilePlayer>(stage_, std::move(stream)) : nullptr;
}

std::unique_ptr<SystemSound> LinuxSoundService::soundNamed(std::string_view name) const {
  const auto file = resource(name, kBeepExtension);
  if (!file) return nullptr;
  const auto stream = SoundStream::open(*file, Repeat::no);
  return stream ? std::make_unique<FileSound>(stage_, *file, stream->duration()) : nullptr;
}

void LinuxSoundService::beep() {
  alert_ = soundNamed(kAlertName);
  if (alert_) alert_->play();
}

}  // namespace Hilalor::Desktop
