#pragma once

#include <functional>
#include <optional>
#include <string>

#include "datetime/TimeZone.hpp"
#include "platform/LocationService.hpp"

class QWidget;

namespace Hilalor {

/// Shows the map in a sheet over the window, at the coordinate where there is one. `onConfirm` is
/// told the place that the user has chosen.
void presentMap(QWidget& over, std::optional<LocationCoordinate> initialCoordinate,
                std::function<void(LocationCoordinate coordinate, const std::string& name,
                                   const TimeZone& timeZone)>
                    onConfirm);

}  // namespace Hilalor
