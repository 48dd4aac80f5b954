#pragma once

#include <functional>

#include "datetime/Date.hpp"
#include "desktop/sound/SoundOutput.hpp"

namespace Hilalor::Desktop {

/// Where there is nothing to hear a sound on: time passes as if it sounded. Gives up after two
/// seconds, so that the other outputs are tried again.
class SilentOutput final : public SoundOutput {
 public:
  /// Waits that long, or less if a stop is asked for.
  using Wait = std::function<void(Seconds, std::stop_token)>;

  SilentOutput();
  explicit SilentOutput(Wait wait);

  Outcome play(SampleSource& source, std::stop_token stop) const override;

 private:
  Wait wait_;
};

}  // namespace Hilalor::Desktop
