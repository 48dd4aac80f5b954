import { NearIndex } from './NearIndex.js';
import { nameKey } from './folding.js';

/** GeoNames' codes of places that are no more: historical, abandoned, destroyed. */
const GONE = new Set(['PPLH', 'PPLQ', 'PPLW', 'PPLCH']);

/**
 * One list out of the gazetteers: the recent one's places with the population, kind and other names
 * of their counterparts in the counted one, then the counted one's that the recent one lacks.
 */
export function mergedPlaces({ areas, recent, counted, older }) {
  const places = recentWithCounts(recent, new NearIndex(counted), new NearIndex(older));
  const taken = new Set(places.map(({ counterpart }) => counterpart));
  const missing = counted.filter((place) => !taken.has(place) && !GONE.has(place.feature));
  const known = new NearIndex(places);
  places.push(...missing.filter((place) => !isKnown(place, known)));
  return withKnownAreas(places, areas, known);
}

function recentWithCounts(recent, counted, older) {
  const taken = new Set();
  return recent.map((place) => {
    const key = nameKey(place.name);
    const counterpart = counterpartOf(place, key, counted, taken);
    if (counterpart) {
      taken.add(counterpart);
      const { population, feature, otherNames } = counterpart;
      return { ...place, population, feature, otherNames: [counterpart.name, ...otherNames],
        counterpart };
    }
    const before = older.nearest(8, place.point, (other) =>
      other.country === place.country && nameKey(other.name) === key)?.thing;
    return before ? { ...place, population: before.population, feature: before.feature } : place;
  });
}

/** The same spot, or the same name nearby. */
function counterpartOf(place, key, counted, taken) {
  return counted.nearest(8, place.point, (other, km) => {
    if (other.country !== place.country || taken.has(other)) return false;
    if (km < 0.05 || nameKey(other.name) === key) return true;
    return km < 4 && key !== '' && other.otherNames.some((name) => nameKey(name) === key);
  })?.thing;
}

function isKnown(place, known) {
  const key = nameKey(place.name);
  return known.within(5, place.point).some(({ thing, km }) =>
    thing.country === place.country && (km < 0.3 || nameKey(thing.name) === key));
}

/** Area codes change over the years; a place with one that is gone takes its neighbour's. */
function withKnownAreas(places, areas, known) {
  return places.map((place) => {
    if (areas.has(place.area)) return place;
    const neighbour = known.nearest(25, place.point, (other) =>
      other.country === place.country && areas.has(other.area))?.thing;
    return { ...place, area: neighbour?.area ?? '' };
  });
}
