#pragma once

#include <utility>
#include <vector>

#include "platform/Geocoder.hpp"

namespace Hilalor {

/// A geocoder whose requests the test answers, in any order.
class FakeGeocoder final : public Geocoder {
 public:
  struct Request {
    LocationCoordinate coordinate;
    Answer answer;
  };

  void reverseGeocode(LocationCoordinate coordinate, Answer answer) override {
    requests.push_back({coordinate, std::move(answer)});
  }

  std::vector<Request> requests;
};

}  // namespace Hilalor
