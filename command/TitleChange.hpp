#pragma once

#include <functional>
#include <string>

#include "datetime/Date.hpp"

namespace Hilalor {

/// The first instant after `now` at which the text is another, and a few milliseconds; an hour
/// later where it is the same until then. A text may not be back within the minute in which it
/// went.
[[nodiscard]] Date changeAfter(Date now, const std::function<std::string(Date)>& textAt);

}  // namespace Hilalor
