#include "app/MapSheet.hpp"

namespace Hilalor {

void presentMap(QWidget&, std::optional<LocationCoordinate>,
                std::function<void(LocationCoordinate, const std::string&, const TimeZone&)>) {}

}  // namespace Hilalor
