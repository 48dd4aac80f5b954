#pragma once

class QWidget;

namespace Hilalor::Ui {

/// Marks the control so far outside its edges (logical pixels) while the keyboard acts on it, from
/// now on, and only if a key was pressed after the last press of the pointer: who uses the pointer
/// alone has no use for it.
void markFocusAround(QWidget& control, double radius, double gap = 2);

}  // namespace Hilalor::Ui
