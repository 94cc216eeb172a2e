import { readFile as readPath } from 'node:fs/promises';

export async function readFile(name: string): Promise<Uint8Array<ArrayBuffer>> {
  return new Uint8Array(await readPath(new URL(name, import.meta.url)));
}

const { SOURCE_DATE_EPOCH } = process.env;
export const environment = SOURCE_DATE_EPOCH === undefined ? {} : { SOURCE_DATE_EPOCH };
