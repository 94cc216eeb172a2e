// What Emscripten leaves out: programs see the environment that node was given.
Module['preRun'] = [() => Object.assign(ENV, process.env)];
