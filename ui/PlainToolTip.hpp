#pragma once

#include <QTextDocument>
#include <QWidget>

namespace Hilalor::Ui {

/// Tells the pointer that rests on the widget, and a screen reader, the text as it is. Qt takes a
/// tool tip that looks like HTML for HTML, and a place or a note may be called so.
inline void setPlainToolTip(QWidget& widget, const QString& text) {
  widget.setToolTip(Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text);
  // Without a description of its own, the accessible tree holds the tool tip.
  widget.setAccessibleDescription(text);
}

}  // namespace Hilalor::Ui
