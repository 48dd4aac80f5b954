#pragma once

#include <QWidget>
#include <vector>

namespace Hilalor {

/// Every part of that type in the widget and in the windows that belong to it.
template <typename Part>
[[nodiscard]] std::vector<Part*> parts(const QWidget& root) {
  std::vector<Part*> found;
  for (QWidget* child : root.findChildren<QWidget*>())
    if (auto* part = dynamic_cast<Part*>(child)) found.push_back(part);
  return found;
}

/// The first of them; null for none.
template <typename Part>
[[nodiscard]] Part* part(const QWidget& root) {
  const auto found = parts<Part>(root);
  return found.empty() ? nullptr : found.front();
}

}  // namespace Hilalor
