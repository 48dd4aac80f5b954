#include "desktop/sound/FileSound.hpp"

#include <utility>

#include "desktop/sound/SoundStream.hpp"

namespace Hilalor::Desktop {

FileSound::FileSound(std::weak_ptr<SoundStage> stage, std::filesystem::path file, Seconds duration)
    : stage_(std::move(stage)), file_(std::move(file)), duration_(duration) {}

FileSound::~FileSound() {
  stop();
}

void FileSound::play() {
  stop();
  const auto stage = stage_.lock();
  auto stream = SoundStream::open(file_, repeat_);
  if (stage && stream) playing_ = stage->play(std::move(stream));
}

void FileSound::stop() {
  playing_.request_stop();
}

}  // namespace Hilalor::Desktop
