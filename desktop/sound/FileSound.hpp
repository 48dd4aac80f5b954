#pragma once

#include <filesystem>
#include <memory>
#include <stop_token>

#include "desktop/sound/SoundStage.hpp"
#include "platform/SoundService.hpp"

namespace Hilalor::Desktop {

/// A beep in a file, which is open only while it sounds.
class FileSound final : public SystemSound {
 public:
  FileSound(std::weak_ptr<SoundStage> stage, std::filesystem::path file, Seconds duration);
  FileSound(const FileSound&) = delete;
  FileSound& operator=(const FileSound&) = delete;
  ~FileSound() override;

  [[nodiscard]] Seconds duration() const override { return duration_; }
  void setLoops(bool loops) override { repeat_ = loops ? Repeat::forever : Repeat::no; }
  void play() override;
  void stop() override;

 private:
  std::weak_ptr<SoundStage> stage_;
  std::filesystem::path file_;
  Seconds duration_;
  Repeat repeat_ = Repeat::no;
  std::stop_source playing_{std::nostopstate};
};

}  // namespace Hilalor::Desktop
