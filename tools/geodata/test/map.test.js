import assert from 'node:assert/strict';
import test from 'node:test';
import { simplifyLine } from '../geometry.js';
import { borders, BORDER } from '../map/borders.js';
import { joined, SHORE } from '../map/coast.js';
import { inFrame, mapFile } from '../map/mapFile.js';
import { linePieces, ringPieces } from '../map/tiling.js';

const square = (west, south, side) => [
  [west, south], [west + side, south], [west + side, south + side], [west, south + side],
  [west, south],
];

test('a line keeps the points that stray and its ends', () => {
  const line = [[0, 0], [1, 0.001], [2, 0], [3, 1], [4, 0]];
  assert.deepEqual(simplifyLine(line, 0.01), [[0, 0], [2, 0], [3, 1], [4, 0]]);
});

test('parts of a shore join to a ring, over the end of the longitudes too', () => {
  const [ring, ...rest] = joined([[[359, 0], [360, 1]], [[0, 1], [1, 0]], [[1, 0], [0, -1]],
    [[360, -1], [359, 0]]]);
  assert.equal(rest.length, 0);
  assert.deepEqual(ring.map(([x]) => x), [359, 360, 360, 361, 361, 360, 360, 359]);
});

test('a border stands once between its two areas and says what it parts', () => {
  const states = [
    { country: 'SAU', polygons: [[square(0, 0, 1)]] },
    { country: 'SAU', polygons: [[square(1, 0, 1)]] },
    { country: 'YEM', polygons: [[square(0, -1, 1)]] },
  ];
  const lines = borders(states);
  assert.deepEqual(lines.map(({ border }) => border).sort(), [BORDER.areas, BORDER.countries]);
});

test('rings and lines are cut at the edges of tiles', () => {
  const pieces = [...ringPieces(square(-1, -1, 2), 10)];
  assert.deepEqual(pieces.map(({ column, row }) => [column, row]),
    [[17, 8], [17, 9], [18, 8], [18, 9]]);
  const lines = [...linePieces([[-1, 1], [1, 1], [1, -1]], 10)];
  assert.deepEqual(lines.map(({ points }) => points),
    [[[-1, 1], [0, 1]], [[0, 1], [1, 1], [1, 0]], [[1, 0], [1, -1]]]);
});

test('a ring over the date line is copied so that both its sides are there', () => {
  const copies = inFrame({ shore: SHORE.land, areaKm2: 1, ring: square(179, 0, 2) });
  assert.deepEqual(copies.map(({ ring }) => ring[0][0]), [-181, 179]);
});

test('small land appears only where there is detail enough', () => {
  const file = mapFile([{ shore: SHORE.land, areaKm2: 100, ring: square(1, 1, 0.1) }], []);
  const hasTiles = (level) => {
    const offset = file.readUInt32LE(12 + 8 * (1 + level));
    const length = file.readUInt32LE(16 + 8 * (1 + level));
    return file.readUInt32LE(offset) < file.readUInt32LE(offset + length - 4);
  };
  assert.equal(file.toString('latin1', 0, 4), 'HILM');
  assert.deepEqual([0, 1, 2].map(hasTiles), [false, true, true]);
});
