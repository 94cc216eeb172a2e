// What stands beside the module: files_node.ts or files_browser.ts, whichever a bundle is for.
declare module 'igs-files' {
  export function readFile(name: 'igs.wasm' | 'page_template'): Promise<Uint8Array<ArrayBuffer>>;
  /** Environment variables that the program sees. */
  export const environment: Readonly<Record<string, string>>;
}
