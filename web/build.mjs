// Bundles the viewer into the template of a page, as a C++ source that is compiled into the program.
//   node build.mjs OUT.cpp
import { writeFileSync } from 'node:fs';
import { viewerBundle } from './bundle.mjs';

/** Literals of no more than 16 kB, which every compiler takes. */
function literals(text) {
  const parts = text.match(/[^]{1,16000}/g) ?? [''];
  return parts.map((part) => JSON.stringify(part).replaceAll('?', '\\?')).join(',\n');
}

const { pieces } = await viewerBundle();
const source = pieces.map((piece) => `{${literals(piece)}}`).join(',\n');
writeFileSync(
  process.argv[2],
  `#include "view/page_template.h"

const std::array<std::vector<std::string_view>, 4>& page_template() {
  static const std::array<std::vector<std::string_view>, 4> pieces{{${source}}};
  return pieces;
}
`,
);
