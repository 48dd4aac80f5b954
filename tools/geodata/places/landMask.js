import { ByteWriter } from '../format/ByteWriter.js';
import { radians } from '../geometry.js';

/**
 * Where land is near: cells of a twentieth of a degree, from the south-west corner of the world. A
 * cell is in the mask when land comes within about ten kilometres of it; none in the mask has a
 * point that is 20 km from land.
 */
const CELLS_PER_DEGREE = 20;
const COLUMNS = 360 * CELLS_PER_DEGREE;
const ROWS = 180 * CELLS_PER_DEGREE;

/** Between the middles of a cell with land and a cell of the mask; the cells' halves come on top. */
const REACH_KM = 11;
const KM_PER_ROW = 111.2 / CELLS_PER_DEGREE;

/** The mask's two sections: where each row's cells begin, and the columns at which runs of cells
 * begin and end by turns. */
export function landMaskSections(polygons, points) {
  const land = new Uint8Array(COLUMNS * ROWS);
  points.forEach((point) => mark(land, point));
  for (const ring of polygons.flat()) markLine(land, ring);
  for (const rings of polygons) fill(land, rings);
  return runs(widened(land));
}

function columnOf(x) {
  return Math.min(COLUMNS - 1, Math.max(0, Math.floor((x + 180) * CELLS_PER_DEGREE)));
}

function rowOf(y) {
  return Math.min(ROWS - 1, Math.max(0, Math.floor((y + 90) * CELLS_PER_DEGREE)));
}

function mark(land, [x, y]) {
  land[rowOf(y) * COLUMNS + columnOf(x)] = 1;
}

/** Steps along the ring's edges, a quarter of a cell at a time. */
function markLine(land, ring) {
  for (let i = 0; i + 1 < ring.length; i++) {
    const [[ax, ay], [bx, by]] = [ring[i], ring[i + 1]];
    const steps = Math.ceil(Math.max(Math.abs(bx - ax), Math.abs(by - ay)) * CELLS_PER_DEGREE * 4);
    for (let k = 0; k <= steps; k++) {
      const part = steps > 0 ? k / steps : 0;
      mark(land, [ax + (bx - ax) * part, ay + (by - ay) * part]);
    }
  }
}

/** Marks the cells whose middle lies inside the rings. */
function fill(land, rings) {
  const crossings = new Map();
  for (const ring of rings) {
    for (let i = 0; i + 1 < ring.length; i++) {
      const [low, high] = ring[i][1] < ring[i + 1][1] ? [ring[i], ring[i + 1]] :
        [ring[i + 1], ring[i]];
      for (let row = Math.max(0, rowOf(low[1]) - 1); row <= rowOf(high[1]); row++) {
        const y = (row + 0.5) / CELLS_PER_DEGREE - 90;
        if (y < low[1] || y >= high[1]) continue;
        if (!crossings.has(row)) crossings.set(row, []);
        crossings.get(row).push(low[0] + ((y - low[1]) / (high[1] - low[1])) * (high[0] - low[0]));
      }
    }
  }
  for (const [row, xs] of crossings) {
    xs.sort((a, b) => a - b);
    for (let i = 0; i + 1 < xs.length; i += 2) {
      land.fill(1, row * COLUMNS + columnOf(xs[i]), row * COLUMNS + columnOf(xs[i + 1]) + 1);
    }
  }
}

/** The cells within reach of those with land, around the world's back too. */
function widened(land) {
  const mask = new Uint8Array(land.length);
  const rowReach = Math.floor(REACH_KM / KM_PER_ROW);
  for (let row = 0; row < ROWS; row++) {
    const shrink = Math.cos(radians((row + 0.5) / CELLS_PER_DEGREE - 90));
    for (let dy = -rowReach; dy <= rowReach; dy++) {
      const from = row + dy;
      if (from < 0 || from >= ROWS) continue;
      const room = Math.sqrt(REACH_KM ** 2 - (dy * KM_PER_ROW) ** 2);
      const reach = Math.min(COLUMNS / 2, Math.floor(room / (KM_PER_ROW * shrink)));
      widenRow(land.subarray(from * COLUMNS, (from + 1) * COLUMNS),
        mask.subarray(row * COLUMNS, (row + 1) * COLUMNS), reach);
    }
  }
  return mask;
}

function widenRow(land, mask, reach) {
  for (let x = 0; x < COLUMNS; x++) {
    if (!land[x]) continue;
    // Only the first and last cells of a run of land have anything to add beside themselves.
    const isInside = land[(x + 1) % COLUMNS] && land[(x + COLUMNS - 1) % COLUMNS];
    if (isInside) {
      mask[x] = 1;
      continue;
    }
    for (let dx = -reach; dx <= reach; dx++) mask[(x + dx + COLUMNS) % COLUMNS] = 1;
  }
}

function runs(mask) {
  const [rows, columns] = [new ByteWriter(), new ByteWriter()];
  for (let row = 0; row < ROWS; row++) {
    rows.u32(columns.length / 2);
    let before = 0;
    for (let x = 0; x < COLUMNS; x++) {
      const here = mask[row * COLUMNS + x];
      if (here !== before) columns.u16(x);
      before = here;
    }
    if (before) columns.u16(COLUMNS);
  }
  rows.u32(columns.length / 2);
  return [rows.toBuffer(), columns.toBuffer()];
}
