#pragma once

#include <memory>
#include <stop_token>

#include "desktop/sound/SoundStage.hpp"
#include "desktop/sound/SoundStream.hpp"
#include "platform/Lifetime.hpp"
#include "platform/SoundService.hpp"

namespace Hilalor::Desktop {

/// Plays a recording once.
class FilePlayer final : public AudioPlayer {
 public:
  FilePlayer(std::weak_ptr<SoundStage> stage, std::shared_ptr<SoundStream> recording);
  FilePlayer(const FilePlayer&) = delete;
  FilePlayer& operator=(const FilePlayer&) = delete;
  ~FilePlayer() override;

  void setDelegate(Delegate* delegate) override { delegate_ = delegate; }
  void play() override;
  void stop() override;

 private:
  void finish(bool successfully);

  std::weak_ptr<SoundStage> stage_;
  std::shared_ptr<SoundStream> recording_;  // null once it was played
  Delegate* delegate_ = nullptr;
  std::stop_source playing_{std::nostopstate};
  Lifetime lifetime_;  // Of the wish to hear of the recording's end.
};

}  // namespace Hilalor::Desktop
