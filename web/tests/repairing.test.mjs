// What the page keeps of repairs and calls their files, without a browser.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { viewer } from './viewer.mjs';

const { nameWithEnding, repairedName, repairedSource, Session } = await viewer('../page/save', '../page/session');

test('what is saved is named after the file, and its name is no path', () => {
  const names = {
    'part.igs': 'part-repaired.igs',
    'Part 1.IGS': 'Part 1-repaired.IGS',
    'a.b.iges': 'a.b-repaired.iges',
    'part.igs.gz': 'part-repaired.igs',
    'part.step': 'part.step-repaired.igs',
    '../../etc/passwd': 'passwd-repaired.igs',
    'C:\\parts\\x.iges': 'x-repaired.iges',
    'a\u202esgi.exe\n.igs': 'a_sgi.exe_-repaired.igs',
    '.igs': 'file-repaired.igs',
  };
  for (const [name, wanted] of Object.entries(names)) assert.equal(repairedName(name), wanted);
  assert.equal(repairedName(`${'x'.repeat(1000)}.igs`).length, 213);
  assert.equal(nameWithEnding('dir/part.IGS', 'glb'), 'part.glb');
});

/** A workshop that answers when the test says so: answers.repair[0].resolve(…). */
function makeWorkshop() {
  const answers = {};
  const ask = (call) => () =>
    new Promise((resolve, reject) => {
      (answers[call] ??= []).push({ resolve, reject });
    });
  return { answers, workshop: { check: ask('check'), repair: ask('repair'), picture: ask('picture') } };
}

async function sessionWithPart() {
  const { answers, workshop } = makeWorkshop();
  const session = new Session(workshop);
  session.add([{ name: 'part.igs', bytes: new Blob(['old']) }]);
  answers.check[0].resolve({ errors: [] });
  await settled();
  return { answers, session, id: session.state.chosen };
}

const settled = () => new Promise((resolve) => setTimeout(resolve));
const repaired = (text) => ({ bytes: new TextEncoder().encode(text) });

test('jobs on one file do not disturb each other', async () => {
  const { answers, session, id } = await sessionWithPart();
  void session.draw(id);
  void session.draw(id);
  void session.repair(id, {});
  assert.deepEqual(session.part.jobs, ['picture', 'repair']);
  answers.picture[0].reject(new Error('Stopped.'));
  await settled();
  assert.deepEqual(session.part.jobs, ['repair']);
  assert.equal(session.part.doing, 'Repairing');
  assert.equal(session.part.failures.picture, 'Stopped.');
  assert.equal(session.part.failure, '', 'the findings are as good as before');
  assert.equal(answers.picture.length, 1, 'one picture was asked for');
});

test('a comparison belongs to the repair that it was made for', async () => {
  const { answers, session, id } = await sessionWithPart();
  void session.repair(id, {});
  answers.repair[0].resolve(repaired('first'));
  await settled();
  void session.compare(id);
  void session.repair(id, { deleteFaulty: true });
  answers.repair[1].resolve(repaired('second'));
  await settled();
  answers.picture[0].resolve('of the first');
  await settled();
  assert.equal(session.part.comparison, null);
  assert.equal(await repairedSource(session.part).bytes.text(), 'second');
  void session.compare(id);
  answers.picture[1].resolve('of the second');
  await settled();
  assert.equal(session.part.comparison, 'of the second');
});
