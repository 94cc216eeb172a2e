import { start } from './start.ts';

start();
