/** Makkah, Madinah and Jerusalem, which the search puts before all others: country and name. */
const HOLY = new Set(['SA Makkah', 'SA Madinah', 'IL Jerusalem']);

/** The places with `isHoly` on those. */
export function withHolyCities(places) {
  const keyOf = ({ country, name }) => `${country} ${name}`;
  const isLarge = ({ population, isSection }) => population > 100000 && !isSection;
  const found = places.filter((place) => HOLY.has(keyOf(place)) && isLarge(place));
  if (found.length !== HOLY.size) throw new Error(`holy cities: ${found.map(keyOf)}`);
  const holy = new Set(found);
  return places.map((place) => (holy.has(place) ? { ...place, isHoly: true } : place));
}
