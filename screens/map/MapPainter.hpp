#pragma once

#include <vector>

#include "rules/map/MapViewport.hpp"
#include "screens/map/MapTiles.hpp"
#include "ui/Colors.hpp"

class QPainter;

namespace Hilalor::Screens {

/// The colours of a map.
struct MapColors {
  QColor water;
  QColor land;
  QColor countryBorder;
  QColor areaBorder;
  QColor place;      ///< Names of places.
  QColor country;    ///< Names of countries.
  QColor sea;        ///< Names of seas.
  QColor placeHalo;  ///< Around names, so that they stand out from what is under them.

  [[nodiscard]] static const MapColors& of(Ui::ColorScheme scheme);
};

/// Paints water, land and borders on the whole of the viewport.
void paintMap(QPainter& painter, const MapViewport& viewport, MapTiles& tiles,
              const std::vector<VisibleTile>& visible, const MapColors& colors);

}  // namespace Hilalor::Screens
