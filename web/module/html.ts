// The pages that the compiled program writes hold their model unpacked, as it has no zlib; here it is deflated.

const begin = '<script type="application/octet-stream" id="model">';
const end = '</script>';

/** Where the model's text begins and ends in a page. What stands before it the program has escaped. */
function placeOfModel(page: Uint8Array): readonly [number, number] {
  const start = find(page, begin, 0) + begin.length;
  return [start, find(page, end, start)];
}

function find(page: Uint8Array, text: string, from: number): number {
  const sought = new TextEncoder().encode(text);
  for (let at = page.indexOf(0x3c, from); at >= 0; at = page.indexOf(0x3c, at + 1)) {
    if (sought.every((byte, i) => page[at + i] === byte)) return at;
  }
  throw new TypeError('This is no page with a model.');
}

/** The packed model of a page, in base64, as the viewer's unpack() takes it. */
export function modelOf(page: Uint8Array): string {
  return new TextDecoder().decode(page.subarray(...placeOfModel(page))).trim();
}

/** The page with its model deflated. */
export async function compactPage(page: Uint8Array<ArrayBuffer>): Promise<Uint8Array<ArrayBuffer>> {
  const [start, stop] = placeOfModel(page);
  const packed = bytesOf(new TextDecoder().decode(page.subarray(start, stop)).trim());
  if (packed[0] !== 0) return page;
  const deflated = new Blob([packed.subarray(1)]).stream().pipeThrough(new CompressionStream('deflate'));
  const model = await new Blob([Uint8Array.of(1), await new Response(deflated).arrayBuffer()]).arrayBuffer();
  const parts = [page.subarray(0, start), ...base64Of(new Uint8Array(model)), page.subarray(stop)];
  return new Uint8Array(await new Blob(parts).arrayBuffer());
}

// Whole groups of both, and no more arguments at a time than engines take.
const group = 3 * 8192;

function bytesOf(base64: string): Uint8Array<ArrayBuffer> {
  const text = atob(base64);
  const bytes = new Uint8Array(text.length);
  for (let i = 0; i < text.length; ++i) bytes[i] = text.charCodeAt(i);
  return bytes;
}

function base64Of(bytes: Uint8Array): string[] {
  const texts: string[] = [];
  for (let at = 0; at < bytes.length; at += group) {
    texts.push(btoa(String.fromCharCode(...bytes.subarray(at, at + group))));
  }
  return texts;
}
