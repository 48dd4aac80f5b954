#include "desktop/sound/SoundStream.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <string_view>
#include <utility>

#include "desktop/sound/SoundModule.hpp"

namespace Hilalor::Desktop {
namespace {

// What sound servers take.
constexpr int kLowestRate = 4000;
constexpr int kHighestRate = 192000;

// The tenth of a second that is decoded beforehand.
constexpr int kPreparedPerSecond = 10;

// An ID3 tag, or the eleven set bits that begin every MPEG audio frame.
bool looksLikeMpeg(const std::filesystem::path& file) {
  std::array<char, 3> start{};
  std::ifstream(file, std::ios::binary).read(start.data(), start.size());
  const auto bits = [&](std::size_t i) { return static_cast<unsigned char>(start[i]); };
  return std::string_view(start.data(), start.size()) == "ID3" ||
         (bits(0) == 0xFF && (bits(1) & 0xE0) == 0xE0);
}

std::unique_ptr<SoundReader> openReader(const std::filesystem::path& file) {
  const auto* module = SoundModule::loaded();
  if (module == nullptr) return nullptr;
  if (!looksLikeMpeg(file)) {
    if (auto reader = module->openSampled(file)) return reader;
  }
  return module->openMpeg(file);
}

// Files of floating-point samples may hold anything.
float audible(float sample) {
  return std::isnan(sample) ? 0.0F : std::clamp(sample, -1.0F, 1.0F);
}

}  // namespace

std::unique_ptr<SoundStream> SoundStream::open(const std::filesystem::path& file, Repeat repeat) {
  auto reader = openReader(file);
  if (!reader || reader->format().rate < kLowestRate || reader->format().rate > kHighestRate) {
    return nullptr;
  }
  auto stream = std::make_unique<SoundStream>(std::move(reader), repeat);
  return stream->prepare() ? std::move(stream) : nullptr;
}

SoundStream::SoundStream(std::unique_ptr<SoundReader> reader, Repeat repeat)
    : reader_(std::move(reader)), repeat_(repeat) {}

bool SoundStream::prepare() {
  const auto channels = static_cast<std::size_t>(format().channels);
  prepared_.resize(static_cast<std::size_t>(format().rate / kPreparedPerSecond) * channels);
  prepared_.resize(reader_->read(prepared_) * channels);
  return !prepared_.empty();
}

std::size_t SoundStream::read(std::span<float> samples) {
  const auto channels = static_cast<std::size_t>(format().channels);
  auto frames = readPrepared(samples);
  bool rewound = false;  // and nothing read since
  while ((frames + 1) * channels <= samples.size()) {
    const auto read = reader_->read(samples.subspan(frames * channels));
    frames += read;
    if (read == 0) {
      if (repeat_ == Repeat::no || rewound || !reader_->rewind()) break;
    }
    rewound = read == 0;
  }
  const auto filled = samples.first(frames * channels);
  std::transform(filled.begin(), filled.end(), filled.begin(), audible);
  return frames;
}

std::size_t SoundStream::readPrepared(std::span<float> samples) {
  const auto channels = static_cast<std::size_t>(format().channels);
  const auto count =
      std::min(samples.size() / channels * channels, prepared_.size() - preparedRead_);
  std::copy_n(prepared_.begin() + static_cast<std::ptrdiff_t>(preparedRead_), count,
              samples.begin());
  preparedRead_ += count;
  return count / channels;
}

}  // namespace Hilalor::Desktop
