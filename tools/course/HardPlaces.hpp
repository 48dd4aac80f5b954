#pragma once

#include <array>

namespace Course {

/// A place and the clock of its people.
struct Home {
  char name[24];
  double latitude;
  double longitude;
  char zone[40];
};

/// Near the date line, far from their zone's meridian, in the far north and south, and some plain
/// ones beside them.
inline constexpr std::array kHardPlaces{
    Home{"Apia", -13.8333, -171.7667, "Pacific/Apia"},
    Home{"Nukualofa", -21.1394, -175.2018, "Pacific/Tongatapu"},
    Home{"Kiritimati", 1.8721, -157.4278, "Pacific/Kiritimati"},
    Home{"Fakaofo", -9.3803, -171.2188, "Pacific/Fakaofo"},
    Home{"Chatham", -43.9519, -176.5609, "Pacific/Chatham"},
    Home{"Taveuni", -16.8333, -179.9833, "Pacific/Fiji"},
    Home{"Labasa", -16.4333, 179.3667, "Pacific/Fiji"},
    Home{"Funafuti", -8.5211, 179.1983, "Pacific/Funafuti"},
    Home{"Suva", -18.1416, 178.4419, "Pacific/Fiji"},
    Home{"Nadi", -17.8, 177.4167, "Pacific/Fiji"},
    Home{"Gisborne", -38.6533, 178.0042, "Pacific/Auckland"},
    Home{"Napier", -39.4903, 176.9178, "Pacific/Auckland"},
    Home{"Rotorua", -38.1368, 176.2497, "Pacific/Auckland"},
    Home{"Auckland", -36.8485, 174.7633, "Pacific/Auckland"},
    Home{"Anadyr", 64.7337, 177.4968, "Asia/Anadyr"},
    Home{"Adak", 51.88, -176.6581, "America/Adak"},
    Home{"Petropavlovsk", 53.0241, 158.6433, "Asia/Kamchatka"},
    Home{"Honolulu", 21.3069, -157.8583, "Pacific/Honolulu"},
    Home{"Oslo", 59.9139, 10.7522, "Europe/Oslo"},
    Home{"Helsinki", 60.1699, 24.9384, "Europe/Helsinki"},
    Home{"Bergen", 60.3913, 5.3221, "Europe/Oslo"},
    Home{"Trondheim", 63.4305, 10.3951, "Europe/Oslo"},
    Home{"Reykjavik", 64.1466, -21.9426, "Atlantic/Reykjavik"},
    Home{"Oulu", 65.0121, 25.4651, "Europe/Helsinki"},
    Home{"Rovaniemi", 66.5039, 25.7294, "Europe/Helsinki"},
    Home{"Bodo", 67.2804, 14.4049, "Europe/Oslo"},
    Home{"Murmansk", 68.9585, 33.0827, "Europe/Moscow"},
    Home{"Tromso", 69.6492, 18.9553, "Europe/Oslo"},
    Home{"Longyearbyen", 78.2232, 15.6267, "Arctic/Longyearbyen"},
    Home{"Fairbanks", 64.8378, -147.7164, "America/Anchorage"},
    Home{"Stockholm", 59.3293, 18.0686, "Europe/Stockholm"},
    Home{"SaintPetersburg", 59.9343, 30.3351, "Europe/Moscow"},
    Home{"Edinburgh", 55.9533, -3.1883, "Europe/London"},
    Home{"London", 51.5074, -0.1278, "Europe/London"},
    Home{"Zurich", 47.3769, 8.5417, "Europe/Zurich"},
    Home{"ACoruna", 43.3713, -8.396, "Europe/Madrid"},
    Home{"Kashgar", 39.4704, 75.9898, "Asia/Shanghai"},
    Home{"Ushuaia", -54.8019, -68.303, "America/Argentina/Ushuaia"},
    Home{"PuntaArenas", -53.1638, -70.9171, "America/Punta_Arenas"},
    Home{"Riyadh", 24.6877, 46.7219, "Asia/Riyadh"},
    Home{"Makkah", 21.4225, 39.8262, "Asia/Riyadh"},
    Home{"Tehran", 35.6892, 51.389, "Asia/Tehran"},
    Home{"Kathmandu", 27.7172, 85.324, "Asia/Kathmandu"},
    Home{"LordHowe", -31.5553, 159.0821, "Australia/Lord_Howe"},
    Home{"Casablanca", 33.5731, -7.5898, "Africa/Casablanca"},
    Home{"NewYork", 40.7128, -74.006, "America/New_York"},
};

}  // namespace Course
