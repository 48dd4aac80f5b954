import { NearIndex } from './NearIndex.js';

const CITY_POPULATION = 100000;

/** The radius in kilometres of a town of that many people, 3000 to the square kilometre. */
export function townRadiusKm(population) {
  return Math.min(25, Math.sqrt(population / 3000 / Math.PI));
}

/** Marks the quarters of cities, which are not towns: `isSection`. */
export function withSections(places) {
  const cities = new NearIndex(places.filter(({ population, feature }) =>
    population >= CITY_POPULATION && feature !== 'PPLX'));
  const isInCity = ({ point }) =>
    cities.nearest(28, point, (city, km) => km < 1.1 * townRadiusKm(city.population));
  return places.map((place) => ({
    ...place,
    isSection: place.feature === 'PPLX' ||
      (place.feature === '' && place.population === 0 && Boolean(isInCity(place))),
  }));
}
