// What web/build_page.mjs says of the page's files.

/** The pieces of a page that holds a picture: in each, styles part the members, and scripts the parts of those. */
declare const pageFrame: readonly (readonly (readonly string[])[])[];
/** The files of examples/. */
declare const exampleNames: readonly string[];
/** All files, but the service worker, by their addresses, with the hashes of what they hold. */
declare const release: { readonly version: string; readonly files: readonly (readonly [string, string])[] };
