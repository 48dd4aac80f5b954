#include "rules/settings/MethodOffer.hpp"

#include <utility>

#include "rules/settings/UsualMethods.hpp"

namespace Hilalor {

MethodOffer::MethodOffer(AppSettings& settings, Geocoder& geocoder)
    : settings_(settings),
      geocoder_(geocoder),
      chosen_(settings.calculationMethod.publisher().subscribe([this](auto) {
        if (usualMethod(country_.value())) settings_.methodCountry = country_.value();
      })) {}

void MethodOffer::lookAtPlace() {
  const auto place = settings_.knownCoordinate();
  if (std::exchange(place_, place) == place) return;
  if (!place) return country_.assign({});
  geocoder_.reverseGeocode(*place, lifetime_.whileAlive([this, place](const auto& placemarks) {
    if (place != place_) return;
    country_.assign(placemarks.empty() ? "" : placemarks.front().country.value_or(""));
  }));
}

std::optional<MethodOffer::Offer> MethodOffer::offer() const {
  const auto& country = country_.value();
  const auto method = usualMethod(country);
  if (!method || *method == settings_.calculationMethod) return std::nullopt;
  if (country == settings_.methodCountry.value()) return std::nullopt;
  return Offer{country, *method};
}

void MethodOffer::use() {
  if (const auto offered = offer()) settings_.calculationMethod = offered->method;
}

}  // namespace Hilalor
