/** Bytes in the making; every number is little-endian. */
export class ByteWriter {
  #bytes = [];

  get length() {
    return this.#bytes.length;
  }

  u8(value) {
    this.#bytes.push(value & 0xff);
  }

  u16(value) {
    this.#bytes.push(value & 0xff, (value >>> 8) & 0xff);
  }

  u24(value) {
    this.u16(value);
    this.u8(value >>> 16);
  }

  u32(value) {
    this.u16(value);
    this.u16(value >>> 16);
  }

  /** Seven bits a byte, the lowest first; the high bit says that more follow. */
  varint(value) {
    while (value > 0x7f) {
      this.#bytes.push((value & 0x7f) | 0x80);
      value >>>= 7;
    }
    this.#bytes.push(value);
  }

  /** A signed number with its sign in the lowest bit, so that small ones stay short. */
  signedVarint(value) {
    this.varint(value < 0 ? -2 * value - 1 : 2 * value);
  }

  /** Points with whole coordinates, each as its distance from the one before; the first from 0. */
  points(points) {
    this.varint(points.length);
    let before = [0, 0];
    for (const point of points) {
      this.signedVarint(point[0] - before[0]);
      this.signedVarint(point[1] - before[1]);
      before = point;
    }
  }

  /** UTF-8 and a closing NUL. */
  text(text) {
    for (const byte of Buffer.from(text)) this.#bytes.push(byte);
    this.#bytes.push(0);
  }

  bytes(bytes) {
    for (const byte of bytes) this.#bytes.push(byte);
  }

  toBuffer() {
    return Buffer.from(this.#bytes);
  }
}
