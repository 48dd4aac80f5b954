import { readFileSync } from 'node:fs';

/** Names that differ between versions of the machine's library, or are longer than people use. */
const NAMES = {
  CD: 'DR Congo', CG: 'Republic of the Congo', HK: 'Hong Kong', MM: 'Myanmar', MO: 'Macao',
  PS: 'Palestine', TR: 'Türkiye',
};

/** Countries to add to those that the time zone database gives a zone. */
const ALSO_IN_ZONE = {
  'Africa/Casablanca': ['EH'],
  'Africa/El_Aaiun': ['MA'],
  'America/New_York': ['CU'],
  'Asia/Bangkok': ['VN'],
  'Asia/Hebron': ['IL'],
  'Asia/Jerusalem': ['PS', 'SY'],
  'Asia/Nicosia': ['GB'],
  'Asia/Tehran': ['AE'],
  'Europe/Belgrade': ['XK'],
  'Europe/Oslo': ['SJ'],
  'Europe/Simferopol': ['UA', 'RU'],
};

const englishName = new Intl.DisplayNames(['en'], { type: 'region' });

export function countryName(code) {
  return NAMES[code] ?? englishName.of(code);
}

/** The countries of each zone, the first being the one where nothing else decides. */
export function countriesOfZones(zoneTable) {
  const countries = new Map();
  for (const line of zoneTable.split('\n')) {
    const [code, , zone] = line.split('\t');
    if (line.startsWith('#') || !zone) continue;
    countries.set(zone, [...(countries.get(zone) ?? []), code]);
  }
  for (const [zone, codes] of Object.entries(ALSO_IN_ZONE)) {
    countries.set(zone, [...new Set([...(countries.get(zone) ?? []), ...codes])]);
  }
  return countries;
}

export function readZoneTable() {
  return readFileSync('/usr/share/zoneinfo/zone.tab', 'utf8');
}
