#pragma once

#include "datetime/Date.hpp"
#include "desktop/sound/SampleSource.hpp"

namespace Hilalor::Desktop {

/// Decodes one kind of sound file.
class SoundReader : public SampleSource {
 public:
  /// By the file's own account; what is read may be shorter or longer.
  [[nodiscard]] virtual Seconds duration() const = 0;

  /// Begins anew at the first frame; false where the file cannot.
  virtual bool rewind() = 0;

  /// Whether the end came because the rest could not be read.
  [[nodiscard]] virtual bool isBroken() const = 0;
};

}  // namespace Hilalor::Desktop
