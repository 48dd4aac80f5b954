import assert from 'node:assert/strict';
import test from 'node:test';
import { makeTile, NO_ZONE, TILE_UNITS } from '../zones/tile.js';
import { WORLD } from '../zones/world.js';
import { settler, zoneFile } from '../zones/zoneFile.js';

const box = { west: 0, south: 0, east: 1, north: 1 };
const rectangle = (west, south, east, north) => [
  [[west, south], [east, south], [east, north], [west, north], [west, south]],
];
const first = (zones) => zones[0] ?? NO_ZONE;

test('a border between two zones becomes one arc with its sides', () => {
  const { arcs, west } = makeTile({ ...box, polygons: [
    { zone: 3, rings: rectangle(0, 0, 0.5, 1) },
    { zone: 7, rings: rectangle(0.5, 0, 1, 1) },
  ] }, first);
  assert.deepEqual(west, [{ top: TILE_UNITS, zone: 3 }]);
  assert.equal(arcs.length, 1);
  const [{ left, right, points }] = arcs;
  const goesNorth = points[1][1] > points[0][1];
  assert.deepEqual([left, right], goesNorth ? [3, 7] : [7, 3]);
  assert.deepEqual(points.map(([x]) => x), [TILE_UNITS / 2, TILE_UNITS / 2]);
});

test('an enclave keeps its ring, the west edge its sea', () => {
  const { arcs, west } = makeTile({ ...box, polygons: [
    { zone: 1, rings: [...rectangle(0, 0, 1, 0.6), ...rectangle(0.4, 0.2, 0.6, 0.4)] },
    { zone: 2, rings: rectangle(0.4, 0.2, 0.6, 0.4) },
  ] }, first);
  assert.deepEqual(west.map(({ zone }) => zone), [1, NO_ZONE]);
  const enclave = arcs.find(({ left, right }) => left === 2 || right === 2);
  assert.deepEqual(enclave.points[0], enclave.points.at(-1));
  assert.equal(arcs.length, 2);
});

test('where zones overlap, the preferred one has the place', () => {
  const settle = settler(['Asia/Shanghai', 'Asia/Urumqi', 'Asia/Tokyo']);
  assert.equal(settle([0, 1]), 1);
  assert.equal(settle([2, 0]), 2);
  assert.equal(settle([]), NO_ZONE);
});

test('the file frames its sections and tells its size', () => {
  const file = zoneFile({ names: ['Asia/Riyadh'], leaves: [{ ...WORLD, zones: [0] }] });
  assert.equal(file.toString('latin1', 0, 4), 'HILZ');
  assert.equal(file.readUInt32LE(8), file.length);
  assert.equal(file.readUInt32LE(16 + 8 * 2), 2 * 512, 'one run to a row');
});
