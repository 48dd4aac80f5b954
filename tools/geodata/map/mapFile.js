import { ByteWriter } from '../format/ByteWriter.js';
import { dataFile } from '../format/dataFile.js';
import { bounds, simplifyLine, simplifyRing } from '../geometry.js';
import { BORDER } from './borders.js';
import { SHORE } from './coast.js';
import { linePieces, ringPieces } from './tiling.js';

/** Points inside a tile are whole numbers from 0 to this, from its south-west corner. */
const TILE_UNITS = 8192;

/** The layers of a tile, in the order in which they are stored. */
const LAYER = { land: 0, lake: 1, islandInLake: 2, countryBorder: 3, areaBorder: 4 };

/** Levels of detail: the tiles' size and how far a line may stray, in degrees; the least area. */
const LEVELS = [
  { degrees: 45, tolerance: 0.12, leastKm2: 3000, hasAreaBorders: false },
  { degrees: 10, tolerance: 0.015, leastKm2: 20, hasAreaBorders: true },
  { degrees: 2, tolerance: 0.0025, leastKm2: 0.3, hasAreaBorders: true },
];

const SHORE_LAYER = {
  [SHORE.land]: LAYER.land,
  [SHORE.lake]: LAYER.lake,
  [SHORE.islandInLake]: LAYER.islandInLake,
};

/** The content of map.bin, as its README describes it. */
export function mapFile(coast, borders) {
  const rings = coast.flatMap(inFrame);
  const levels = new ByteWriter();
  const tiles = new ByteWriter();
  const indices = LEVELS.map((level) => {
    levels.u16(level.degrees);
    return writeLevel(tiles, level, rings, borders);
  });
  return dataFile('HILM', 1, [levels.toBuffer(), ...indices, tiles.toBuffer()]);
}

/** Copies of a ring that together cover -180 to 180; a ring around the pole is led over it. */
export function inFrame({ shore, areaKm2, ring }) {
  const [first, last] = [ring[0], ring[ring.length - 1]];
  const isAroundPole = Math.abs(last[0] - first[0]) > 300;
  const closed = isAroundPole ? [...ring, [last[0], -90], [first[0], -90]] : ring;
  const { west, east } = bounds(closed);
  return [-720, -360, 0, 360]
    .filter((shift) => west + shift < 180 && east + shift > -180)
    .map((shift) => ({
      shore,
      areaKm2: isAroundPole ? Infinity : areaKm2,
      ring: closed.map(([x, y]) => [x + shift, y]),
    }));
}

function writeLevel(out, level, rings, borders) {
  const { degrees, tolerance, leastKm2, hasAreaBorders } = level;
  const tiles = new Tiles(degrees);
  for (const { shore, areaKm2, ring } of rings) {
    if (areaKm2 < leastKm2) continue;
    for (const piece of ringPieces(simplifyRing(ring, tolerance), degrees)) {
      tiles.addRing(SHORE_LAYER[shore], piece);
    }
  }
  for (const { border, points } of borders) {
    if (border === BORDER.areas && !hasAreaBorders) continue;
    const layer = border === BORDER.areas ? LAYER.areaBorder : LAYER.countryBorder;
    for (const piece of linePieces(simplifyLine(points, tolerance), degrees)) {
      tiles.addLine(layer, piece);
    }
  }
  return tiles.write(out);
}

/** The tiles of a level, row by row from the south-west. */
class Tiles {
  #degrees;
  #columns;
  #tiles;

  constructor(degrees) {
    this.#degrees = degrees;
    this.#columns = 360 / degrees;
    this.#tiles = Array.from({ length: (this.#columns * 180) / degrees }, () => new Map());
  }

  addRing(layer, piece) {
    const points = this.#quantised(piece);
    while (points.length > 1 && samePoint(points[0], points[points.length - 1])) points.pop();
    if (points.length >= 3 && twiceArea(points) >= 2) this.#layer(piece, layer).push(points);
  }

  addLine(layer, piece) {
    const points = this.#quantised(piece);
    if (points.length >= 2) this.#layer(piece, layer).push(points);
  }

  /** Appends the tiles' bytes; the result says where each begins, and the last ends. */
  write(out) {
    const index = new ByteWriter();
    for (const tile of this.#tiles) {
      index.u32(out.length);
      if (tile.size === 0) continue;
      for (const layer of Object.values(LAYER)) {
        const lines = tile.get(layer) ?? [];
        out.varint(lines.length);
        lines.forEach((points) => out.points(points));
      }
    }
    index.u32(out.length);
    return index.toBuffer();
  }

  #layer({ column, row }, layer) {
    const tile = this.#tiles[row * this.#columns + column];
    if (!tile.has(layer)) tile.set(layer, []);
    return tile.get(layer);
  }

  #quantised({ column, row, points }) {
    const units = (value, origin) =>
      Math.min(TILE_UNITS,
        Math.max(0, Math.round(((value - origin) / this.#degrees) * TILE_UNITS)));
    const out = [];
    for (const [x, y] of points) {
      const point = [
        units(x, column * this.#degrees - 180),
        units(y, row * this.#degrees - 90),
      ];
      if (out.length === 0 || !samePoint(out[out.length - 1], point)) out.push(point);
    }
    return out;
  }
}

function samePoint(a, b) {
  return a[0] === b[0] && a[1] === b[1];
}

function twiceArea(ring) {
  let sum = 0;
  ring.forEach(([x, y], i) => {
    const [px, py] = ring[(i + ring.length - 1) % ring.length];
    sum += px * y - x * py;
  });
  return Math.abs(sum);
}
