#pragma once

#include <filesystem>
#include <vector>

#include "datetime/Date.hpp"

namespace Hilalor {

/// What a command that keeps running waits for.
class Wakes {
 public:
  virtual ~Wakes() = default;

  /// Sleeps until the instant, or until settings or clock may have changed. False when nobody reads
  /// any more.
  [[nodiscard]] virtual bool sleepUntil(Date instant) = 0;
};

/// By the kernel: one sleep for the machine's clock, which may be set meanwhile, the folders
/// of what is stored, the machine's time zone, and the reader of the standard output.
class KernelWakes final : public Wakes {
 public:
  /// The folders need not exist yet.
  explicit KernelWakes(std::vector<std::filesystem::path> folders);
  KernelWakes(const KernelWakes&) = delete;
  KernelWakes& operator=(const KernelWakes&) = delete;
  ~KernelWakes() override;

  // Wakes
  [[nodiscard]] bool sleepUntil(Date instant) override;

 private:
  void watchFolders() const;

  std::vector<std::filesystem::path> folders_;
  int timer_;
  int changes_;
};

}  // namespace Hilalor
