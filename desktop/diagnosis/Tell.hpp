#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace Hilalor::Desktop {

/// Takes what was found about a subject ("window manager", "Xfwm4"): a line of a report that users
/// send. Nothing in it may say who or where they are, or what they wrote.
using Tell = std::function<void(std::string_view subject, const std::string& found)>;

}  // namespace Hilalor::Desktop
