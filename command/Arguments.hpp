#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "command/CivilDates.hpp"
#include "datetime/TimeZone.hpp"
#include "platform/LocationService.hpp"
#include "rules/settings/SettingsValues.hpp"

namespace Hilalor {

/// What is asked of the command.
enum class Verb {
  title,
  day,
  next,
  month,
  convert,
  qibla,
  panel,
  settings,
  quit,
  help,
  version,
  diagnose
};

/// How it is to answer.
enum class AnswerForm { text, json, waybar };

/// A place in the stead of the user's.
struct GivenPlace : LocationCoordinate {
  TimeZone zone;
};

struct Request {
  Verb verb = Verb::help;
  AnswerForm form = AnswerForm::text;
  bool follows = false;
  std::optional<CivilDate> date{};  ///< None is today.
  std::optional<GivenPlace> place{};
  std::optional<PrayerCalculationMethod> method{};
};

/// Why there is no answer: one line for the user, without its end.
struct Complaint {
  std::string text;
};

/// The request that the words after the program's name make.
[[nodiscard]] std::variant<Request, Complaint> requestOf(std::span<const std::string_view> words);

/// The word of a verb that the running copy answers, "panel"; none for the others.
[[nodiscard]] std::optional<std::string_view> wordToRunningCopy(Verb verb);

}  // namespace Hilalor
