// In the form by which bundlers know that these files belong to the module.
const addresses = {
  'igs.wasm': new URL('./igs.wasm', import.meta.url),
  page_template: new URL('./page_template', import.meta.url),
};

export async function readFile(name: keyof typeof addresses): Promise<Uint8Array<ArrayBuffer>> {
  const response = await fetch(addresses[name]);
  if (!response.ok) throw new Error(`${addresses[name].href} could not be read: status ${response.status}.`);
  return new Uint8Array(await response.arrayBuffer());
}

export const environment = {};
