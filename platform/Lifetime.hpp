#pragma once

#include <memory>
#include <utility>

namespace Hilalor {

/// A member that lets late tasks know that their object has gone. Tasks are run on the object's
/// thread; they may be made and dropped on any.
class Lifetime {
 public:
  Lifetime() = default;
  Lifetime(const Lifetime&) = delete;
  Lifetime& operator=(const Lifetime&) = delete;

  /// The task, which does nothing once the object has gone.
  template <typename Task>
  [[nodiscard]] auto whileAlive(Task task) const {
    return [weak = std::weak_ptr(alive_), task = std::move(task)](auto&&... values) {
      if (!weak.expired()) task(std::forward<decltype(values)>(values)...);
    };
  }

  /// As if the object had gone.
  void end() { alive_.reset(); }

 private:
  struct Alive {};
  std::shared_ptr<const Alive> alive_ = std::make_shared<const Alive>();
};

}  // namespace Hilalor
