#pragma once

#include <span>
#include <string_view>

#include "tests/golden/Checks.hpp"

namespace Golden {

/// The files of one form and how one of their rows is checked.
struct Kind {
  std::string_view name;                           ///< What the files' names begin with.
  void (*check)(const Json& row, Checks& checks);  ///< May throw on a row of another form.
};

/// Every kind that is run. To add one: write its function in a file of its own beside the others,
/// list that file in CMakeLists.txt, declare the function below and put it into the table in
/// Kinds.cpp.
[[nodiscard]] std::span<const Kind> kinds();

void checkTimes(const Json& row, Checks& checks);
void checkSolar(const Json& row, Checks& checks);
void checkHelper(const Json& row, Checks& checks);
void checkQibla(const Json& row, Checks& checks);
void checkSunnah(const Json& row, Checks& checks);
void checkSchedule(const Json& row, Checks& checks);
void checkTitle(const Json& row, Checks& checks);
void checkMonth(const Json& row, Checks& checks);
void checkHijriMonth(const Json& row, Checks& checks);
void checkEid(const Json& row, Checks& checks);

}  // namespace Golden
