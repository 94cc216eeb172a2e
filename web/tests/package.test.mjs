// The package igs-check (IGS_PACKAGE, a tarball) in an empty project, held against the native program (IGS_PROGRAM).
import assert from 'node:assert/strict';
import { execFile, spawnSync } from 'node:child_process';
import {
  copyFileSync,
  mkdirSync,
  mkdtempSync,
  readdirSync,
  readFileSync,
  rmSync,
  writeFileSync,
  statSync,
} from 'node:fs';
import { createServer } from 'node:http';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, test } from 'node:test';
import { fileURLToPath, pathToFileURL } from 'node:url';
import { promisify } from 'node:util';
import { gzipSync, inflateSync } from 'node:zlib';
import { chromium } from 'playwright-core';

process.env.SOURCE_DATE_EPOCH = '1800000000'; // dates of a file are checked against it;
const program = process.env.IGS_PROGRAM;
const tarball = process.env.IGS_PACKAGE;
assert.ok(program && tarball, 'IGS_PROGRAM and IGS_PACKAGE name what to test');

const folder = mkdtempSync(join(tmpdir(), 'igs-package-'));
after(() => rmSync(folder, { recursive: true }));

function run(command, words, options = {}) {
  const { status, stdout, stderr } = spawnSync(command, words, { cwd: folder, maxBuffer: 2 ** 30, ...options });
  return { status, output: stdout.toString(), complaints: stderr.toString() };
}

function done(command, ...words) {
  const { status, output, complaints } = run(command, words);
  assert.equal(status, 0, complaints + output);
  return output;
}

writeFileSync(join(folder, 'package.json'), '{"private": true, "type": "module"}');
done('npm', 'install', tarball, '--offline', '--no-audit', '--no-fund');
const installed = join(folder, 'node_modules/igs-check');
const { check, repair, info, view } = await import(pathToFileURL(join(installed, 'node.js')).href);

const examples = fileURLToPath(new URL('../../examples/', import.meta.url));
const names = readdirSync(examples).filter((name) => name.endsWith('.igs'));
for (const name of names) copyFileSync(examples + name, join(folder, name));
const bytesOf = (name) => readFileSync(join(folder, name));

// C libraries differ in the last digits of what is measured, and so in which of equal distances is the largest.
const real = /(?<![\w.])-?\d+\.\d+(?:e[-+]?\d+)?|-?\d+e[-+]?\d+/g;
const isMeasured = (member) => /^igsShape/.test(member?.class);
const withoutPlace = (_key, member) => (isMeasured(member) ? { ...member, values: [], message: '' } : member);
const rounded = (value) =>
  JSON.stringify(value, withoutPlace).replace(real, (number) => (Number(number) + 0).toExponential(7));

const runAside = promisify(execFile);

/** Holds check, info and repair of a file in the folder against what the program prints and writes. */
async function compare(name) {
  const bytes = bytesOf(name);
  const same = async (call, ...words) => {
    const options = { cwd: folder, maxBuffer: 2 ** 30 };
    const printed = runAside(program, [...words, '--format=json', name], options).catch((error) => error);
    const result = await call();
    const { stdout, stderr } = await printed;
    assert.ok(stdout, stderr);
    const { bytes: _repaired, ...report } = result;
    assert.equal(rounded(report), rounded(JSON.parse(stdout)), `${words[0]} ${name}`);
    return result;
  };
  await same(() => check(bytes, { name }), 'check');
  await same(() => info(bytes, { name, geometry: true }), 'info', '--geometry');
  const asked = ['repair', `--output=${name}`, '--summary', '--salvage', '--no-geometry'];
  const report = await same(() => repair(bytes, { name, summary: true, salvage: true, noGeometry: true }), ...asked);
  if (report.written) assert.ok(Buffer.from(report.bytes).equals(bytesOf(name)), `the repaired ${name}`);
  else assert.equal(report.bytes ?? null, null);
  writeFileSync(join(folder, name), bytes);
  return report;
}

test('check, info and repair give what the program gives', async () => {
  const whole = readFileSync(examples + 'bracket-faulty.igs');
  writeFileSync(join(folder, 'cut.igs'), whole.subarray(0, whole.length / 2));
  writeFileSync(join(folder, 'archive.igs'), 'PK\x03\x04');
  const reports = [];
  for (const name of [...names, 'cut.igs', 'archive.igs']) reports.push(await compare(name));
  assert.ok(reports.filter(({ written }) => written).length >= names.length);
  assert.deepEqual(reports.at(-1), { file: 'archive.igs', error: 'not an IGES file: it is a zip archive' });
});

