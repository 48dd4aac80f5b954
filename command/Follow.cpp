#include "command/Follow.hpp"

#include <algorithm>
#include <optional>

#include "command/Answers.hpp"
#include "command/TitleChange.hpp"
#include "datetime/Moment.hpp"

namespace Hilalor {
namespace {

constexpr Seconds kLookAtAnnouncement{30};

}  // namespace

void follow(const Request& request, const FollowContext& context) {
  // JSON tells when it was written, which is always another text.
  auto compared = request;
  if (request.form == AnswerForm::json) compared.form = AnswerForm::text;
  std::optional<std::string> shown;
  bool isRead = true;
  while (isRead) {
    const auto store = context.openStore();
    const Course course(*store, context.told(), request);
    const auto moment = Moment::at(context.clock.now());
    const auto textAt = [&](Date instant) {
      return answer(compared, course, {instant, moment.zone, moment.region});
    };
    auto text = textAt(moment.now);
    if (text != shown) context.print(answer(request, course, moment));
    shown = std::move(text);
    auto wake = changeAfter(moment.now, textAt);
    if (course.announcement()) wake = std::min(wake, moment.now + kLookAtAnnouncement);
    isRead = context.wakes.sleepUntil(wake);
    TimeZone::rereadChangedRules();
  }
}

}  // namespace Hilalor
