import { readFileSync } from 'node:fs';
import { ByteWriter } from '../format/ByteWriter.js';
import { dataFile } from '../format/dataFile.js';
import { contains } from '../geometry.js';

const KIND = { country: 0, sea: 1 };
const UNITS_PER_DEGREE = 100;

/** The content of names.bin, as its README describes it. */
export function nameFile(countries, seas) {
  const all = [
    ...countries.map((label) => ({ ...label, kind: KIND.country })),
    ...seas.map((label) => ({ ...label, kind: KIND.sea })),
  ];
  all.sort((a, b) => b.degrees - a.degrees || (a.name < b.name ? -1 : 1));
  const [records, texts] = [new ByteWriter(), new ByteWriter()];
  for (const { name, point, degrees, kind } of all) {
    records.u16(Math.round((point[0] + 180) * UNITS_PER_DEGREE));
    records.u16(Math.round((point[1] + 90) * UNITS_PER_DEGREE));
    records.u16(Math.max(1, Math.round(degrees * UNITS_PER_DEGREE)));
    records.u16(kind);
    records.u32(texts.length);
    texts.text(name);
  }
  return dataFile('HILN', 1, [records.toBuffer(), texts.toBuffer()]);
}

/** The table of seas. A name in the middle of a country is a slip of the hand. */
export function readSeas(countries) {
  const table = readFileSync(new URL('seas.tsv', import.meta.url), 'utf8');
  const rows = table.split('\n').filter((line) => line !== '' && !line.startsWith('#'));
  return rows.map((row) => {
    const [name, x, y, degrees] = row.split('\t');
    const point = [Number(x), Number(y)];
    const country = countries.find(({ polygons }) =>
      polygons.some((rings) => contains(rings, point)));
    if (country) throw new Error(`${name} lies in ${country.code}`);
    return { name, point, degrees: Number(degrees) };
  });
}
