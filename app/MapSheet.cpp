#include "app/MapSheet.hpp"

#include <utility>

#include "app/MapPickerView.hpp"
#include "ui/Containers.hpp"

namespace Hilalor {

void presentMap(
    QWidget& over, std::optional<LocationCoordinate> initialCoordinate,
    std::function<void(LocationCoordinate, const std::string&, const TimeZone&)> onConfirm) {
  // The owner's, and deletes itself once it is closed.
  auto* sheet =
      new Sheet(*over.window(), new MapPickerView(initialCoordinate, std::move(onConfirm)));
  sheet->open();
}

}  // namespace Hilalor
