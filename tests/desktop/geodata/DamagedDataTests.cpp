#include <algorithm>
#include <functional>
#include <random>

#include "desktop/geodata/AreaNames.hpp"
#include "desktop/geodata/MapDatabase.hpp"
#include "tests/desktop/geodata/ShippedData.hpp"

namespace Hilalor::Desktop {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kHeaderSize = 12;

struct Span {
  std::size_t offset, length;
};

std::vector<Span> sectionsOf(const Bytes& file) {
  const Section header(file);
  std::vector<Span> sections;
  for (std::size_t i = 0; i < header.u16(6); ++i) {
    const std::size_t entry = kHeaderSize + 8 * i;
    sections.push_back({header.u32(entry), header.u32(entry + 4)});
  }
  return sections;
}

// Looks up and searches all over the world; what comes out does not matter.
void lookAround(const Bytes& zoneBytes, const Bytes& placeBytes) {
  const auto zones = ZoneDatabase::over(zoneBytes);
  const auto places = PlaceDatabase::over(placeBytes);
  std::mt19937 random(7);
  std::uniform_real_distribution<double> part(0, 1);
  for (int i = 0; i < 300; ++i) {
    const LocationCoordinate coordinate{180 * part(random) - 90, 360 * part(random) - 180};
    const auto zone = zones ? zones->zoneAt(coordinate) : std::nullopt;
    if (places) static_cast<void>(places->describe(coordinate, zone.value_or("Asia/Riyadh")));
  }
  if (!places) return;
  for (const auto* text : {"mecca", "s", "مكة", "zz"})
    static_cast<void>(places->search(text, 10));
  for (int i = 0; i < 300; ++i)
    static_cast<void>(places->place(static_cast<std::uint32_t>(random() % 250000)));
}

// Reads every tile; whatever is in them, their points are points of the tile.
void readMap(const Bytes& bytes) {
  const auto map = MapDatabase::over(bytes);
  if (!map) return;
  for (std::size_t level = 0; level < map->tileDegrees().size(); ++level) {
    const int degrees = map->tileDegrees()[level];
    for (int number = 0; number < (360 / degrees) * (180 / degrees); ++number) {
      const MapTile tile{level, number % (360 / degrees), number / (360 / degrees)};
      map->visitShapes(tile, [](MapLayer, std::span<const MapPoint> points) {
        for (const MapPoint point : points)
          ASSERT_TRUE(point.x >= 0 && point.x <= kMapTileUnits && point.y >= 0 &&
                      point.y <= kMapTileUnits);
      });
    }
  }
}

class DamagedDataTest : public testing::Test {
 protected:
  // Each file with what opens it.
  struct Case {
    const char* name;
    Bytes bytes;
    std::function<bool(const Bytes&)> opens;
  };

  Bytes zoneBytes = bytesOf(kZoneFile);
  Bytes placeBytes = bytesOf(kPlaceFile);
  Bytes mapBytes = bytesOf(kMapFile);
  Bytes nameBytes = bytesOf(kNameFile);
  std::vector<Case> cases{
      {"zones", zoneBytes,
       [](const Bytes& bytes) { return ZoneDatabase::over(bytes).has_value(); }},
      {"places", placeBytes,
       [](const Bytes& bytes) { return PlaceDatabase::over(bytes).has_value(); }},
      {"map", mapBytes, [](const Bytes& bytes) { return MapDatabase::over(bytes).has_value(); }},
      {"names", nameBytes, [](const Bytes& bytes) { return areaNamesIn(bytes).size() > 200; }},
  };
};

TEST_F(DamagedDataTest, TruncatedAtAnySectionIsNoData) {
  for (const auto& [name, bytes, opens] : cases) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(opens(bytes));
    std::vector<std::size_t> lengths{0, 3, kHeaderSize - 1, kHeaderSize, bytes.size() - 1};
    for (const auto& section : sectionsOf(bytes)) {
      for (const std::size_t length :
           {section.offset - 1, section.offset, section.offset + section.length / 2}) {
        lengths.push_back(length);
      }
    }
    for (const std::size_t length : lengths) {
      const Bytes truncated(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
      EXPECT_FALSE(opens(truncated)) << length;
    }
  }
}

TEST_F(DamagedDataTest, AnotherKindVersionCountSizeOrTableIsNoData) {
  for (const auto& [name, bytes, opens] : cases) {
    SCOPED_TRACE(name);
    for (const std::size_t offset : {0U, 3U, 4U, 6U, 8U, 11U, 15U, 19U}) {
      Bytes damaged = bytes;
      damaged[offset] ^= 0x80;
      EXPECT_FALSE(opens(damaged)) << offset;
    }
    EXPECT_FALSE(opens(cases[bytes == cases[0].bytes ? 1 : 0].bytes));
  }
}

// Reads it with each of its sections at random, and with bytes at random all over.
void readDamaged(const Bytes& sound, int rounds, const std::function<void(const Bytes&)>& read) {
  std::mt19937 random(3);
  const auto any = [&random] { return static_cast<std::uint8_t>(random()); };
  for (const auto& [offset, length] : sectionsOf(sound)) {
    Bytes damaged = sound;
    const auto start = damaged.begin() + static_cast<std::ptrdiff_t>(offset);
    std::generate(start, start + static_cast<std::ptrdiff_t>(length), any);
    read(damaged);
  }
  for (int round = 0; round < rounds; ++round) {
    Bytes damaged = sound;
    for (int byte = 0; byte < 4000; ++byte)
      damaged[random() % damaged.size()] = any();
    // With its header the file is opened.
    const auto header = static_cast<std::ptrdiff_t>(sectionsOf(sound).front().offset);
    std::copy(sound.begin(), sound.begin() + header, damaged.begin());
    read(damaged);
  }
}

TEST_F(DamagedDataTest, IsSafeToReadWhateverTheBytes) {
  readDamaged(zoneBytes, 10, [&](const Bytes& zones) { lookAround(zones, placeBytes); });
  readDamaged(placeBytes, 20, [&](const Bytes& places) { lookAround(zoneBytes, places); });
  readDamaged(mapBytes, 4, readMap);
  readDamaged(nameBytes, 4, [](const Bytes& bytes) {
    for (const NamedArea& area : areaNamesIn(bytes))
      ASSERT_TRUE(isOnGlobe(area.coordinate));
  });
}

TEST(MappedFile, IsNotThereForMissingEmptyOrOtherThings) {
  EXPECT_FALSE(MappedFile::open("/no/such/file"));
  EXPECT_FALSE(MappedFile::open("/dev/null"));
  EXPECT_FALSE(MappedFile::open("/tmp"));
}

}  // namespace
}  // namespace Hilalor::Desktop
