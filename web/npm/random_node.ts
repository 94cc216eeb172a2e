// Node 18 has no such global, by which the program names what it writes.
export { webcrypto as crypto } from 'node:crypto';
