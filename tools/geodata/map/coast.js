import { ringAreaKm2 } from '../geometry.js';

/** What a shore encloses. */
export const SHORE = { land: 1, lake: 2, islandInLake: 3 };

const COLUMNS = 180;
const BIN_DEGREES = 2;
const BIN_UNITS = 65535;
/** A segment that is a whole ring enters and leaves its bin at no edge. */
const NO_EDGE = 4;
/** Of Antarctica we draw the ice front, not the line where the ice leaves the ground. */
const GROUNDING_LINE = 2;
/** Ends of segments meet within this many degrees. */
const JOIN = 1 / 2000;

/**
 * The world's shores from the binned file of GSHHG: { shore, areaKm2, ring }. Longitudes run on
 * without a break; where a ring crosses the date line they leave -180 to 180.
 */
export async function readCoast(path) {
  const h5 = await import('h5wasm/node');
  await h5.ready;
  const file = new h5.File(path, 'r');
  const rings = [];
  const open = new Map();
  for (const segment of segments(file)) {
    if (segment.isClosed) {
      rings.push({ shore: segment.level, ring: segment.points });
    } else {
      const key = `${segment.polygon} ${segment.level}`;
      if (!open.has(key)) open.set(key, { shore: segment.level, parts: [] });
      open.get(key).parts.push(segment.points);
    }
  }
  file.close();
  for (const { shore, parts } of open.values()) {
    joined(parts).forEach((ring) => rings.push({ shore, ring }));
  }
  return rings
    .filter(({ shore }) => Object.values(SHORE).includes(shore))
    .map((entry) => ({ ...entry, areaKm2: ringAreaKm2(entry.ring) }));
}

function* segments(file) {
  const column = (name) => file.get(name).value;
  const firstSegment = column('Id_of_first_segment_in_a_bin');
  const segmentCount = column('N_segments_in_a_bin');
  const info = column('Embedded_npts_levels_exit_entry_for_a_segment');
  const firstPoint = column('Id_of_first_point_in_a_segment');
  const polygon = column('Id_of_GSHHS_ID');
  const antarctica = column('Embedded_ANT_flag');
  const east = column('Relative_longitude_from_SW_corner_of_bin');
  const north = column('Relative_latitude_from_SW_corner_of_bin');
  for (let bin = 0; bin < firstSegment.length; bin++) {
    const corner = [
      (bin % COLUMNS) * BIN_DEGREES,
      90 - BIN_DEGREES * (Math.floor(bin / COLUMNS) + 1),
    ];
    for (let k = 0; k < segmentCount[bin]; k++) {
      const segment = firstSegment[bin] + k;
      if (antarctica[segment] === GROUNDING_LINE) continue;
      const bits = info[segment] >>> 0;
      const points = [];
      for (let i = firstPoint[segment]; points.length < bits >>> 9; i++) {
        points.push([
          corner[0] + ((east[i] & 0xffff) / BIN_UNITS) * BIN_DEGREES,
          corner[1] + ((north[i] & 0xffff) / BIN_UNITS) * BIN_DEGREES,
        ]);
      }
      yield {
        polygon: polygon[segment],
        level: (bits >>> 6) & 7,
        isClosed: ((bits >>> 3) & 7) === NO_EDGE || (bits & 7) === NO_EDGE,
        points,
      };
    }
  }
}

/** Joins each part to one that begins where it ends, until a ring is closed. */
export function joined(parts) {
  const byStart = new Map();
  for (const part of parts) {
    const key = joinKey(part[0]);
    if (!byStart.has(key)) byStart.set(key, []);
    byStart.get(key).push(part);
  }
  const takeFrom = (point) => {
    for (const dx of [0, -1, 1]) {
      for (const dy of [0, -1, 1]) {
        const next = byStart.get(joinKey(point, dx, dy))?.pop();
        if (next) return next;
      }
    }
    return undefined;
  };
  const rings = [];
  for (const part of parts) {
    const begins = byStart.get(joinKey(part[0]));
    const at = begins.indexOf(part);
    if (at < 0) continue;
    begins.splice(at, 1);
    const ring = [...part];
    for (let next = takeFrom(part[part.length - 1]); next; next = takeFrom(ring[ring.length - 1])) {
      const turn = Math.round((ring[ring.length - 1][0] - next[0][0]) / 360) * 360;
      next.forEach(([x, y]) => ring.push([x + turn, y]));
    }
    rings.push(ring);
  }
  return rings;
}

function joinKey([x, y], dx = 0, dy = 0) {
  const around = Math.round(360 / JOIN);
  const column = (Math.round((((x % 360) + 360) % 360) / JOIN) + dx + around) % around;
  return `${column} ${Math.round(y / JOIN) + dy}`;
}
