#include "Adhan/Models/CalculationMethod.hpp"

#include "Adhan/Models/CalculationParameters.hpp"

namespace Adhan {
namespace {

struct Preset {
  double fajrAngle = 0;  // degrees
  double ishaAngle = 0;  // degrees
  int ishaInterval = 0;  // minutes
  PrayerAdjustments minutes;
  Rounding rounding = Rounding::nearest;
  std::optional<double> maghribAngle = std::nullopt;  // degrees
};

constexpr PrayerAdjustments kNone{};
constexpr PrayerAdjustments kDhuhrPlusOne{.dhuhr = 1};
constexpr PrayerAdjustments kDubai{.sunrise = -3, .dhuhr = 3, .asr = 3, .maghrib = 3};
constexpr PrayerAdjustments kMoonsighting{.dhuhr = 5, .maghrib = 3};
constexpr PrayerAdjustments kTurkey{.sunrise = -7, .dhuhr = 5, .asr = 4, .maghrib = 7};

// In the order of the enumeration.
constexpr std::array<Preset, kCaseCount<CalculationMethod>> kPresets{{
    {18, 17, 0, kDhuhrPlusOne},                    // muslimWorldLeague
    {19.5, 17.5, 0, kDhuhrPlusOne},                // egyptian
    {18, 18, 0, kDhuhrPlusOne},                    // karachi
    {18.5, 0, 90, kNone},                          // ummAlQura
    {18.2, 18.2, 0, kDubai},                       // dubai
    {18, 18, 0, kMoonsighting},                    // moonsightingCommittee
    {15, 15, 0, kDhuhrPlusOne},                    // northAmerica
    {18, 17.5, 0, kNone},                          // kuwait
    {18, 0, 90, kNone},                            // qatar
    {20, 18, 0, kDhuhrPlusOne, Rounding::up},      // singapore
    {17.7, 14, 0, kNone, Rounding::nearest, 4.5},  // tehran
    {18, 17, 0, kTurkey},                          // turkey
    {0, 0, 0, kNone},                              // other
}};

}  // namespace

CalculationParameters params(CalculationMethod method) {
  const Preset& preset = kPresets[static_cast<std::size_t>(method)];
  CalculationParameters parameters(preset.fajrAngle, preset.ishaAngle);
  parameters.method = method;
  parameters.maghribAngle = preset.maghribAngle;
  parameters.ishaInterval = preset.ishaInterval;
  parameters.rounding = preset.rounding;
  parameters.methodAdjustments = preset.minutes;
  return parameters;
}

}  // namespace Adhan
