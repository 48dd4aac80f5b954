#include "desktop/diagnosis/FilesDiagnosis.hpp"

#include <algorithm>
#include <array>
#include <filesystem>

#include "desktop/geodata/MapDatabase.hpp"
#include "desktop/geodata/PlaceDatabase.hpp"
#include "desktop/geodata/ZoneDatabase.hpp"
#include "desktop/process/Resources.hpp"
#include "desktop/session/AutostartEntry.hpp"
#include "desktop/sound/SoundModule.hpp"
#include "desktop/store/UserFolders.hpp"

namespace Hilalor::Desktop {
namespace {

namespace files = std::filesystem;

const char* soundness(bool isSound) {
  return isSound ? "readable" : "missing or damaged";
}

bool isReadable(const files::path& file) {
  const auto* module = SoundModule::loaded();
  std::error_code error;
  // A pipe would be waited for.
  if (module == nullptr || !files::is_regular_file(file, error)) return false;
  return module->openMpeg(file) != nullptr || module->openSampled(file) != nullptr;
}

// How many sounds the folder has, without their names, which are the user's.
std::string soundsIn(const files::path& folder) {
  int readable = 0;
  int unreadable = 0;
  std::error_code error;
  for (files::directory_iterator at(folder, error), end; at != end; at.increment(error))
    ++(isReadable(at->path()) ? readable : unreadable);
  return std::to_string(readable) + " readable, " + std::to_string(unreadable) + " not";
}

class Silence final : public SampleSource {
 public:
  [[nodiscard]] SoundFormat format() const override { return {kRate, 1}; }

  [[nodiscard]] std::size_t read(std::span<float> samples) override {
    const auto given = std::min(samples.size(), left_);
    std::fill_n(samples.begin(), given, 0.0F);
    left_ -= given;
    return given;
  }

 private:
  static constexpr int kRate = 48000;
  std::size_t left_ = kRate / 10;
};

const char* outcomeOn(const SoundOutput& output) {
  Silence silence;
  switch (output.play(silence, {})) {
    case SoundOutput::Outcome::finished:
      return "takes sound";
    case SoundOutput::Outcome::unanswered:
      return "there, but does not answer";
    case SoundOutput::Outcome::lost:
      break;
  }
  return "none";
}

}  // namespace

void diagnoseFiles(const Tell& tell) {
  const auto folder = resourceFolder();
  const auto data = folder / "geodata";
  tell("program's data", folder.empty() ? "missing" : folder.string());
  tell("places", soundness(PlaceDatabase::open(data / "places/places.bin").has_value()));
  tell("zones of places", soundness(ZoneDatabase::open(data / "zones/zones.bin").has_value()));
  tell("map", soundness(MapDatabase::open(data / "map/map.bin").has_value()));
  const AutostartEntry entry(userConfigFolder() / "autostart", systemAutostartFolders(),
                             startedProgram());
  tell("starts at log-in", entry.isOn() ? "yes" : "no");
}

void diagnoseSound(const Tell& tell) {
  const auto* module = SoundModule::loaded();
  tell("sound module", module != nullptr ? "loaded" : "cannot be loaded");
  if (module == nullptr) return;
  tell("program's sounds", soundsIn(resourceFolder() / "sounds"));
  tell("own sounds", soundsIn(userDataFolder() / "hilalor/sounds"));
  const std::string server = outcomeOn(module->server());
  tell("sound server", server);
  if (server == "none") tell("sound card", outcomeOn(module->card()));
}

}  // namespace Hilalor::Desktop
