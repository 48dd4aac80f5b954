import { dataFile } from '../format/dataFile.js';
import { ByteWriter } from '../format/ByteWriter.js';
import { makeTile, NO_ZONE } from './tile.js';
import { WORLD } from './world.js';

/** The world is cut into this many tiles a side: the leaves of the tree that hold polygons. */
const TILES = 512;

/** What a run of tiles holds, in the two highest bits of its value; the rest says which. */
const RUN = { empty: 0, zone: 1 << 30, tile: 2 << 30 };

/** Where zones overlap, the first of these that claims the place has it, else the first claimant. */
const PREFERRED = [
  'Asia/Urumqi',
  'Asia/Hebron',
  'Asia/Gaza',
  'Asia/Tbilisi',
  'Europe/Kyiv',
  'Europe/Simferopol',
];

/** The content of zones.bin, as its README describes it, from a tree of zone boundaries. */
export function zoneFile({ names, leaves }) {
  const settle = settler(names);
  const grid = new Uint32Array(TILES * TILES).fill(RUN.empty);
  const tiles = new ByteWriter();
  for (const leaf of leaves) {
    const value = leafValue(leaf, settle, tiles);
    forEachTile(leaf, (tile) => (grid[tile] = value));
  }
  const texts = new ByteWriter();
  names.forEach((name) => texts.text(name));
  return dataFile('HILZ', 1, [texts.toBuffer(), ...runs(grid), tiles.toBuffer()]);
}

/** Picks one of the zones that claim a place. */
export function settler(names) {
  const preferred = PREFERRED.map((name) => names.indexOf(name));
  return (zones) => preferred.find((zone) => zones.includes(zone)) ?? zones[0] ?? NO_ZONE;
}

function leafValue(leaf, settle, tiles) {
  if (leaf.zones) return zoneValue(settle(leaf.zones));
  const { arcs, west } = makeTile(leaf, settle);
  if (arcs.length === 0 && west.length === 1) return zoneValue(west[0].zone);
  const offset = tiles.length;
  writeTile(tiles, arcs, west);
  return (RUN.tile | offset) >>> 0;
}

function zoneValue(zone) {
  return zone === NO_ZONE ? RUN.empty : RUN.zone | zone;
}

function writeTile(out, arcs, west) {
  const zones = [...new Set([...arcs.flatMap(({ left, right }) => [left, right]),
    ...west.map(({ zone }) => zone)])];
  if (zones.length > 16) throw new Error(`${zones.length} zones in one tile`);
  const place = (zone) => zones.indexOf(zone);
  out.u8(zones.length);
  zones.forEach((zone) => out.u16(zone));
  out.varint(west.length);
  for (const { top, zone } of west) {
    out.varint(top);
    out.u8(place(zone));
  }
  out.varint(arcs.length);
  for (const { left, right, points } of arcs) {
    out.u8((place(left) << 4) | place(right));
    out.points(points);
  }
}

function forEachTile({ west, south, east, north }, visit) {
  const column = (x) => Math.round(((x - WORLD.west) / (WORLD.east - WORLD.west)) * TILES);
  const row = (y) => Math.round(((y - WORLD.south) / (WORLD.north - WORLD.south)) * TILES);
  for (let y = row(south); y < row(north); y++) {
    for (let x = column(west); x < column(east); x++) visit(y * TILES + x);
  }
}

/** The grid's rows as runs of equal values: where each row begins, and each run's column, value. */
function runs(grid) {
  const [rows, columns, values] = [new ByteWriter(), new ByteWriter(), new ByteWriter()];
  for (let y = 0; y < TILES; y++) {
    rows.u32(values.length / 4);
    for (let x = 0; x < TILES; x++) {
      const value = grid[y * TILES + x];
      if (x > 0 && value === grid[y * TILES + x - 1]) continue;
      columns.u16(x);
      values.u32(value);
    }
  }
  rows.u32(values.length / 4);
  return [rows, columns, values].map((section) => section.toBuffer());
}
