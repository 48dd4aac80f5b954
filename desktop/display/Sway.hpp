#pragma once

#include <QPoint>
#include <QRect>
#include <QString>
#include <vector>

namespace Hilalor::Desktop {

/// What the sway compositor tells and does over its own socket (sway-ipc(7)), for it tells X11's
/// window manager properties of no bar and puts every floating window into the middle. Each call
/// waits for the answer, which takes less than a millisecond. Elsewhere they do nothing.
namespace Sway {

/// Whether this is sway, for all that is known.
[[nodiscard]] bool isHere();

/// What the bars leave free of each screen; empty elsewhere.
[[nodiscard]] std::vector<QRect> freeAreas();

/// Puts this program's window of that title there.
void place(const QString& title, QPoint corner);

/// The same from its next showing on, before it is seen. Sway keeps every place it was ever told:
/// for windows that stay where they are.
void placeWhenShown(const QString& title, QPoint corner);

/// That window is no tile from its next showing on, but stands in the middle in its own size.
void floatWhenShown(const QString& title);

}  // namespace Sway

}  // namespace Hilalor::Desktop
