#pragma once

class QPainter;
class QWidget;

namespace Hilalor::Ui {

/// Marks the control just inside its edges while the keyboard acts on it, and only if a key was
/// pressed after the last press of the pointer: who uses the pointer alone has no use for it. To be
/// called whenever the control is painted, over its ground.
void paintFocusRing(QPainter& painter, const QWidget& control, double radius);

/// Marks the control so two pixels outside its edges, from now on. For what reaches to its edges.
void markFocusAround(QWidget& control, double radius);

}  // namespace Hilalor::Ui
