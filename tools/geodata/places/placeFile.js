import { ByteWriter } from '../format/ByteWriter.js';
import { dataFile } from '../format/dataFile.js';
import { countryName } from './countries.js';
import { FOLDING, folded } from './folding.js';
import { otherNamesOf } from './otherNames.js';

/** Cells of a degree, from the south-west corner of the world. */
const COLUMNS = 360;
const ROWS = 180;
const UNITS_PER_DEGREE = 65536;

/** One name in so many has its offset written down; those after it are found by walking. */
const NAMES_PER_STEP = 16;

const FLAG = { section: 1, capital: 2, areaSeat: 4, holy: 8 };
const NO_RANK = 15;
const NO_COUNTRY = 0xff;
const COUNTRIES_PER_ZONE = 4;

/** The content of places.bin, as its README describes it. */
export function placeFile({ places, areas, zoneCountries, landMask }) {
  const texts = new TextSection();
  const codes = [...new Set(places.map(({ country }) => country))].sort();
  const areaCodes = areaCodesOf(places, codes);
  const ordered = inCells(places);
  const { names, steps, others } = nameSections(ordered);
  return dataFile('HILP', 1, [
    countrySection(codes, texts),
    areaSection(areaCodes, areas, codes, texts),
    zoneSection(zoneCountries, codes, texts),
    texts.toBuffer(),
    cellSection(ordered),
    recordSection(ordered, new Map(areaCodes.map((code, number) => [code, number]))),
    steps,
    names,
    others,
    searchSection(names),
    foldingSection(),
    ...landMask,
  ]);
}

/** Texts closed by NUL, each once, known by their offset. */
class TextSection {
  #out = new ByteWriter();
  #offsets = new Map();

  offsetOf(text) {
    if (!this.#offsets.has(text)) {
      this.#offsets.set(text, this.#out.length);
      this.#out.text(text);
    }
    return this.#offsets.get(text);
  }

  toBuffer() {
    return this.#out.toBuffer();
  }
}

/** Every area in use; "SA." stands for no area of the country. */
function areaCodesOf(places, countries) {
  const used = new Set(countries.map((code) => `${code}.`));
  places.forEach((place) => used.add(areaCodeOf(place)));
  return [...used].sort();
}

function areaCodeOf({ area, country }) {
  return area === '' ? `${country}.` : area;
}

function countrySection(codes, texts) {
  const out = new ByteWriter();
  for (const code of codes) {
    out.bytes(Buffer.from(code, 'latin1'));
    out.u16(0);
    out.u32(texts.offsetOf(countryName(code)));
  }
  return out.toBuffer();
}

function areaSection(areaCodes, areas, countries, texts) {
  const out = new ByteWriter();
  for (const code of areaCodes) {
    out.u32(countries.indexOf(code.slice(0, 2)));
    out.u32(texts.offsetOf(areas.get(code) ?? ''));
  }
  return out.toBuffer();
}

function zoneSection(zoneCountries, countries, texts) {
  const out = new ByteWriter();
  const byName = [...zoneCountries].sort(([a], [b]) => (a < b ? -1 : 1));
  for (const [zone, codes] of byName) {
    const numbers = codes.map((code) => countries.indexOf(code)).filter((number) => number >= 0);
    if (numbers.length > COUNTRIES_PER_ZONE) throw new Error(`too many countries in ${zone}`);
    out.u32(texts.offsetOf(zone));
    for (let i = 0; i < COUNTRIES_PER_ZONE; i++) out.u8(numbers[i] ?? NO_COUNTRY);
  }
  return out.toBuffer();
}

/** The places cell by cell, within each from south to north: each with its cell and place in it. */
function inCells(places) {
  const placed = places.map((place) => {
    const [x, y] = [place.point[0] + 180, place.point[1] + 90];
    const [column, row] = [Math.min(COLUMNS - 1, Math.floor(x)), Math.min(ROWS - 1, Math.floor(y))];
    return { ...place, cell: row * COLUMNS + column, x: units(x - column), y: units(y - row) };
  });
  placed.sort((a, b) =>
    a.cell - b.cell || a.y - b.y || a.x - b.x || a.isSection - b.isSection ||
    b.population - a.population);
  // Of several on one spot only the first could ever be found there.
  return placed.filter((place, i) => i === 0 || !isOnSameSpot(place, placed[i - 1]));
}

