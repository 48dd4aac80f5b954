/** What a border parts. */
export const BORDER = { countries: 'countries', areas: 'areas' };

/**
 * The lines between Natural Earth's first-level areas, each line once: { border, points }. Edges
 * that only one area has are shores, which come from elsewhere.
 */
export function borders(states) {
  const owners = edgeOwners(states);
  const lines = [];
  const done = new Set();
  for (const ring of states.flatMap(({ polygons }) => polygons.flat())) {
    let line;
    for (let i = 0; i + 1 < ring.length; i++) {
      const key = edgeKey(ring[i], ring[i + 1]);
      const between = done.has(key) ? undefined : parted(states, owners.get(key));
      done.add(key);
      if (between?.key !== line?.key) line = undefined;
      if (!between) continue;
      if (!line) {
        line = { ...between, points: [ring[i]] };
        lines.push(line);
      }
      line.points.push(ring[i + 1]);
    }
  }
  return lines.map(({ border, points }) => ({ border, points }));
}

function edgeOwners(states) {
  const owners = new Map();
  states.forEach(({ polygons }, number) => {
    for (const ring of polygons.flat()) {
      for (let i = 0; i + 1 < ring.length; i++) {
        const key = edgeKey(ring[i], ring[i + 1]);
        if (!owners.has(key)) owners.set(key, new Set());
        owners.get(key).add(number);
      }
    }
  });
  return owners;
}

function parted(states, owners) {
  if (owners.size < 2) return undefined;
  const [one, other] = [...owners];
  const sameCountry = states[one].country === states[other].country;
  return { key: `${one} ${other}`, border: sameCountry ? BORDER.areas : BORDER.countries };
}

function edgeKey(a, b) {
  const [one, other] = [vertexKey(a), vertexKey(b)];
  return one < other ? `${one} ${other}` : `${other} ${one}`;
}

function vertexKey([x, y]) {
  return Math.round((x + 180) * 1e6) * 2e8 + Math.round((y + 90) * 1e6);
}
