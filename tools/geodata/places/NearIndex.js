import { distanceKm } from '../geometry.js';

const CELL_DEGREES = 0.1;
const KM_PER_CELL = 11.12;

/** Finds the things that lie near a point. */
export class NearIndex {
  #cells = new Map();

  constructor(things = []) {
    things.forEach((thing) => this.add(thing));
  }

  /** A thing has its place on the globe in `point`. */
  add(thing) {
    const key = keyOf(column(thing.point), row(thing.point));
    if (!this.#cells.has(key)) this.#cells.set(key, []);
    this.#cells.get(key).push(thing);
  }

  /** The things within so many kilometres, as { thing, km }, in no order. */
  within(km, point) {
    const found = [];
    const rows = Math.ceil(km / KM_PER_CELL);
    const shrink = Math.max(0.05, Math.cos((point[1] * Math.PI) / 180));
    const columns = Math.ceil(rows / shrink);
    for (let y = row(point) - rows; y <= row(point) + rows; y++) {
      for (let x = column(point) - columns; x <= column(point) + columns; x++) {
        for (const thing of this.#cells.get(keyOf(x, y)) ?? []) {
          const distance = distanceKm(point, thing.point);
          if (distance <= km) found.push({ thing, km: distance });
        }
      }
    }
    return found;
  }

  /** The nearest of the things within so many kilometres that pass; none is undefined. */
  nearest(km, point, passes = () => true) {
    let best;
    for (const found of this.within(km, point)) {
      if (passes(found.thing, found.km) && !(best?.km <= found.km)) best = found;
    }
    return best;
  }
}

function column([x]) {
  return Math.floor(x / CELL_DEGREES);
}

function row([, y]) {
  return Math.floor(y / CELL_DEGREES);
}

function keyOf(x, y) {
  const around = Math.round(360 / CELL_DEGREES);
  return y * around + (((x % around) + around) % around);
}