function isOnSameSpot(a, b) {
  return a.cell === b.cell && a.y === b.y && a.x === b.x;
}

function units(part) {
  return Math.min(UNITS_PER_DEGREE - 1, Math.floor(part * UNITS_PER_DEGREE));
}

function cellSection(ordered) {
  const out = new ByteWriter();
  let next = 0;
  for (let cell = 0; cell <= COLUMNS * ROWS; cell++) {
    while (next < ordered.length && ordered[next].cell < cell) next++;
    out.u32(next);
  }
  return out.toBuffer();
}

function recordSection(ordered, areaNumbers) {
  const out = new ByteWriter();
  for (const place of ordered) {
    out.u16(place.x);
    out.u16(place.y);
    out.u16(areaNumbers.get(areaCodeOf(place)));
    out.u8(populationClass(place.population));
    out.u8(flagsOf(place));
  }
  return out.toBuffer();
}

/** Ten steps to a doubling; 0 for unknown. */
function populationClass(population) {
  if (population <= 0) return 0;
  return Math.min(255, Math.max(1, Math.round(Math.log2(population) * 10)));
}

function flagsOf({ isSection, isHoly, feature, rank }) {
  const flags = (isSection ? FLAG.section : 0) | (feature === 'PPLC' ? FLAG.capital : 0) |
    (feature === 'PPLA' ? FLAG.areaSeat : 0) | (isHoly ? FLAG.holy : 0);
  return flags | (Math.min(rank ?? NO_RANK, NO_RANK) << 4);
}

/** The places' names in their order, then their other names, and whose those are. */
function nameSections(ordered) {
  const [names, steps, others] = [new ByteWriter(), new ByteWriter(), new ByteWriter()];
  let count = 0;
  const write = (name) => {
    if (count % NAMES_PER_STEP === 0) steps.u32(names.length);
    names.text(name);
    count++;
  };
  ordered.forEach(({ name }) => write(name));
  ordered.forEach((place, number) => {
    for (const name of otherNamesOf(place)) {
      write(name);
      others.u24(number);
    }
  });
  return { names: names.toBuffer(), steps: steps.toBuffer(), others: others.toBuffer() };
}

/** Where in the names the words begin that can be searched for, sorted by what follows, folded. */
function searchSection(names) {
  const entries = [];
  for (let start = 0; start < names.length;) {
    const end = names.indexOf(0, start);
    const name = names.toString('utf8', start, end);
    for (const at of wordStarts(name)) {
      const offset = start + Buffer.byteLength(name.slice(0, at));
      entries.push({ offset, key: folded(name.slice(at)) });
    }
    start = end + 1;
  }
  entries.sort((a, b) => (a.key < b.key ? -1 : a.key > b.key ? 1 : a.offset - b.offset));
  const out = new ByteWriter();
  entries.forEach(({ offset }) => out.u24(offset));
  return out.toBuffer();
}

/**
 * Where the words of a name begin: the first, the later ones of three letters or more, and what
 * follows the Arabic article.
 */
export function wordStarts(name) {
  const starts = [];
  const isBreak = (character) => FOLDING.get(character.codePointAt(0)) === ' ';
  let at = 0;
  for (const word of splitKeeping([...name], isBreak)) {
    const letters = folded(word.join(''));
    const isFirst = starts.length === 0 && letters.length > 0;
    if (isFirst || letters.length >= 3) starts.push(at);
    if (letters.startsWith('ال') && letters.length >= 4) starts.push(at + 2);
    at += word.join('').length;
  }
  return starts;
}

/** The characters cut before each word; the breaks go with the word before. */
function splitKeeping(characters, isBreak) {
  const words = [];
  let wasBreak = true;
  for (const character of characters) {
    if (words.length === 0 || (wasBreak && !isBreak(character))) words.push([]);
    words[words.length - 1].push(character);
    wasBreak = isBreak(character);
  }
  return words;
}

function foldingSection() {
  const out = new ByteWriter();
  for (const [code, text] of [...FOLDING].sort(([a], [b]) => a - b)) {
    const bytes = Buffer.from(text);
    out.u16(code);
    out.u8(bytes[0] ?? 0);
    out.u8(bytes[1] ?? 0);
  }
  return out.toBuffer();
}
