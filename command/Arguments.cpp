#include "command/Arguments.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace Hilalor {
namespace {

enum class Takes { nothing, day, month, neededDay };

struct VerbEntry {
  std::string_view word;
  Verb verb;
  Takes takes = Takes::nothing;
};

constexpr std::array<VerbEntry, 14> kVerbs{{
    {"title", Verb::title},
    {"day", Verb::day, Takes::day},
    {"next", Verb::next},
    {"month", Verb::month, Takes::month},
    {"convert", Verb::convert, Takes::neededDay},
    {"qibla", Verb::qibla},
    {"panel", Verb::panel},
    {"settings", Verb::settings},
    {"quit", Verb::quit},
    {"--help", Verb::help},
    {"-h", Verb::help},
    {"--version", Verb::version},
    {"--diagnose", Verb::diagnose},
    {"help", Verb::help},
}};

std::string quoted(std::string_view word) {
  return std::string("\"").append(word).append("\"");
}

std::optional<double> degrees(std::string_view text) {
  double value = 0;
  const char* end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, value);
  if (text.empty() || read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return value;
}

std::optional<LocationCoordinate> coordinate(std::string_view text) {
  const auto comma = text.find(',');
  if (comma == std::string_view::npos) return std::nullopt;
  const auto latitude = degrees(text.substr(0, comma));
  const auto longitude = degrees(text.substr(comma + 1));
  if (!latitude || !longitude) return std::nullopt;
  const LocationCoordinate place{*latitude, *longitude};
  return isOnGlobe(place) ? std::optional(place) : std::nullopt;
}

/// Takes the words one by one into a request.
class Reader {
 public:
  explicit Reader(std::span<const std::string_view> words) : words_(words) {}

  std::variant<Request, Complaint> request() {
    if (!readVerb() || !readWords() || !checkWhole()) return Complaint{complaint_};
    return request_;
  }

 private:
  bool complain(std::string text) {
    complaint_ = std::move(text);
    return false;
  }

  std::optional<std::string_view> taken() {
    if (words_.empty()) return std::nullopt;
    const auto word = words_.front();
    words_ = words_.subspan(1);
    return word;
  }

  bool readVerb() {
    const auto word = taken().value_or("--help");
    const auto* found = std::find_if(kVerbs.begin(), kVerbs.end(),
                                     [&](const VerbEntry& entry) { return entry.word == word; });
    if (found == kVerbs.end()) {
      return complain("unknown command " + quoted(word) + "; \"hilalor --help\" lists them");
    }
    entry_ = *found;
    request_.verb = found->verb;
    return true;
  }

  bool readWords() {
    while (const auto word = taken()) {
      if (!(word->starts_with("--") ? readOption(*word) : readDate(*word))) return false;
    }
    return true;
  }

  bool readOption(std::string_view word) {
    const bool isTitle = request_.verb == Verb::title;
    if (word == "--json") return setForm(AnswerForm::json);
    if (word == "--waybar" && (isTitle || request_.verb == Verb::next)) {
      return setForm(AnswerForm::waybar);
    }
    if (word == "--follow" && isTitle) return request_.follows = true;
    if (word == "--place") return readPlace();
    if (word == "--zone") return readZone();
    if (word == "--method") return readMethod();
    return complain(std::string(entry_.word) + " does not take " + quoted(word));
  }

  bool setForm(AnswerForm form) {
    if (request_.form != AnswerForm::text) return complain("choose one of --json and --waybar");
    request_.form = form;
    return true;
  }

  bool readPlace() {
    const auto word = taken().value_or("");
    place_ = coordinate(word);
    if (!place_) return complain("--place takes LAT,LON in degrees, not " + quoted(word));
    // In the store these two stand for a place that was never set; it is a hair beside it.
    if (*place_ == LocationCoordinate{}) place_->latitude = 1e-9;
    return true;
  }

  bool readZone() {
    const auto word = taken().value_or("");
    zone_ = TimeZone::named(word);
    if (zone_) return true;
    return complain("--zone takes a time zone like \"Asia/Riyadh\", not " + quoted(word));
  }

  bool readMethod() {
    const auto word = taken().value_or("");
    request_.method = fromRawValue<PrayerCalculationMethod>(word);
    if (request_.method) return true;
    std::string names;
    for (const auto method : allCases<PrayerCalculationMethod>())
      names.append(" ").append(rawValue(method));
    return complain("unknown method " + quoted(word) + "; there are:" + names);
  }

  bool readDate(std::string_view word) {
    if (entry_.takes == Takes::nothing || request_.date) {
      return complain(std::string(entry_.word) + " does not take " + quoted(word));
    }
    auto calendar = CalendarIdentifier::gregorian;
    if (word == "hijri") {
      calendar = CalendarIdentifier::islamicUmmAlQura;
      word = taken().value_or("");
    }
    const bool isMonth = entry_.takes == Takes::month;
    request_.date = civilDate(word, calendar);
    const bool isRight = request_.date && request_.date->day.has_value() != isMonth;
    if (isRight && noonOf(*request_.date, *TimeZone::named("UTC"))) return true;
    return complain(quoted(word) + (isMonth ? " is no month; write YYYY-MM or hijri YYYY-MM"
                                            : " is no day; write YYYY-MM-DD or hijri YYYY-MM-DD"));
  }

  bool checkWhole() {
    if (entry_.takes == Takes::neededDay && !request_.date) {
      return complain(std::string(entry_.word) + " needs a date: YYYY-MM-DD or hijri YYYY-MM-DD");
    }
    // Times by another place's clocks would be hours off.
    if (place_.has_value() != zone_.has_value())
      return complain("--place and --zone need each other");
    if (place_) request_.place = GivenPlace{{*place_}, *zone_};
    return true;
  }

  std::span<const std::string_view> words_;
  VerbEntry entry_ = kVerbs.front();
  Request request_;
  std::optional<LocationCoordinate> place_;
  std::optional<TimeZone> zone_;
  std::string complaint_;
};

}  // namespace

std::variant<Request, Complaint> requestOf(std::span<const std::string_view> words) {
  return Reader(words).request();
}

std::optional<std::string_view> wordToRunningCopy(Verb verb) {
  for (const auto& entry : kVerbs) {
    const bool isSent = verb == Verb::panel || verb == Verb::settings || verb == Verb::quit;
    if (isSent && entry.verb == verb) return entry.word;
  }
  return std::nullopt;
}

}  // namespace Hilalor
