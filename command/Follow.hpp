#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "command/Arguments.hpp"
#include "command/Course.hpp"
#include "command/Wakes.hpp"
#include "platform/Clock.hpp"
#include "platform/DefaultsStore.hpp"

namespace Hilalor {

/// What a command that keeps running works with.
struct FollowContext {
  const Clock& clock;
  Wakes& wakes;
  /// The settings as they are stored by then, and what the running program tells.
  std::function<std::unique_ptr<DefaultsStore>()> openStore;
  std::function<Told()> told;
  /// Hands a line out.
  std::function<void(const std::string&)> print;
};

/// Prints the answer to a request for the title and each that follows from it, until nobody reads
/// any more. Wakes when the title changes, and once an hour for new rules of time zones; twice a
/// minute while a prayer is announced, for the program that does may be gone.
void follow(const Request& request, const FollowContext& context);

}  // namespace Hilalor
