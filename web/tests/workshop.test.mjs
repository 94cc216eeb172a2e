// In which order the page's jobs are done, with workers that answer when a test says so.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { viewer } from './viewer.mjs';

const { WorkshopClient } = await viewer('../page/workshop_client');

class Worker extends EventTarget {
  jobs = [];
  ended = false;

  postMessage(job) {
    this.jobs.push(job);
  }

  terminate() {
    this.ended = true;
  }

  answer(data) {
    this.dispatchEvent(new MessageEvent('message', { data }));
  }
}

const source = (name) => ({ name, bytes: new Blob(['S']) });

/** A workshop, its workers so far, and the names of the files that the last busy one of them was given. */
function workshop(limits) {
  const workers = [];
  const client = new WorkshopClient(() => {
    workers.push(new Worker());
    return workers.at(-1);
  }, limits);
  const given = () => workers.findLast(({ jobs }) => jobs.length > 0).jobs.map((job) => job.source?.name ?? job.call);
  return { client, workers, given };
}

test('answers come before pictures, and those before what is done ahead', async () => {
  const { client, workers, given } = workshop();
  const done = [client.check(source('first'), {}), client.warmUp([source('ahead')])];
  done.push(client.picture(source('picture'), {}), client.check(source('second'), {}));
  assert.deepEqual(given(), ['first'], 'one at a time');
  let isOver = false;
  const results = Promise.all(done).finally(() => (isOver = true));
  for (let i = 0; !isOver; ++i) {
    workers[0].answer({ result: i });
    await new Promise(setImmediate);
  }
  assert.deepEqual(given().slice(0, 4), ['first', 'second', 'picture', 'warmUp']);
  assert.deepEqual(await results, [0, undefined, 2, 1]);
  assert.equal(workers.length, 2, 'with one for whoever interrupts the picture');
});

test('a picture that is being drawn makes room, and is drawn afterwards', async () => {
  const { client, workers, given } = workshop();
  const picture = client.picture(source('picture'), {});
  const check = client.check(source('check'), {});
  assert.ok(workers[0].ended);
  workers[0].answer({ result: 'late' });
  workers[1].answer({ result: 'checked' });
  assert.equal(await check, 'checked');
  assert.deepEqual(given(), ['check', 'picture']);
  workers[1].answer({ result: 'drawn' });
  assert.equal(await picture, 'drawn');
});

test('what is stopped ends, whether it is being done or waits, and nothing else does', async () => {
  const { client, workers, given } = workshop();
  const [stopped, other] = [source('stopped'), source('other')];
  const ended = [client.check(stopped, {}), client.picture(stopped, {}), client.picture(other, {}, stopped)];
  const kept = client.check(other, {});
  client.stop(stopped);
  for (const job of ended) await assert.rejects(job, { name: 'JobEnded', message: 'Stopped.' });
  assert.ok(workers[0].ended);
  assert.deepEqual(given(), ['other']);
  workers[1].answer({ result: 'checked' });
  assert.equal(await kept, 'checked');
});

test('a worker that has failed is made anew for the next job', async () => {
  const { client, workers } = workshop({ bytes: 1, seconds: 0.05, secondsPerMegabyte: 0 });
  const fails = async (promise, message) => assert.rejects(promise, { name: 'JobEnded', message });
  const failed = fails(client.check(source('failure'), {}), /^Out of memory\.$/);
  workers[0].answer({ failure: 'Out of memory.' });
  await failed;
  await fails(client.check(source('slow'), {}), /longer than 0 seconds/);
  const crashed = fails(client.check(source('crash'), {}), /too much/);
  workers[2].dispatchEvent(new Event('error'));
  await crashed;
  await fails(client.check({ name: 'large', bytes: new Blob(['SS']) }, {}), /larger than/);
  assert.deepEqual(
    workers.map(({ ended }) => ended),
    [true, true, true],
  );
});
