import { nameKey } from './folding.js';

const ARABIC = /^[\p{Script=Arabic}\p{M} \u0640]+$/u;
const LATIN = /^[\p{Script=Latin}\p{M}'’‘ʻʼ.\- ]+$/u;
const AIRPORT_CODE = /^[A-Z]{3}$/;

/** Cities of this size are known under many names abroad. */
const KNOWN_ABROAD = 500000;

/** In the Arabic script, so many names at most; the lists repeat one with small changes. */
const ARABIC_NAMES = 3;

/** The names by which a place can be found besides its own. */
export function otherNamesOf({ name, population, otherNames }) {
  const keys = new Set([nameKey(name)]);
  const isNew = (other) => {
    const key = nameKey(other);
    return key.length > 1 && !keys.has(key) && keys.add(key);
  };
  const arabic = otherNames.filter((other) => ARABIC.test(other) && isNew(other));
  if (population < KNOWN_ABROAD) return arabic.slice(0, ARABIC_NAMES);
  const latin = otherNames.filter((other) =>
    LATIN.test(other) && !AIRPORT_CODE.test(other) && isNew(other));
  return [...arabic, ...latin];
}
