#include "desktop/sound/FilePlayer.hpp"

#include <utility>

namespace Hilalor::Desktop {

FilePlayer::FilePlayer(std::weak_ptr<SoundStage> stage, std::shared_ptr<SoundStream> recording)
    : stage_(std::move(stage)), recording_(std::move(recording)) {}

FilePlayer::~FilePlayer() {
  playing_.request_stop();
}

void FilePlayer::play() {
  const auto stage = stage_.lock();
  const auto stream = std::exchange(recording_, nullptr);
  if (!stage || !stream) return;
  playing_ =
      stage->play(stream, lifetime_.whileAlive([this, stream] { finish(!stream->isBroken()); }));
}

void FilePlayer::stop() {
  playing_.request_stop();
  lifetime_.end();
}

void FilePlayer::finish(bool successfully) {
  if (delegate_ != nullptr) delegate_->audioPlayerDidFinishPlaying(*this, successfully);
}

}  // namespace Hilalor::Desktop
