#pragma once

#include <memory>
#include <optional>

#include "command/Arguments.hpp"
#include "command/LocatedPlace.hpp"
#include "platform/DefaultsStore.hpp"
#include "rules/prayer/PrayerCourse.hpp"

namespace Hilalor {

/// Where the place of an answer comes from.
enum class PlaceSource {
  given,     ///< The command's words.
  settings,  ///< The user's place, set by hand.
  located,   ///< The location service, which the running program asked.
  fallback,  ///< Riyadh: none was set or found.
};

/// The course of the prayers by the user's settings as they are stored, at the place that was
/// found, and with what the request says otherwise. The store must outlive it and may be changed in
/// memory. Main thread.
class Course {
 public:
  Course(DefaultsStore& store, const std::optional<LocatedPlace>& located, const Request& request);
  Course(const Course&) = delete;
  Course& operator=(const Course&) = delete;
  ~Course();

  [[nodiscard]] const PrayerCourse& prayers() const;
  [[nodiscard]] const AppSettings& settings() const { return prayers().settings(); }
  [[nodiscard]] PlaceSource source() const;

 private:
  struct Parts;

  std::unique_ptr<Parts> parts_;
  bool isGiven_;
};

}  // namespace Hilalor
