/** Makes the data files from the packages that `build` has fetched. */
import { mkdirSync, writeFileSync } from 'node:fs';
import { fileURLToPath } from 'node:url';
import { borders } from './map/borders.js';
import { readCoast } from './map/coast.js';
import { mapFile } from './map/mapFile.js';
import { countryLabels, readCountries } from './names/countryLabels.js';
import { nameFile, readSeas } from './names/nameFile.js';
import { withSections } from './places/citySections.js';
import { corrected, readCorrections } from './places/corrections.js';
import { countriesOfZones, readZoneTable } from './places/countries.js';
import { readGazetteers, readNaturalEarthTowns } from './places/gazetteers.js';
import { withHolyCities } from './places/holyCities.js';
import { landMaskSections } from './places/landMask.js';
import { mergedPlaces } from './places/merge.js';
import { missingTowns, withRanks } from './places/naturalEarth.js';
import { placeFile } from './places/placeFile.js';
import { readStates } from './states.js';
import { readZoneTree } from './zones/leaves.js';
import { zoneFile } from './zones/zoneFile.js';

const here = fileURLToPath(new URL('.', import.meta.url));
const [packages, resources] = process.argv.slice(2);

function write(name, content) {
  mkdirSync(`${resources}/${name}`, { recursive: true });
  writeFileSync(`${resources}/${name}/${name}.bin`, content);
  console.log(`${name}.bin: ${content.length} bytes`);
}

async function places(states) {
  const gazetteers = readGazetteers(here);
  const towns = await readNaturalEarthTowns(
    `${packages}/usr/share/magics/10m/ne_10m_populated_places_simple.dbf`);
  const ranked = withRanks(mergedPlaces(gazetteers), towns);
  const missing = missingTowns(ranked, towns, gazetteers.areas, states);
  const right = corrected([...ranked, ...missing], readCorrections());
  const all = withHolyCities(withSections(right));
  const polygons = states.flatMap((state) => state.polygons);
  return placeFile({
    places: all,
    areas: gazetteers.areas,
    zoneCountries: countriesOfZones(readZoneTable()),
    landMask: landMaskSections(polygons, all.map(({ point }) => point)),
  });
}

const states = readStates(here);
const countries = readCountries(here);
write('names', nameFile(countryLabels(countries), readSeas(countries)));
write('zones', zoneFile(readZoneTree(`${here}/node_modules/geo-tz/data`)));
write('places', await places(states));
const coast = await readCoast(`${packages}/usr/share/gmt-gshhg/binned_GSHHS_h.nc`);
write('map', mapFile(coast, borders(states)));
