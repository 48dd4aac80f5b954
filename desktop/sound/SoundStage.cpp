#include "desktop/sound/SoundStage.hpp"

#include <iterator>
#include <utility>

namespace Hilalor::Desktop {
namespace {

void playThrough(const SoundStage::Outputs& outputs, SoundStream& stream,
                 const std::stop_token& stop) {
  using Outcome = SoundOutput::Outcome;
  std::vector<const SoundOutput*> promising;
  for (const auto& output : outputs)
    promising.push_back(output.get());
  while (!promising.empty()) {
    for (auto output = promising.begin(); output != promising.end();) {
      const auto outcome = (*output)->play(stream, stop);
      if (outcome == Outcome::finished) return;
      // Asked again and again, one that hangs would make the recording last twice as long.
      output = outcome == Outcome::unanswered ? promising.erase(output) : std::next(output);
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

}  // namespace Hilalor::Desktop
