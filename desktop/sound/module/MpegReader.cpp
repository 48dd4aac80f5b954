#include <mpg123.h>

#include <array>

#include "desktop/sound/module/SoundReaders.hpp"

namespace Hilalor::Desktop {
namespace {

struct Delete {
  void operator()(mpg123_handle* decoder) const { mpg123_delete(decoder); }
};

// libsndfile reads MPEG too, but ends where the first frames let it expect the end: a recording of
// varying bit rate without a table of contents would break off.
class MpegReader final : public SoundReader {
 public:
  MpegReader() : decoder_(mpg123_new(nullptr, nullptr)) {}

  bool open(const std::filesystem::path& path) {
    if (!decoder_) return false;
    constexpr int kFlags = MPG123_QUIET | MPG123_FORCE_FLOAT;
    long rate = 0;
    int encoding = 0;
    if (mpg123_param(decoder_.get(), MPG123_ADD_FLAGS, kFlags, 0) != MPG123_OK ||
        mpg123_open(decoder_.get(), path.c_str()) != MPG123_OK ||
        mpg123_getformat(decoder_.get(), &rate, &format_.channels, &encoding) != MPG123_OK) {
      return false;
    }
    format_.rate = static_cast<int>(rate);
    // Recordings that were joined from several keep the format of the first.
    return mpg123_format_none(decoder_.get()) == MPG123_OK &&
           mpg123_format(decoder_.get(), rate, format_.channels, MPG123_ENC_FLOAT_32) == MPG123_OK;
  }

  [[nodiscard]] SoundFormat format() const override { return format_; }

  [[nodiscard]] Seconds duration() const override {
    const auto frames = mpg123_length(decoder_.get());
    return Seconds(frames > 0 ? static_cast<double>(frames) / format_.rate : 0.0);
  }

  [[nodiscard]] std::size_t read(std::span<float> samples) override {
    const auto channels = static_cast<std::size_t>(format_.channels);
    const auto whole = samples.first(samples.size() / channels * channels);
    std::size_t filled = 0;
    while (filled < whole.size_bytes()) {
      std::size_t decoded = 0;
      const auto rest = std::as_writable_bytes(whole).subspan(filled);
      result_ = mpg123_read(decoder_.get(), rest.data(), rest.size(), &decoded);
      filled += decoded;
      if (result_ != MPG123_OK && result_ != MPG123_NEW_FORMAT) break;
      if (decoded == 0 && result_ == MPG123_OK) break;
    }
    return filled / (channels * sizeof(float));
  }

  bool rewind() override { return mpg123_seek(decoder_.get(), 0, SEEK_SET) == 0; }

  [[nodiscard]] bool isBroken() const override {
    return result_ != MPG123_OK && result_ != MPG123_DONE;
  }

 private:
  std::unique_ptr<mpg123_handle, Delete> decoder_;
  SoundFormat format_;
  int result_ = MPG123_OK;
};

}  // namespace

std::unique_ptr<SoundReader> openMpeg(const std::filesystem::path& path) {
  auto reader = std::make_unique<MpegReader>();
  return reader->open(path) ? std::move(reader) : nullptr;
}

}  // namespace Hilalor::Desktop
