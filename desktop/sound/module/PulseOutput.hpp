#pragma once

#include "desktop/sound/SoundOutput.hpp"

namespace Hilalor::Desktop {

/// The user's sound server, PulseAudio or PipeWire. Connected only while something plays; without
/// a thread of its own.
class PulseOutput final : public SoundOutput {
 public:
  Outcome play(SampleSource& source, std::stop_token stop) const override;
};

}  // namespace Hilalor::Desktop
