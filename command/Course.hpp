#pragma once

#include <memory>
#include <optional>
#include <string>

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

/// What the running program tells commands; each may be missing.
struct Told {
  std::optional<LocatedPlace> place;        ///< That it found.
  std::optional<std::string> announcement;  ///< In progress, "Fajr Athan".
};

/// The course of the prayers by the user's settings as they are stored, at the place that was
/// found, and with what the request says otherwise. The store must outlive it and may be changed in
/// memory. Main thread.
class Course {
 public:
  Course(DefaultsStore& store, const Told& told, const Request& request);
  Course(const Course&) = delete;
  Course& operator=(const Course&) = delete;
  ~Course();

  [[nodiscard]] const PrayerCourse& prayers() const;
  [[nodiscard]] const AppSettings& settings() const { return prayers().settings(); }
  [[nodiscard]] PlaceSource source() const;
  /// The announcement in progress; none for another place or method than the item's.
  [[nodiscard]] const std::optional<std::string>& announcement() const { return announcement_; }

 private:
  struct Parts;

  std::unique_ptr<Parts> parts_;
  bool isGiven_;
  std::optional<std::string> announcement_;
};

}  // namespace Hilalor
