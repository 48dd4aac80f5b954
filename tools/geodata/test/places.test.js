import assert from 'node:assert/strict';
import test from 'node:test';
import { withSections } from '../places/citySections.js';
import { corrected, parsedCorrections } from '../places/corrections.js';
import { countriesOfZones } from '../places/countries.js';
import { folded } from '../places/folding.js';
import { countedPlaces, recentPlaces } from '../places/gazetteers.js';
import { landMaskSections } from '../places/landMask.js';
import { mergedPlaces } from '../places/merge.js';
import { missingTowns, withRanks } from '../places/naturalEarth.js';
import { placeFile, wordStarts } from '../places/placeFile.js';

const AREAS = new Map([['SA.14', 'Mecca Region'], ['SA.10', 'Riyadh Region']]);

const row = ({ name, others = '', x, y, feature = 'PPL', area = '14', people = 0 }) =>
  ['1', name, name, others, y, x, 'P', feature, 'SA', '', area, '', '', '', people].join('\t');

/** A small extract: some towns of the Hejaz, in the shapes of the two lists. */
const recent = recentPlaces([
  { name: 'Makkah', lat: '21.42664', lng: '39.82563', country: 'SA', admin1: '14' },
  { name: 'Al Aziziyah', lat: '21.4', lng: '39.86', country: 'SA', admin1: '14' },
  { name: 'New Town', lat: '22.5', lng: '39.5', country: 'SA', admin1: '99' },
]);
const counted = countedPlaces([
  row({ name: 'Mecca', others: 'Makka,Makkah,MKX,مكة', x: 39.826, y: 21.427, people: 1578722 }),
  row({ name: 'Jeddah', others: 'جدة', x: 39.19797, y: 21.49012, people: 2867446 }),
  row({ name: 'Gone', x: 40.9, y: 21.9, feature: 'PPLQ' }),
].join('\n'));

const merged = mergedPlaces({ areas: AREAS, recent, counted, older: [] });
const named = (places, name) => places.find((place) => place.name === name);

test('lists are merged: counterparts once, with the recent name and the counted people', () => {
  assert.deepEqual(merged.map(({ name }) => name), ['Makkah', 'Al Aziziyah', 'New Town', 'Jeddah']);
  assert.equal(named(merged, 'Makkah').population, 1578722);
  assert.equal(named(merged, 'New Town').area, '', 'no area near by to take');
});

test('ranks and missing towns come from Natural Earth', () => {
  const towns = [
    { name: 'Makkah', names: ['Makkah'], country: 'SA', point: [39.82, 21.43], population: 1385000,
      rank: 2 },
    { name: 'Rabigh', names: ['Rabigh'], country: 'SA', point: [39.03, 22.8], population: 40000,
      rank: 9 },
  ];
  const square = [[[38, 20], [42, 20], [42, 24], [38, 24], [38, 20]]];
  const ranked = withRanks(merged, towns);
  assert.equal(named(ranked, 'Makkah').rank, 2);
  const missing = missingTowns(ranked, towns, AREAS, [{ area: 'SA.14', polygons: [square] }]);
  assert.deepEqual(named(missing, 'Rabigh')?.area, 'SA.14');
  assert.equal(named(missing, 'Makkah'), undefined);
});

test('a quarter that nobody counted is no town', () => {
  const sections = withSections(merged).filter(({ isSection }) => isSection);
  assert.deepEqual(sections.map(({ name }) => name), ['Al Aziziyah']);
});

test('places across a border are moved or left out', () => {
  const table = '# how\nMakkah\tSA\t39.826\t21.427\t39.9\t21.5\nJeddah\tSA\t39.198\t21.490\t\t\n';
  const places = corrected(merged, parsedCorrections(table));
  assert.deepEqual(named(places, 'Makkah').point, [39.9, 21.5]);
  assert.equal(named(places, 'Jeddah'), undefined);
});

test('a zone has the countries of the table and the added ones', () => {
  const zones = countriesOfZones('# x\nUA\t+4457\tEurope/Simferopol\nSA\t+2438\tAsia/Riyadh\n');
  assert.deepEqual(zones.get('Asia/Riyadh'), ['SA']);
  assert.deepEqual(zones.get('Europe/Simferopol'), ['UA', 'RU']);
});

test('names fold alike', () => {
  for (const [name, key] of [
    ['Aţ Ţā’if', 'at taif'], ['Ash-Shāriqah', 'ash shariqah'], ['KÖLN', 'koln'],
    ['Straße', 'strasse'], ['Łódź', 'lodz'], ['مَكّة', 'مكه'], ['الأحساء', 'الاحساء'],
    ['کراچی', 'كراچي'], ['St. John’s', 'st johns'], ['  Oum   er-Rbia ', 'oum er rbia'],
  ]) {
    assert.equal(folded(name), key, name);
  }
});

test('a search finds the first word, later long ones, and what follows the Arabic article', () => {
  const starts = (name) => wordStarts(name).map((at) => name.slice(at));
  assert.deepEqual(starts('Al Madinah'), ['Al Madinah', 'Madinah']);
  assert.deepEqual(starts('Rio de Janeiro'), ['Rio de Janeiro', 'Janeiro']);
  assert.deepEqual(starts('الرياض'), ['الرياض', 'رياض']);
});

test('the mask holds what is near land and nothing that is 20 km off', () => {
  const island = [[[0, 0], [0.5, 0], [0.5, 0.5], [0, 0.5], [0, 0]]];
  const [rows, columns] = landMaskSections([island], []);
  const isNear = (x, y) => {
    const row = Math.floor((y + 90) * 20);
    let crossed = 0;
    for (let i = rows.readUInt32LE(4 * row); i < rows.readUInt32LE(4 * row + 4); i++) {
      if (columns.readUInt16LE(2 * i) <= Math.floor((x + 180) * 20)) crossed++;
    }
    return crossed % 2 === 1;
  };
  assert.ok(isNear(0.25, 0.25) && isNear(-0.025, 0.25) && isNear(0.25, 0.525));
  assert.ok(!isNear(-0.18, 0.25) && !isNear(0.25, 0.68) && !isNear(0.63, 0.63));
});

test('the file holds places from south to north, one to a spot, and a sorted search', () => {
  const twin = { ...named(merged, 'Jeddah'), name: 'Twin', population: 1 };
  const file = placeFile({
    places: withSections([...merged, twin]),
    areas: AREAS,
    zoneCountries: new Map([['Asia/Riyadh', ['SA']]]),
    landMask: landMaskSections([], []),
  });
  assert.equal(file.toString('latin1', 0, 4), 'HILP');
  assert.equal(file.readUInt32LE(8), file.length);
  const section = (number) => {
    const offset = file.readUInt32LE(12 + 8 * number);
    return file.subarray(offset, offset + file.readUInt32LE(16 + 8 * number));
  };
  const [records, names, search] = [section(5), section(7), section(9)];
  assert.equal(records.length / 8, 4);
  assert.deepEqual(names.toString().split('\0').slice(0, 4),
    ['Al Aziziyah', 'Makkah', 'Jeddah', 'New Town']);
  const keys = [];
  for (let i = 0; i < search.length; i += 3) {
    const offset = search.readUIntLE(i, 3);
    keys.push(folded(names.toString('utf8', offset, names.indexOf(0, offset))));
  }
  assert.deepEqual(keys, [...keys].sort());
  assert.ok(keys.includes('mecca') && keys.includes('جده') && !keys.includes('mkx'));
});
