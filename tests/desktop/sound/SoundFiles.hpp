#pragma once

#include <sndfile.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace Hilalor::Desktop {

constexpr int kTestRate = 8000;

/// Writes the samples to a file of that kind of libsndfile's.
inline void writeSound(const std::filesystem::path& path, int kind, int channels,
                       const std::vector<float>& samples, int rate = kTestRate) {
  SF_INFO info{};
  info.samplerate = rate;
  info.channels = channels;
  info.format = kind;
  auto* file = sf_open(path.c_str(), SFM_WRITE, &info);
  sf_write_float(file, samples.data(), static_cast<sf_count_t>(samples.size()));
  sf_close(file);
}

constexpr int kAiff = SF_FORMAT_AIFF | SF_FORMAT_PCM_16;
constexpr int kFloatAiff = SF_FORMAT_AIFF | SF_FORMAT_FLOAT;
constexpr int kMp3 = SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III;

/// A rising line from 0 to just below 1: every sample tells where it stands.
inline std::vector<float> ramp(std::size_t count) {
  std::vector<float> samples(count);
  for (std::size_t i = 0; i < count; ++i)
    samples[i] = static_cast<float>(i) / static_cast<float>(count);
  return samples;
}

inline std::string contentOf(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

inline void writeFile(const std::filesystem::path& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

}  // namespace Hilalor::Desktop
