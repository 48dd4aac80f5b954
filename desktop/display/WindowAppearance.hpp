#pragma once

#include <QWidget>

#include "platform/Panel.hpp"

namespace Hilalor::Desktop {

/// Puts the window and all in it into light or dark, or leaves it to the application. The
/// application's contrast stays.
void setWindowAppearance(QWidget& window, Appearance appearance);

}  // namespace Hilalor::Desktop
