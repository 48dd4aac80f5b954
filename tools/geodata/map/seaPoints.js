/**
 * Writes a thousand points at sea, each more than 20 km from any coast, half of them within 40 km
 * of one: node map/seaPoints.js packages FILE
 */
import { writeFileSync } from 'node:fs';
import { fileURLToPath } from 'node:url';
import { bounds, contains, radians } from '../geometry.js';
import { NearIndex } from '../places/NearIndex.js';
import { readStates } from '../states.js';
import { readCoast, SHORE } from './coast.js';
import { inFrame } from './mapFile.js';

const COUNT = 1000;
const CLEAR_KM = 20;
const NEAR_KM = 40;
const STEP_DEGREES = 0.01;

/** Numbers from 0 up to 1 that are the same at every run (a linear congruential generator). */
function randomNumbers(seed) {
  let state = seed;
  return () => {
    state = (state * 1664525 + 1013904223) % 2 ** 32;
    return state / 2 ** 32;
  };
}

/** The ring's points, and more between them, so that none is far from the next. */
function* closePoints(ring) {
  for (let i = 0; i < ring.length; i++) {
    const [[ax, ay], [bx, by]] = [ring[i], ring[(i + 1) % ring.length]];
    const steps = Math.max(1, Math.ceil(Math.hypot(bx - ax, by - ay) / STEP_DEGREES));
    for (let k = 0; k < steps; k++) {
      yield [ax + ((bx - ax) * k) / steps, ay + ((by - ay) * k) / steps];
    }
  }
}

function anywhere(random) {
  const latitude = (Math.asin(2 * random() - 1) * 180) / Math.PI;
  return [360 * random() - 180, latitude];
}

function offCoast([x, y], random) {
  const degrees = (CLEAR_KM + (NEAR_KM - CLEAR_KM) * random()) / 111.2;
  const bearing = 2 * Math.PI * random();
  const longitude = x + (degrees * Math.sin(bearing)) / Math.cos(radians(y));
  return [((longitude + 540) % 360) - 180, y + degrees * Math.cos(bearing)];
}

const [packages, output] = process.argv.slice(2);
const shores = await readCoast(`${packages}/usr/share/gmt-gshhg/binned_GSHHS_h.nc`);
const states = readStates(fileURLToPath(new URL('..', import.meta.url)));
const land = [
  ...shores.filter(({ shore }) => shore === SHORE.land).flatMap(inFrame).map(({ ring }) => [ring]),
  ...states.flatMap(({ polygons }) => polygons),
].map((rings) => ({ rings, box: bounds(rings[0]) }));
const coast = new NearIndex();
for (const { rings } of land) {
  for (const point of closePoints(rings[0])) coast.add({ point });
}
const isSea = (point) =>
  !coast.nearest(CLEAR_KM, point) && !land.some(({ rings, box }) =>
    point[0] >= box.west && point[0] <= box.east && point[1] >= box.south &&
    point[1] <= box.north && contains(rings, point));

const random = randomNumbers(1);
const points = [];
while (points.length < COUNT) {
  const start = land[Math.floor(random() * land.length)].rings[0];
  const point = points.length % 2 === 0 ? anywhere(random) :
    offCoast(start[Math.floor(random() * start.length)], random);
  if (Math.abs(point[1]) < 89 && isSea(point)) points.push(point);
}
const lines = points.map(([x, y]) => `${y.toFixed(4)}\t${x.toFixed(4)}\n`);
writeFileSync(output, `# ${COUNT} points more than ${CLEAR_KM} km from any coast: latitude, longitude.\n` +
  lines.join(''));
