#!/usr/bin/env python3
"""Times reading files to NumPy arrays beside `igs info`, in one run.

    bench/python.py PROGRAM FOLDER-OF-THE-PACKAGE FILE...

Both are whole processes, one after the other in turns; processor time, medians of five. The steps of the reading are those
of one process each: the interpreter and its modules, the file, the list of the splines, their arrays.
"""

from __future__ import annotations

import json
import os
import resource
import statistics
import subprocess
import sys
from pathlib import Path
from typing import Any
from typing import Any

TURNS = 5
STEPS = ("start", "read", "list", "arrays")
READER = """
import json, sys, time
marks = [0.0]
sys.path.insert(0, sys.argv[1])
import igs, numpy
marks.append(time.process_time())
f = igs.read(sys.argv[2])
marks.append(time.process_time())
splines = f.entities.filter(type=(126, 128))
marks.append(time.process_time())
arrays = [(e.degree, e.knots, e.weights, e.control_points) for e in splines]
marks.append(time.process_time())
numbers = sum(points.size for _, _, _, points in arrays)
print(json.dumps({"steps": [b - a for a, b in zip(marks, marks[1:])], "splines": len(arrays), "numbers": numbers}))
"""


def timed(command: list[str]) -> tuple[float, str]:
    """The processor time of a process, in seconds, and what it printed."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    done = subprocess.run(command, check=True, capture_output=True, text=True)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime, done.stdout


def measure(program: str, package: str, file: Path) -> None:
    info: list[float] = []
    reading: list[float] = []
    steps: list[list[float]] = []
    told: dict[str, Any] = {}
    for _ in range(TURNS):
        info.append(timed([program, "info", "--", os.fspath(file)])[0])
        seconds, text = timed([sys.executable, "-c", READER, package, os.fspath(file)])
        reading.append(seconds)
        told = json.loads(text)
        steps.append(told["steps"])
    medians = [statistics.median(times) for times in zip(*steps)]
    ratio = statistics.median(reading) / statistics.median(info)
    print(
        f"{file.name}: {file.stat().st_size / 1e6:.0f} MB, {told['splines']} splines, {told['numbers']} coordinates"
    )
    print(f"  igs info  {statistics.median(info):7.3f} s")
    print(f"  to NumPy  {statistics.median(reading):7.3f} s, {ratio:.2f} times igs info")
    within = sum(medians[1:])
    print(
        f"  without the start of Python {within:.3f} s, {within / statistics.median(info):.2f} times igs info"
    )
    print("  " + ", ".join(f"{name} {seconds:.3f} s" for name, seconds in zip(STEPS, medians)))


def main() -> None:
    if len(sys.argv) < 4:
        sys.exit(str(__doc__))
    program, package, *files = sys.argv[1:]
    for file in files:
        measure(program, package, Path(file))


if __name__ == "__main__":
    main()
