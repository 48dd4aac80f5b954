/** The tree of zone boundaries halves this box; its edges miss ±180 and ±90 by a hair. */
export const WORLD = { west: -179.9999, south: -89.9999, east: 179.9999, north: 89.9999 };
