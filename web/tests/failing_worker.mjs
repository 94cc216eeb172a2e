// The worker, but files of two names are too much for it.
import '../page/worker.ts';

addEventListener('message', ({ data }) => {
  const name = data.source?.name;
  if (name === 'endless.igs') for (;;);
  if (name === 'crash.igs') throw new Error('This worker fails.');
});
