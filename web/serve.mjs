// Serves a folder, and nothing above it, to this machine alone.
//   node serve.mjs FOLDER [PORT]          the first free port from there, 8000 without one
import { createReadStream, realpathSync, statSync } from 'node:fs';
import { createServer } from 'node:http';
import { extname, join, sep } from 'node:path';
import { fileURLToPath } from 'node:url';

const types = {
  '.css': 'text/css',
  '.html': 'text/html',
  '.igs': 'application/octet-stream',
  '.js': 'text/javascript',
  '.wasm': 'application/wasm',
};

/** The path of the file that is asked for; null where the folder has none. */
function fileAt(folder, address) {
  try {
    const { pathname } = new URL(address, 'http://localhost');
    const path = realpathSync(join(folder, decodeURIComponent(pathname).replace(/\/$/, '/index.html')));
    return path.startsWith(realpathSync(folder) + sep) && statSync(path).isFile() ? path : null;
  } catch {
    return null;
  }
}

function answer(folder, request, response) {
  const file = fileAt(folder, request.url);
  if (file === null) return response.writeHead(404).end();
  const type = types[extname(file)] ?? 'application/octet-stream';
  response.writeHead(200, { 'Content-Type': type, 'Cache-Control': 'no-cache', 'X-Content-Type-Options': 'nosniff' });
  if (request.method === 'HEAD') return response.end();
  createReadStream(file)
    .on('error', () => response.destroy())
    .pipe(response);
}

/** A server that listens at one of these ports (0: any); `onRequest` hears of every request. */
export async function serve(folder, { ports = [0], onRequest = () => {} } = {}) {
  const server = createServer((request, response) => {
    onRequest(request);
    answer(folder, request, response);
  });
  for (const port of ports) {
    const isFree = await new Promise((resolve, reject) => {
      const refuse = (error) => (error.code === 'EADDRINUSE' ? resolve(false) : reject(error));
      server.once('error', refuse).listen(port, '127.0.0.1', () => resolve(server.off('error', refuse)));
    });
    if (isFree) return server;
  }
  throw new Error(`Other programs listen at ${ports.join(', ')}.`);
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  const [folder, first = '8000'] = process.argv.slice(2);
  const ports = Array.from({ length: 100 }, (_, i) => Number(first) + i).filter((port) => port < 65536);
  const server = await serve(folder, { ports });
  console.log(`http://127.0.0.1:${server.address().port}/`);
}
