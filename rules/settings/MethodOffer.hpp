#pragma once

#include <optional>
#include <string>

#include "platform/Geocoder.hpp"
#include "platform/Lifetime.hpp"
#include "platform/Published.hpp"
#include "platform/Signal.hpp"
#include "rules/settings/AppSettings.hpp"

namespace Hilalor {

/// Offers the method that is usual in the country of the user's place, where theirs is another. Who
/// chooses a method there, the usual one or not, is not asked again until they are in another
/// country. Main thread.
class MethodOffer {
 public:
  MethodOffer(AppSettings& settings, Geocoder& geocoder);

  /// Told before the country is another.
  Signal<> willChange;

  /// Finds out in which country the user's place is; for whenever that may be another.
  void lookAtPlace();

  struct Offer {
    std::string country;
    PrayerCalculationMethod method;
    friend bool operator==(const Offer&, const Offer&) = default;
  };
  /// None where there is nothing to offer.
  [[nodiscard]] std::optional<Offer> offer() const;

  /// The user takes the offer.
  void use();

 private:
  AppSettings& settings_;
  Geocoder& geocoder_;
  std::optional<LocationCoordinate> place_;
  Published<std::string> country_{"", &willChange};  // Empty while it is not known.
  Subscription chosen_;
  Lifetime lifetime_;
};

}  // namespace Hilalor
