import { bounds, contains } from '../geometry.js';
import { NearIndex } from './NearIndex.js';
import { nameKey } from './folding.js';

/** Towns that every list lacks. */
const BY_HAND = [
  { name: 'Sharurah', names: ['Sharurah', 'شرورة'], country: 'SA', point: [47.106, 17.476],
    population: 85000, rank: 8 },
];

/**
 * Gives the places what Natural Earth's towns know: the rank on a map, names, and the population
 * where none is known.
 */
export function withRanks(places, towns) {
  const index = new NearIndex(towns);
  return places.map((place) => {
    const names = new Set([place.name, ...place.otherNames].map(nameKey));
    const key = nameKey(place.name);
    const town = index.nearest(25, place.point, (other, km) => {
      const keys = other.names.map(nameKey);
      if (km < 6 && keys.some((name) => names.has(name))) return true;
      return nameKey(other.name) === key;
    })?.thing;
    if (!town) return place;
    const isTown = place.feature !== 'PPLX';
    const population = place.population || (isTown ? town.population : 0);
    return { ...place, population, rank: town.rank,
      otherNames: [...town.names, ...place.otherNames] };
  });
}

/** Natural Earth's towns, and those by hand, with no place of their country within 15 km. */
export function missingTowns(places, towns, areas, states) {
  const index = new NearIndex(places);
  const areaOf = areaFinder(states);
  const missing = [];
  for (const town of [...towns, ...BY_HAND]) {
    const near = index.nearest(15, town.point, (place) => place.country === town.country);
    if (near || !/^[A-Z]{2}$/.test(town.country)) continue;
    const area = areaOf(town.point);
    if (!areas.has(area) || !area.startsWith(town.country)) continue;
    const isPlausible = town.population > 200 && town.population < 250000;
    missing.push({ name: town.name, country: town.country, area, point: town.point,
      population: isPlausible ? town.population : 0, feature: 'PPL', rank: town.rank,
      otherNames: town.names });
  }
  return missing;
}

/** Finds the code of the first-level area around a point; '' outside all. */
function areaFinder(states) {
  const parts = states.flatMap(({ area, polygons }) =>
    polygons.map((rings) => ({ area, rings, box: bounds(rings[0]) })));
  return (point) => {
    const [x, y] = point;
    const part = parts.find(({ box, rings }) =>
      x >= box.west && x <= box.east && y >= box.south && y <= box.north && contains(rings, point));
    return part?.area ?? '';
  };
}
