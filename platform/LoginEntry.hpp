#pragma once

namespace Hilalor {

/// Whether the desktop starts the program when the user logs in. Main thread.
class LoginEntry {
 public:
  virtual ~LoginEntry() = default;

  /// As the desktop has it now, whoever changed it.
  [[nodiscard]] virtual bool isOn() const = 0;

  /// Where this cannot be changed it stays as it is.
  virtual void setOn(bool on) = 0;
};

}  // namespace Hilalor
