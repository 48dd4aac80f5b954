/**
 * Compares zones that the reader found with the boundaries before they were simplified:
 * node zones/compare.js TABLE, with longitude, latitude and zone in each line of the table.
 */
import { readFileSync } from 'node:fs';
import { fileURLToPath } from 'node:url';
import { contains } from '../geometry.js';
import { readZoneTree } from './leaves.js';
import { NO_ZONE } from './tile.js';
import { settler } from './zoneFile.js';

const here = fileURLToPath(new URL('..', import.meta.url));
const { names, leaves } = readZoneTree(`${here}/node_modules/geo-tz/data`);
const settle = settler(names);

/** The points in the boxes of a degree that they lie in. */
const boxes = new Map();
for (const line of readFileSync(process.argv[2], 'utf8').trimEnd().split('\n')) {
  const [x, y, zone] = line.split('\t');
  const point = [Number(x), Number(y)];
  const key = `${Math.floor(point[0])} ${Math.floor(point[1])}`;
  if (!boxes.has(key)) boxes.set(key, []);
  boxes.get(key).push({ point, zone });
}

function* pointsIn({ west, south, east, north }) {
  for (let x = Math.floor(west); x <= east; x++) {
    for (let y = Math.floor(south); y <= north; y++) {
      for (const entry of boxes.get(`${x} ${y}`) ?? []) {
        const [px, py] = entry.point;
        if (px >= west && px < east && py >= south && py < north) yield entry;
      }
    }
  }
}

let count = 0;
let different = 0;
for (const leaf of leaves) {
  for (const { point, zone } of pointsIn(leaf)) {
    const claims = leaf.zones ??
      leaf.polygons.filter(({ rings }) => contains(rings, point)).map((polygon) => polygon.zone);
    const settled = settle(claims);
    const expected = settled === NO_ZONE ? '' : names[settled];
    count++;
    if (zone === expected) continue;
    different++;
    console.log(`${point[1]}, ${point[0]}: ${zone || 'no zone'}, in the source ${expected || 'no zone'}`);
  }
}
console.log(`${count} places compared, ${different} in another zone than in the source`);
