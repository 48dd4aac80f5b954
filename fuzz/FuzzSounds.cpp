// Sound files of any content, plain or dressed up as AIFF or MPEG so that their readers look
// inside.

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "desktop/sound/SoundStream.hpp"

namespace {

/// A file in memory with the given content, open for as long as it lives.
class MemoryFile {
 public:
  explicit MemoryFile(const std::string& content) : descriptor_(memfd_create("sound", 0)) {
    const auto written = write(descriptor_, content.data(), content.size());
    if (written != static_cast<ssize_t>(content.size())) abort();
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile() { close(descriptor_); }

  [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

std::string bigEndian(std::size_t number) {
  std::string bytes;
  for (const unsigned shift : {24U, 16U, 8U, 0U})
    bytes.push_back(static_cast<char>(number >> shift & 0xFFU));
  return bytes;
}

std::string chunk(const std::string& name, const std::string& content) {
  return name + bigEndian(content.size()) + content;
}

/// Frames of 128 kbit/s at 44.1 kHz, with the given bytes behind their headers.
std::string mpegFrames(const std::string& bytes) {
  constexpr std::size_t kBodyLength = 413;
  std::string frames;
  for (std::size_t start = 0; start < bytes.size(); start += kBodyLength) {
    auto body = bytes.substr(start, kBodyLength);
    body.resize(kBodyLength);
    frames += "\xff\xfb\x90\x64" + body;
  }
  return frames;
}

std::string fileOf(std::uint8_t kind, const std::string& bytes) {
  constexpr std::size_t kFormatLength = 18;
  switch (kind % 4) {
    case 1:
      return chunk("FORM", "AIFF" + bytes);
    case 2:
      return bytes.size() < kFormatLength
                 ? bytes
                 : chunk("FORM", "AIFF" + chunk("COMM", bytes.substr(0, kFormatLength)) +
                                     chunk("SSND", bytes.substr(kFormatLength)));
    case 3:
      return mpegFrames(bytes);
    default:
      return bytes;
  }
}

/// Plays up to ten seconds and checks that every sample may be sent to a loudspeaker.
void play(const std::string& path, Hilalor::Desktop::Repeat repeat) {
  const auto stream = Hilalor::Desktop::SoundStream::open(path, repeat);
  if (!stream) return;
  const auto channels = static_cast<std::size_t>(stream->format().channels);
  std::vector<float> second(static_cast<std::size_t>(stream->format().rate) * channels);
  for (int i = 0; i < 10; ++i) {
    const auto frames = stream->read(second);
    for (std::size_t sample = 0; sample < frames * channels; ++sample) {
      if (!(second[sample] >= -1 && second[sample] <= 1)) abort();
    }
    if (frames == 0) break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const MemoryFile file(fileOf(data[0], std::string(data + 1, data + size)));
  play(file.path(), Hilalor::Desktop::Repeat::no);
  play(file.path(), Hilalor::Desktop::Repeat::forever);
  return 0;
}
