// The page with limits that tests can reach.
import { start } from '../page/start.ts';

start({ bytes: 2 * 1024 * 1024, seconds: 2, secondsPerMegabyte: 100 });
