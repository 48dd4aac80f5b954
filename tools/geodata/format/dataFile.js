import { ByteWriter } from './ByteWriter.js';

/**
 * The frame that all our data files share: four letters of magic, the version, the number of
 * sections (16 bits each), the size of the whole file and each section's offset and length (32 bits
 * each), then the sections, each beginning at a multiple of four.
 */
export function dataFile(magic, version, sections) {
  const header = new ByteWriter();
  header.bytes(Buffer.from(magic, 'latin1'));
  header.u16(version);
  header.u16(sections.length);
  const padded = sections.map((section) => Buffer.concat([section, padding(section.length)]));
  let offset = 12 + 8 * sections.length;
  header.u32(offset + padded.reduce((sum, section) => sum + section.length, 0));
  sections.forEach((section, i) => {
    header.u32(offset);
    header.u32(section.length);
    offset += padded[i].length;
  });
  return Buffer.concat([header.toBuffer(), ...padded]);
}

function padding(length) {
  return Buffer.alloc((4 - (length % 4)) % 4);
}
