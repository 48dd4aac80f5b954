import { contains, bounds, simplifyLine, simplifyRing } from '../geometry.js';

/** No zone: beyond territorial waters. */
export const NO_ZONE = 0xffff;

/** Points inside a tile are whole numbers from 0 to this, from its south-west corner. */
export const TILE_UNITS = 4096;

/** How far a simplified boundary may stray, in degrees. */
const TOLERANCE = { land: 0.0008, sea: 0.02 };

/** Boundaries come rounded to a millionth of a degree; within this of an edge is on it. */
const ON_EDGE = 3e-6;

/** How far to either side of a boundary to look for the zones that it parts. */
const ASIDE = 2e-6;

/**
 * The boundaries within a leaf of the zone tree:
 * - `west`: the zones along the west edge from south to north, each up to the height `top`;
 * - `arcs`: the lines between two zones, each with the zone to its left and right.
 * A tile that one zone fills has no arcs. Where zones overlap, `settle` picks one of a list.
 */
export function makeTile(leaf, settle) {
  const zoneAt = (point) =>
    settle(leaf.polygons.filter(({ rings }) => contains(rings, point)).map(({ zone }) => zone));
  const arcs = [];
  for (const line of boundaryLines(leaf)) {
    const sides = sidesOf(line, zoneAt);
    if (sides.left === sides.right) continue;
    const points = quantised(simplified(line, sides), leaf);
    if (points.length > 1) arcs.push({ ...sides, points });
  }
  return { arcs, west: westEdge(leaf, arcs, zoneAt) };
}

/** The edges of all polygons, each once, joined to lines that end where others meet them. */
function boundaryLines(leaf) {
  const graph = boundaryGraph(leaf);
  const lines = [];
  const follow = (from, to) => {
    const line = [from];
    let [before, here] = [from, to];
    for (;;) {
      line.push(here);
      before.neighbours.delete(here);
      here.neighbours.delete(before);
      if (here.isJunction || here.neighbours.size !== 1) break;
      [before, here] = [here, here.neighbours.values().next().value];
    }
    lines.push(line.map(({ point }) => point));
  };
  const followAll = (vertex) => {
    for (const next of [...vertex.neighbours]) {
      if (vertex.neighbours.has(next)) follow(vertex, next);
    }
  };
  graph.filter(({ isJunction }) => isJunction).forEach(followAll);
  // What is left are rings that no other line touches.
  graph.forEach(followAll);
  return lines;
}

function boundaryGraph(leaf) {
  const vertices = new Map();
  const vertexAt = (point) => {
    const key = `${Math.round(point[0] * 1e6)} ${Math.round(point[1] * 1e6)}`;
    if (!vertices.has(key)) vertices.set(key, { point, neighbours: new Set() });
    return vertices.get(key);
  };
  for (const ring of leaf.polygons.flatMap(({ rings }) => rings)) {
    for (let i = 0; i + 1 < ring.length; i++) {
      if (isAlongEdge(leaf, ring[i], ring[i + 1])) continue;
      const [a, b] = [vertexAt(ring[i]), vertexAt(ring[i + 1])];
      if (a === b) continue;
      a.neighbours.add(b);
      b.neighbours.add(a);
    }
  }
  const graph = [...vertices.values()];
  for (const vertex of graph) vertex.isJunction = vertex.neighbours.size !== 2;
  return graph;
}

function isAlongEdge({ west, south, east, north }, a, b) {
  const on = (axis, value) =>
    Math.abs(a[axis] - value) < ON_EDGE && Math.abs(b[axis] - value) < ON_EDGE;
  return on(0, west) || on(0, east) || on(1, south) || on(1, north);
}

/** The zones to either side, as seen from the middle of the line's longest edge. */
function sidesOf(line, zoneAt) {
  let longest = { length: -1 };
  for (let i = 0; i + 1 < line.length; i++) {
    const [dx, dy] = [line[i + 1][0] - line[i][0], line[i + 1][1] - line[i][1]];
    const length = Math.hypot(dx, dy);
    if (length > longest.length) longest = { length, dx, dy, from: line[i] };
  }
  const { length, dx, dy, from } = longest;
  const step = Math.min(ASIDE, length / 4) / length;
  const middle = [from[0] + dx / 2, from[1] + dy / 2];
  return {
    left: zoneAt([middle[0] - dy * step, middle[1] + dx * step]),
    right: zoneAt([middle[0] + dy * step, middle[1] - dx * step]),
  };
}

function simplified(line, { left, right }) {
  const tolerance = left === NO_ZONE || right === NO_ZONE ? TOLERANCE.sea : TOLERANCE.land;
  const isRing = samePoint(line[0], line[line.length - 1]);
  if (!isRing) return simplifyLine(line, tolerance);
  const { west, south, east, north } = bounds(line);
  const isTiny = Math.max(east - west, north - south) < 2 * tolerance;
  return isTiny ? [] : simplifyRing(line, tolerance);
}

function quantised(line, leaf) {
  const points = [];
  for (const [x, y] of line) {
    const point = [
      units((x - leaf.west) / (leaf.east - leaf.west)),
      units((y - leaf.south) / (leaf.north - leaf.south)),
    ];
    if (points.length === 0 || !samePoint(points[points.length - 1], point)) points.push(point);
  }
  return points;
}

function units(part) {
  return Math.min(TILE_UNITS, Math.max(0, Math.round(part * TILE_UNITS)));
}

function samePoint(a, b) {
  return a[0] === b[0] && a[1] === b[1];
}

/** The zones change along the west edge where arcs end on it. */
function westEdge(leaf, arcs, zoneAt) {
  const cuts = new Set([0, TILE_UNITS]);
  for (const [x, y] of arcs.flatMap(({ points }) => points)) {
    if (x === 0) cuts.add(y);
  }
  const heights = [...cuts].sort((a, b) => a - b);
  const edge = [];
  for (let i = 0; i + 1 < heights.length; i++) {
    const middle = (heights[i] + heights[i + 1]) / 2 / TILE_UNITS;
    const zone = zoneAt([leaf.west + ASIDE, leaf.south + middle * (leaf.north - leaf.south)]);
    if (edge.length > 0 && edge[edge.length - 1].zone === zone) edge.pop();
    edge.push({ top: heights[i + 1], zone });
  }
  return edge;
}
