// Files may come packed by gzip, which the compiled program cannot read.

/** More than this is not unpacked: what is so much larger than it looks is hostile. */
export const mostUnpacked = 512 * 1024 * 1024;

/** Cannot be unpacked; the message says why, as the program does. */
export class DamagedGzip extends Error {
  override readonly name = 'DamagedGzip';
}

/** The bytes themselves, or those that gzip packed into them. Rejects with DamagedGzip. */
export async function unpacked(bytes: Uint8Array): Promise<Uint8Array> {
  if (bytes[0] !== 0x1f || bytes[1] !== 0x8b) return bytes;
  const stream = new Blob([bytes as Uint8Array<ArrayBuffer>]).stream().pipeThrough(new DecompressionStream('gzip'));
  const parts: Uint8Array<ArrayBuffer>[] = [];
  let size = 0;
  for (const reader = stream.getReader(); ; ) {
    const { done, value } = await reader.read().catch((error: unknown) => {
      throw new DamagedGzip('not read to its end: its gzip data are damaged', { cause: error });
    });
    if (done) return new Uint8Array(await new Blob(parts).arrayBuffer());
    size += value.length;
    parts.push(value);
    if (size <= mostUnpacked) continue;
    void reader.cancel().catch(() => undefined);
    throw new DamagedGzip('not read to its end: it unpacks to more than 512 MiB');
  }
}
