/** Cutting rings and lines along the edges of square tiles of so many degrees. */

import { bounds } from '../geometry.js';

const HAIR = 1e-9;

/** The parts of a ring by tile: { column, row, points }, tiles counted from the south-west. */
export function* ringPieces(ring, degrees) {
  const box = bounds(ring);
  const columns = tileRange(box.west + 180, box.east + 180, degrees, 360 / degrees);
  for (const column of columns) {
    const west = column * degrees - 180;
    const strip = clip(ring, 0, west, west + degrees);
    if (strip.length < 3) continue;
    const { south, north } = bounds(strip);
    for (const row of tileRange(south + 90, north + 90, degrees, 180 / degrees)) {
      const low = row * degrees - 90;
      const points = clip(strip, 1, low, low + degrees);
      if (points.length >= 3) yield { column, row, points };
    }
  }
}

function tileRange(from, to, degrees, count) {
  const first = Math.max(0, Math.floor(from / degrees + HAIR));
  const last = Math.min(count, Math.max(first + 1, Math.ceil(to / degrees - HAIR)));
  return Array.from({ length: Math.max(0, last - first) }, (_, i) => first + i);
}

function clip(ring, axis, low, high) {
  return half(half(ring, axis, low, 1), axis, high, -1);
}

/** The part of the ring on one side of a line across the axis. */
function half(ring, axis, limit, side) {
  const isIn = (point) => (point[axis] - limit) * side >= 0;
  if (ring.every(isIn)) return ring;
  const out = [];
  let before = ring[ring.length - 1];
  for (const point of ring) {
    if (isIn(before) !== isIn(point)) {
      const part = (limit - before[axis]) / (point[axis] - before[axis]);
      const across = before[1 - axis] + part * (point[1 - axis] - before[1 - axis]);
      out.push(axis === 0 ? [limit, across] : [across, limit]);
    }
    if (isIn(point)) out.push(point);
    before = point;
  }
  return out;
}

/** The parts of an open line by tile, as of a ring. */
export function* linePieces(line, degrees) {
  let piece;
  for (let i = 0; i + 1 < line.length; i++) {
    for (const [from, to] of cutAtTiles(line[i], line[i + 1], degrees)) {
      const column = Math.floor(((from[0] + to[0]) / 2 + 180) / degrees);
      const row = Math.floor(((from[1] + to[1]) / 2 + 90) / degrees);
      if (piece?.column !== column || piece.row !== row) {
        if (piece) yield piece;
        piece = { column, row, points: [from] };
      }
      piece.points.push(to);
    }
  }
  if (piece) yield piece;
}

function cutAtTiles(from, to, degrees) {
  const cuts = [0, 1];
  for (const [axis, origin] of [[0, 180], [1, 90]]) {
    const [a, b] = [from[axis] + origin, to[axis] + origin];
    const last = Math.max(a, b);
    for (let k = Math.ceil(Math.min(a, b) / degrees); k * degrees < last; k++) {
      const part = (k * degrees - a) / (b - a);
      if (part > 0 && part < 1) cuts.push(part);
    }
  }
  cuts.sort((a, b) => a - b);
  const at = (part) => [from[0] + part * (to[0] - from[0]), from[1] + part * (to[1] - from[1])];
  return cuts.slice(1).map((part, i) => [at(cuts[i]), at(part)]);
}
