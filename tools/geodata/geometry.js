/** Plane geometry on degrees. A point is [longitude, latitude]; a ring is a closed list of them. */

const KM_PER_DEGREE = 111.2;

/** Whether the point lies inside the rings, holes being rings within rings. */
export function contains(rings, [x, y]) {
  let inside = false;
  for (const ring of rings) {
    for (let i = 0, j = ring.length - 1; i < ring.length; j = i++) {
      const [xi, yi] = ring[i];
      const [xj, yj] = ring[j];
      if (yi > y !== yj > y && x < ((xj - xi) * (y - yi)) / (yj - yi) + xi) inside = !inside;
    }
  }
  return inside;
}

export function bounds(points) {
  const box = { west: Infinity, south: Infinity, east: -Infinity, north: -Infinity };
  for (const [x, y] of points) {
    if (x < box.west) box.west = x;
    if (x > box.east) box.east = x;
    if (y < box.south) box.south = y;
    if (y > box.north) box.north = y;
  }
  return box;
}

/** Kilometres between two near points on the globe. */
export function distanceKm([x1, y1], [x2, y2]) {
  let dx = Math.abs(x1 - x2);
  if (dx > 180) dx = 360 - dx;
  const shrink = Math.cos(radians((y1 + y2) / 2));
  return KM_PER_DEGREE * Math.hypot(dx * shrink, y1 - y2);
}

export function radians(degrees) {
  return (degrees * Math.PI) / 180;
}

/**
 * The line with the points left out that lie within the tolerance (in degrees of latitude) of the
 * line through those kept (Douglas and Peucker); the ends are kept.
 */
export function simplifyLine(points, tolerance) {
  if (points.length < 3) return points;
  const shrink = Math.cos(radians(points[0][1]));
  const keep = new Uint8Array(points.length);
  keep[0] = keep[points.length - 1] = 1;
  const spans = [[0, points.length - 1]];
  while (spans.length > 0) {
    const [first, last] = spans.pop();
    const { index, distance } = farthest(points, first, last, shrink);
    if (distance <= tolerance) continue;
    keep[index] = 1;
    spans.push([first, index], [index, last]);
  }
  return points.filter((_, i) => keep[i]);
}

/** The same for a ring, which has no ends: two points far from each other take their place. */
export function simplifyRing(ring, tolerance) {
  if (ring.length < 5) return ring;
  let opposite = 0;
  let distance = -1;
  ring.forEach(([x, y], i) => {
    const square = (x - ring[0][0]) ** 2 + (y - ring[0][1]) ** 2;
    if (square > distance) [distance, opposite] = [square, i];
  });
  const there = simplifyLine(ring.slice(0, opposite + 1), tolerance);
  const back = simplifyLine(ring.slice(opposite), tolerance);
  return [...there, ...back.slice(1)];
}

function farthest(points, first, last, shrink) {
  const [ax, ay] = [points[first][0] * shrink, points[first][1]];
  const [dx, dy] = [points[last][0] * shrink - ax, points[last][1] - ay];
  const length = dx * dx + dy * dy;
  let index = first;
  let square = 0;
  for (let i = first + 1; i < last; i++) {
    const [x, y] = [points[i][0] * shrink - ax, points[i][1] - ay];
    const along = length > 0 ? Math.min(1, Math.max(0, (x * dx + y * dy) / length)) : 0;
    const off = (x - along * dx) ** 2 + (y - along * dy) ** 2;
    if (off > square) [square, index] = [off, i];
  }
  return { index, distance: Math.sqrt(square) };
}

/** The ring's area in square kilometres, near enough to tell an islet from an island. */
export function ringAreaKm2(ring) {
  let twice = 0;
  for (let i = 0, j = ring.length - 1; i < ring.length; j = i++) {
    twice += ring[j][0] * ring[i][1] - ring[i][0] * ring[j][1];
  }
  return (Math.abs(twice) / 2) * Math.cos(radians(ring[0][1])) * KM_PER_DEGREE ** 2;
}
