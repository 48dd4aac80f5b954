#pragma once

#include <stop_token>

#include "desktop/sound/SampleSource.hpp"

namespace Hilalor::Desktop {

/// Something that sound can be sent to.
class SoundOutput {
 public:
  enum class Outcome {
    finished,    ///< The last sample was heard, or a stop was asked for.
    lost,        ///< There is no such output, or it went away; the source stands where it was left.
    unanswered,  ///< As `lost`, of an output that is there and let seconds pass without an answer.
  };

  virtual ~SoundOutput() = default;

  /// Plays the rest of the source and returns when it is over. A stop is heard within a tenth of a
  /// second. Holds a device only in here. Any thread, and several at once.
  virtual Outcome play(SampleSource& source, std::stop_token stop) const = 0;
};

}  // namespace Hilalor::Desktop