test('pictures are those of the program', async () => {
  /** The page without its model, and this unpacked. */
  const partsOf = (page) => {
    const [, before, model, behind] = /^([^]*id="model">)([^<]*)([^]*)$/.exec(page);
    const packed = Buffer.from(model, 'base64');
    assert.equal(packed[0], 1, 'the model is packed');
    return [Buffer.from(before), inflateSync(packed.subarray(1)), Buffer.from(behind)];
  };
  for (const name of ['flange.igs', 'drawing-faulty.igs']) {
    for (const format of ['glb', 'svg', 'html']) {
      const picture = Buffer.from(await view(bytesOf(name), { name, format, chord: 0.5 }));
      done(program, 'view', '--chord=0.5', '--output', `picture.${format}`, name);
      const wanted = bytesOf(`picture.${format}`);
      const [had, has] = format === 'html' ? [partsOf(picture), partsOf(wanted)] : [[picture], [wanted]];
      assert.deepEqual(
        had.map((part, i) => part.equals(has[i])),
        has.map(() => true),
        `${format} of ${name}`,
      );
    }
  }
  await assert.rejects(view(Buffer.from('PK\x03\x04'), { format: 'svg' }), /it is a zip archive/);
  const picture = await view(bytesOf('flange.igs'), { name: 'picture', format: 'svg' });
  assert.match(Buffer.from(picture).toString(), /<svg/, 'whatever the file is called');
});

test('bytes come in several kinds, at the same time, with names and options of any kind', async () => {
  const bytes = bytesOf('box-faulty.igs');
  const buffer = bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.length);
  const kinds = [bytes, buffer, new Blob([bytes]), gzipSync(bytes)];
  const before = Buffer.from(bytes);
  const reports = await Promise.all(kinds.map((kind) => check(kind)));
  assert.equal(reports[0].counts.error, 4);
  for (const report of reports) assert.deepEqual(report, reports[0]);
  await assert.rejects(check('box.igs'), TypeError);

  const damaged = gzipSync(bytes).subarray(0, 200);
  assert.match((await check(damaged)).error, /gzip data are damaged/);
  const callsThem = { '../../etc/a.igs': 'a.igs', '..': 'file...igs', '-': 'file-.igs', 'a\nb\ud800': 'a_b\ufffd' };
  for (const [name, file] of Object.entries(callsThem)) assert.equal((await repair(bytes, { name })).written, file);
  assert.ok(bytes.equals(before), 'the bytes are left alone');

  const { errors } = await check(bytes, {
    ignore: ['igs190*', '*510*'],
    only: undefined,
    noGeometry: true,
    maxErrors: 1,
  });
  assert.deepEqual([errors.length, errors[0].class], [1, 'igs514OrientatedFaceInvalidOrientation']);
  const wrong = {
    nonsense: true,
    help: true,
    output: 'x',
    inPlace: true,
    digits: 99,
    set: ['x'],
    format: 'text',
    '': true,
  };
  for (const [key, value] of Object.entries(wrong)) {
    await assert.rejects(repair(bytes, { [key]: value }), (error) => {
      assert.ok(error instanceof TypeError && error.message && !error.message.includes('--help'), `${key}: ${error}`);
      return true;
    });
  }
});

test('the command does what igs check does', () => {
  mkdirSync(join(folder, 'sub/empty'), { recursive: true });
  copyFileSync(join(folder, 'curves-faulty.igs'), join(folder, 'sub/a b.IGES'));
  writeFileSync(join(folder, 'sub/packed.igs.gz'), gzipSync(bytesOf('flange-faulty.igs')));
  writeFileSync(join(folder, 'sub/igs.toml'), 'severity = ["igs110*=note"]\n');
  writeFileSync(join(folder, 'sub/list'), 'a b.IGES\0../box.igs\0');
  const at = (cwd, ...words) => [words, { cwd: join(folder, cwd), input: bytesOf('drawing-faulty.igs') }];
  const calls = [
    at('.', 'box.igs'),
    at('.', '--format', 'json', '--ignore=*190*', 'box-faulty.igs', join(folder, 'curves.igs'), './box.igs'),
    at('.', '--all', 'box-faulty.igs', 'missing.igs', 'sub', 'archive.igs', '-q'),
    at('.', '-r', '--format=sarif', 'sub', 'sub/empty'),
    at('sub', '--color=always', 'a b.IGES', '../box.igs', '-'),
    at('sub', '--files-from', 'list'),
    at('.', '--nonsense'),
    at('.'),
  ];
  for (const [words, options] of calls) {
    const result = run(join(folder, 'node_modules/.bin/igs-check'), words, options);
    const wanted = run(program, ['check', ...words], options);
    const complaints = wanted.complaints.replace('Run igs check', 'Run igs-check');
    assert.deepEqual(
      { ...result, output: result.output.replace(real, '') },
      { ...wanted, complaints, output: wanted.output.replace(real, '') },
    );
  }
  const { version } = JSON.parse(readFileSync(join(installed, 'package.json'), 'utf8'));
  assert.equal(done('npx', '--offline', 'igs-check', '--version'), `igs-check ${version}\n`);
  assert.match(done('npx', '--offline', 'igs-check', '--help'), /^Usage: igs-check \[OPTION\][^]*--ignore PATTERN/);
});

