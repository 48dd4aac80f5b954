#pragma once

#include <optional>
#include <string>

#include "command/Arguments.hpp"
#include "command/Course.hpp"
#include "datetime/Moment.hpp"

namespace Hilalor {

/// What the command answers at the moment, in the form that was asked for: lines without the last
/// one's end. For title, day, next, month, convert and qibla.
[[nodiscard]] std::string answer(const Request& request, const Course& course,
                                 const Moment& moment);

/// Why there is no answer: the clocks of the zone left the day out. None where there is one. One
/// line without its end.
[[nodiscard]] std::optional<std::string> refusal(const Request& request, const Course& course,
                                                 const Moment& moment);

/// What the user must know of the answer's place; none where it is theirs. One line without its
/// end.
[[nodiscard]] std::optional<std::string> warning(const Request& request, const Course& course);

}  // namespace Hilalor
