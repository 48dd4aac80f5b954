#pragma once

#include <array>
#include <cstddef>

#include "Adhan/PrayerTimes.hpp"

namespace Bench {

/// How a workload goes through its places and dates.
enum class Order {
  mixed,        ///< Another place and another date at every step.
  dayAfterDay,  ///< The days of a year at one place, then at the next.
  dateByDate,   ///< Every place on one date, then on the next.
};

/// Days and places one after another, so that no branch is always the same: a leap year at places
/// from 40 degrees south to 60 north.
class Workload {
 public:
  static constexpr std::size_t kDates = 28 * 12;
  static constexpr std::size_t kSteps = kDates * 25;

  explicit Workload(Order order = Order::mixed) : order_(order) {}

  [[nodiscard]] const Adhan::Coordinates& place() const { return kPlaces[placeIndex()]; }
  [[nodiscard]] int year() const { return 2028; }
  [[nodiscard]] int month() const { return static_cast<int>(dateIndex() / 28) + 1; }
  [[nodiscard]] int day() const { return static_cast<int>(dateIndex() % 28) + 1; }
  [[nodiscard]] Adhan::DateComponents date() const {
    return {year(), month(), day(), std::nullopt, std::nullopt, std::nullopt};
  }
  void advance() { step_ = (step_ + 1) % kSteps; }

 private:
  static constexpr std::array<Adhan::Coordinates, 25> kPlaces{
      {{24.6877, 46.7219},  {1.3521, 103.8198},  {40.7128, -74.006},   {-33.8688, 151.2093},
       {59.9139, 10.7522},  {21.4225, 39.8262},  {30.0444, 31.2357},   {33.5731, -7.5898},
       {41.0082, 28.9784},  {51.5074, -0.1278},  {48.8566, 2.3522},    {52.52, 13.405},
       {35.6892, 51.389},   {24.8607, 67.0011},  {23.8103, 90.4125},   {-6.2088, 106.8456},
       {3.139, 101.6869},   {6.5244, 3.3792},    {14.7167, -17.4677},  {-1.2921, 36.8219},
       {-26.2041, 28.0473}, {43.6532, -79.3832}, {34.0522, -118.2437}, {-34.6037, -58.3816},
       {35.6762, 139.6503}}};
  static_assert(kPlaces.size() * kDates == kSteps);

  [[nodiscard]] std::size_t placeIndex() const {
    return order_ == Order::dayAfterDay ? step_ / kDates : step_ % kPlaces.size();
  }
  [[nodiscard]] std::size_t dateIndex() const {
    return order_ == Order::dateByDate ? step_ / kPlaces.size() : step_ % kDates;
  }

  Order order_;
  std::size_t step_ = 0;
};

}  // namespace Bench