test('what the README says is so', () => {
  const readme = readFileSync(join(installed, 'README.md'), 'utf8');
  copyFileSync(join(folder, 'box-faulty.igs'), join(folder, 'part.igs'));
  const shown = /^    \$ npx (igs-check part.igs)\n((?:    .*\n)+)/m.exec(readme);
  const { output } = run('npx', ['--offline', ...shown[1].split(' ')]);
  assert.equal(output, shown[2].replaceAll(/^    /gm, ''));
  const [, script, printed] = /```js\n([^]*?)```[^]*?```text\n([^]*?)```/.exec(readme);
  writeFileSync(join(folder, 'readme.js'), script);
  assert.equal(done('node', 'readme.js'), printed);
});

test('its types are those that TypeScript wants', () => {
  const source = `import { check, info, repair, view, type Finding, type Geometry } from 'igs-check';
const bytes = new Uint8Array();
const report = await check(bytes.buffer, { ignore: 'igs1*', maxErrors: 3 });
const findings: readonly Finding[] = 'error' in report ? [] : report.errors;
const repaired = await repair(new Blob([bytes]), { lineEnds: 'crlf', summary: true });
const content: Uint8Array | null = 'error' in repaired ? null : repaired.bytes;
const measured = await info(bytes, { geometry: true });
const geometry: Geometry | undefined = 'error' in measured ? undefined : measured.geometry;
const picture: Uint8Array = await view(bytes, { format: 'glb', chord: 0.1 });
console.log(findings, content, geometry?.box?.[1][2], picture);
// @ts-expect-error: a path is no content
await check('part.igs');
// @ts-expect-error: there is no such format
await view(bytes, { format: 'pdf' });
// @ts-expect-error: it may have failed
console.log(report.counts);
`;
  writeFileSync(join(folder, 'consumer.ts'), source);
  const tsc = fileURLToPath(new URL('../node_modules/.bin/tsc', import.meta.url));
  for (const kind of ['nodenext', 'bundler']) {
    const modules = kind === 'bundler' ? 'esnext' : kind;
    done(
      tsc,
      '--strict',
      '--noEmit',
      '--target',
      'es2022',
      '--module',
      modules,
      '--moduleResolution',
      kind,
      'consumer.ts',
    );
  }
});

test('browsers run it', async () => {
  const server = createServer((request, response) => {
    const name = request.url.slice(1);
    const type = name.endsWith('.js') ? 'text/javascript' : 'text/html';
    const content =
      name === ''
        ? '<!doctype html><link rel="icon" href="data:," />'
        : readFileSync(join(name.endsWith('.igs') ? folder : installed, name));
    response.writeHead(200, { 'content-type': type }).end(content);
  });
  await new Promise((ready) => server.listen(0, '127.0.0.1', ready));
  const executablePath = process.env.CHROMIUM ?? '/usr/bin/chromium';
  const browser = await chromium.launch({ executablePath, args: ['--no-sandbox'] });
  try {
    const page = await browser.newPage();
    await page.goto(`http://127.0.0.1:${server.address().port}/`);
    const result = await page.evaluate(async () => {
      const { repair, view } = await import('/browser.js');
      const blob = await (await fetch('/box-faulty.igs')).blob();
      const { bytes, ...report } = await repair(blob, { name: 'box-faulty.igs' });
      return [report, new TextDecoder().decode(bytes), (await view(blob, { format: 'html' })).length];
    });
    const { bytes, ...report } = await repair(bytesOf('box-faulty.igs'), { name: 'box-faulty.igs' });
    assert.deepEqual(result.slice(0, 2), [report, Buffer.from(bytes).toString()]);
    assert.ok(result[2] > 500_000);
  } finally {
    await browser.close();
    server.close();
  }
});

test('real files', { skip: !process.env.IGES_CORPUS }, async () => {
  const corpus = process.env.IGES_CORPUS;
  const most = 1e6; // bytes: the larger ones take most of the time
  const real = readdirSync(corpus).filter((name) => /\.ige?s$/i.test(name) && statSync(join(corpus, name)).size < most);
  assert.ok(real.length > 0);
  for (const name of real) {
    copyFileSync(join(corpus, name), join(folder, name));
    await compare(name);
    rmSync(join(folder, name));
  }
});
