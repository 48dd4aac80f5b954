#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "desktop/geodata/PlaceDatabase.hpp"
#include "desktop/geodata/ZoneDatabase.hpp"
#include "platform/Geocoder.hpp"
#include "platform/RunLoop.hpp"

namespace Hilalor::Desktop {

/// Names places from the data that ship with the program, without a network. Where the data are
/// missing or damaged it knows no place, without those of the places alone still the time zones.
/// Main thread.
class OfflineGeocoder final : public Geocoder {
 public:
  /// The folder that holds `places/places.bin` and `zones/zones.bin`; the files are opened here and
  /// read at the first request.
  OfflineGeocoder(const std::filesystem::path& folder, RunLoop& loop);

  /// Answers on the next pass of the loop with one placemark at most: none on the high seas, and
  /// in territorial waters the country and its time zone alone.
  void reverseGeocode(LocationCoordinate coordinate, Answer answer) override;

 private:
  [[nodiscard]] std::vector<Placemark> placemarks(LocationCoordinate coordinate) const;

  RunLoop& loop_;
  std::optional<ZoneDatabase> zones_;
  std::optional<PlaceDatabase> places_;
};

}  // namespace Hilalor::Desktop
