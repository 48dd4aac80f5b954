#include "desktop/sound/SoundStage.hpp"

#include <utility>

namespace Hilalor {
namespace {

void playThrough(const SoundStage::Outputs& outputs, SoundStream& stream,
                 const std::stop_token& stop) {
  while (true) {
    for (const auto& output : outputs) {
      if (output->play(stream, stop) == SoundOutput::Outcome::finished) return;
    }
  }
}

}  // namespace

SoundStage::SoundStage(RunLoop& loop, Outputs outputs)
    : threads_(loop), outputs_(std::make_shared<const Outputs>(std::move(outputs))) {}

std::stop_source SoundStage::play(std::shared_ptr<SoundStream> stream, RunLoop::Task atEnd) {
  return threads_.start([stream = std::move(stream), outputs = outputs_](
                            const std::stop_token& stop) { playThrough(*outputs, *stream, stop); },
                        std::move(atEnd));
}

}  // namespace Hilalor
