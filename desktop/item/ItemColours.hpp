#pragma once

#include <QColor>

namespace Hilalor::Desktop {

/// The item's own colours, readable on each other on any bar.
inline const QColor kGreen(34, 120, 70);
inline const QColor kPaper(255, 255, 255);
inline const QColor kPrint(32, 36, 34);

}  // namespace Hilalor::Desktop
