#include <sndfile.h>

#include <algorithm>
#include <vector>

#include "desktop/sound/module/SoundReaders.hpp"

namespace Hilalor::Desktop {
namespace {

struct Close {
  void operator()(SNDFILE* file) const { sf_close(file); }
};

class SampledReader final : public SoundReader {
 public:
  bool open(const std::filesystem::path& path) {
    file_.reset(sf_open(path.c_str(), SFM_READ, &info_));
    return file_ && info_.channels > 0 && info_.samplerate > 0;
  }

  [[nodiscard]] SoundFormat format() const override {
    return {info_.samplerate, std::min(info_.channels, 2)};
  }

  [[nodiscard]] Seconds duration() const override {
    return Seconds(static_cast<double>(info_.frames) / info_.samplerate);
  }

  [[nodiscard]] std::size_t read(std::span<float> samples) override {
    const auto channels = static_cast<std::size_t>(format().channels);
    return info_.channels > 2 ? readFirstTwo(samples)
                              : readFrames(samples.data(), samples.size() / channels);
  }

  bool rewind() override { return sf_seek(file_.get(), 0, SEEK_SET) == 0; }

  [[nodiscard]] bool isBroken() const override { return sf_error(file_.get()) != SF_ERR_NO_ERROR; }

 private:
  std::size_t readFrames(float* samples, std::size_t frames) {
    const auto read = sf_readf_float(file_.get(), samples, static_cast<sf_count_t>(frames));
    return static_cast<std::size_t>(std::max<sf_count_t>(0, read));
  }

  std::size_t readFirstTwo(std::span<float> samples) {
    const auto channels = static_cast<std::size_t>(info_.channels);
    wide_.resize(samples.size() / 2 * channels);
    const auto frames = readFrames(wide_.data(), samples.size() / 2);
    for (std::size_t frame = 0; frame < frames; ++frame) {
      samples[2 * frame] = wide_[channels * frame];
      samples[2 * frame + 1] = wide_[channels * frame + 1];
    }
    return frames;
  }

  SF_INFO info_{};
  std::unique_ptr<SNDFILE, Close> file_;
  std::vector<float> wide_;
};

}  // namespace

std::unique_ptr<SoundReader> openSampled(const std::filesystem::path& path) {
  auto reader = std::make_unique<SampledReader>();
  return reader->open(path) ? std::move(reader) : nullptr;
}

}  // namespace Hilalor::Desktop
