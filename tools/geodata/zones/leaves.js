import { decode } from 'geobuf';
import { readFileSync } from 'node:fs';
import Pbf from 'pbf';
import { WORLD } from './world.js';

/**
 * Reads the quad tree of time zone boundaries in a folder of geo-tz: its zone names, and its leaves.
 * A leaf is a box with the zones that fill it (`zones`, by number; none at sea), or with the
 * polygons of the zones that share it (`polygons`: zone number and rings).
 */
export function readZoneTree(folder) {
  const index = JSON.parse(readFileSync(`${folder}/timezones.geojson.index.json`));
  const shapes = readFileSync(`${folder}/timezones.geojson.geo.dat`);
  const numbers = new Map(index.timezones.map((name, number) => [name, number]));
  const polygonsAt = ({ pos, len }) =>
    decode(new Pbf(shapes.subarray(pos, pos + len))).features.map((feature) => ({
      zone: numbers.get(feature.properties.tzid),
      rings: ringsOf(feature.geometry),
    }));
  return { names: index.timezones, leaves: leavesBelow(index.lookup, WORLD, polygonsAt) };
}

function ringsOf(geometry) {
  if (geometry.type === 'Polygon') return geometry.coordinates;
  if (geometry.type === 'MultiPolygon') return geometry.coordinates.flat();
  throw new Error(`not an area: ${geometry.type}`);
}

function* leavesBelow(node, box, polygonsAt) {
  if (node === undefined) {
    yield { ...box, zones: [] };
  } else if (Array.isArray(node)) {
    yield { ...box, zones: node };
  } else if (node.len > 0) {
    yield { ...box, polygons: polygonsAt(node) };
  } else {
    const x = (box.west + box.east) / 2;
    const y = (box.south + box.north) / 2;
    yield* leavesBelow(node.a, { ...box, west: x, south: y }, polygonsAt);
    yield* leavesBelow(node.b, { ...box, east: x, south: y }, polygonsAt);
    yield* leavesBelow(node.c, { ...box, east: x, north: y }, polygonsAt);
    yield* leavesBelow(node.d, { ...box, west: x, north: y }, polygonsAt);
  }
}
