/**
 * How names are made alike for searching: letter case, diacritics, apostrophes, the ways of writing
 * an Arabic letter. The table goes into the data, so that the reader folds what is typed in just
 * the way that the search index was sorted.
 */

const LETTERS = {
  ı: 'i', ø: 'o', ł: 'l', đ: 'd', ß: 'ss', æ: 'ae', œ: 'oe', þ: 'th', ð: 'd', ħ: 'h', ŋ: 'n',
  ə: 'a', ǝ: 'a', ɣ: 'gh', ɛ: 'e', ɔ: 'o', ŧ: 't',
  أ: 'ا', إ: 'ا', آ: 'ا', ٱ: 'ا', ى: 'ي', ی: 'ي', ې: 'ي', ئ: 'ي', ؤ: 'و', ة: 'ه', ہ: 'ه', ھ: 'ه',
  ە: 'ه', ک: 'ك', ـ: '',
};

/** Apostrophes and points within a word vanish; every other mark parts words. */
const VANISHING = /['`´.ʻʼʹʾʿˈ‘’‛′"“”\u200b-\u200f]/u;

const RANGES = [[0x20, 0x052f], [0x0600, 0x06ff], [0x1e00, 0x1eff], [0x2010, 0x2033]];

/** What stands for one character: at most two bytes of UTF-8, none for what vanishes. */
export function foldedCharacter(character) {
  let folded = '';
  for (const part of character.normalize('NFKD').toLowerCase().normalize('NFKD')) {
    if (/\p{M}/u.test(part) || VANISHING.test(part)) continue;
    folded += LETTERS[part] ?? (/[\p{L}\p{N}]/u.test(part) ? part.normalize('NFKD') : ' ');
  }
  return LETTERS[character] ?? (/^ +$/.test(folded) ? ' ' : folded.trim());
}

/** Every code point the table knows, with what stands for it; those it does not know vanish. */
export const FOLDING = new Map();
for (const [first, last] of RANGES) {
  for (let code = first; code <= last; code++) {
    const folded = foldedCharacter(String.fromCodePoint(code));
    const fits = Buffer.byteLength(folded) <= 2;
    if (fits && (folded !== '' || code < 0x80)) FOLDING.set(code, folded);
  }
}

/** The text as it is compared: words parted by one space each. */
export function folded(text) {
  let result = '';
  for (const character of text) {
    const part = FOLDING.get(character.codePointAt(0)) ?? '';
    if (part === ' ' && (result === '' || result.endsWith(' '))) continue;
    result += part;
  }
  return result.trimEnd();
}

/** The same name in two gazetteers, however its words are parted. */
export function nameKey(name) {
  return folded(name).replaceAll(' ', '');
}
