#include "command/LocatedPlace.hpp"

#include <fstream>
#include <iterator>
#include <limits>
#include <locale>
#include <system_error>

namespace Hilalor {

namespace files = std::filesystem;

void keepPlace(const files::path& file, const LocatedPlace& place) {
  std::error_code error;
  files::create_directories(file.parent_path(), error);
  files::permissions(file.parent_path(), files::perms::owner_all, error);
  const files::path written = file.string() + ".new";
  std::ofstream stream(written);
  stream.imbue(std::locale::classic());
  stream.precision(std::numeric_limits<double>::max_digits10);
  stream << place.latitude << ' ' << place.longitude << '\n'
         << place.zone.identifier() << '\n'
         << place.name;
  stream.close();
  // A reader finds the old place or the new one.
  if (stream) files::rename(written, file, error);
}

std::optional<LocatedPlace> keptPlace(const files::path& file) {
  std::ifstream stream(file);
  stream.imbue(std::locale::classic());
  LocationCoordinate coordinate;
  std::string zone;
  stream >> coordinate.latitude >> coordinate.longitude >> std::ws;
  if (!std::getline(stream, zone) || !isOnGlobe(coordinate)) return std::nullopt;
  const std::string name(std::istreambuf_iterator<char>(stream), {});
  return LocatedPlace{coordinate, name, TimeZone::named(zone).value_or(TimeZone::current())};
}

}  // namespace Hilalor
