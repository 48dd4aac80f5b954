#pragma once

#include "desktop/sound/SoundOutput.hpp"

namespace Hilalor::Desktop {

/// The sound card by ALSA's default device, for machines without a sound server. The card is held
/// only while something plays.
class AlsaOutput final : public SoundOutput {
 public:
  Outcome play(SampleSource& source, std::stop_token stop) const override;
};

}  // namespace Hilalor::Desktop
