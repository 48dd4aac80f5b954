import { readFileSync } from 'node:fs';

/** Listed positions are met to this many degrees. */
const NEAR = 0.005;

/** The places moved or left out as the table of corrections says. */
export function corrected(places, corrections) {
  return places.flatMap((place) => {
    const correction = corrections.get(place.name)?.find((entry) => isMeant(entry, place));
    if (!correction) return [place];
    return correction.right ? [{ ...place, point: correction.right }] : [];
  });
}

function isMeant({ country, listed }, place) {
  return country === place.country && Math.abs(listed[0] - place.point[0]) < NEAR &&
    Math.abs(listed[1] - place.point[1]) < NEAR;
}

/** Corrections by name. */
export function parsedCorrections(table) {
  const corrections = new Map();
  for (const line of table.split('\n')) {
    if (line === '' || line.startsWith('#')) continue;
    const [name, country, ...degrees] = line.split('\t');
    const [x, y, rightX, rightY] = degrees.map((text) => (text === '' ? undefined : Number(text)));
    const right = rightX === undefined ? undefined : [rightX, rightY];
    corrections.set(name, [...(corrections.get(name) ?? []), { country, listed: [x, y], right }]);
  }
  return corrections;
}

export function readCorrections() {
  return parsedCorrections(readFileSync(new URL('corrections.tsv', import.meta.url), 'utf8'));
}
