"""What the tests of archives share: files, some of them spoilt, and the table that they come to."""

import os
import sqlite3
import subprocess
import sys
import time
from collections.abc import Callable, Mapping, Sequence
from contextlib import closing
from pathlib import Path
from typing import Any

ROOT = Path(__file__).resolve().parents[3]
ARCHIVE = ROOT / "examples/archive"
EXAMPLES = sorted((ROOT / "examples").glob("*.igs"))
sys.path.insert(0, str(ARCHIVE))

import igs_program  # noqa: E402

# The program, but that it crashes at one name and, while there is a file `spoil`, at another one the task
# that called it is killed, and at a third one it hangs.
SPOILT_IGS = """#!/bin/sh
[ "$1" = check ] || exec {igs} "$@"
names=$(tr '\\0' '\\n')
case $names in *hostile*) kill -SEGV $$ ;; esac
[ ! -e {folder}/spoil ] || case $names in
  *kills*) kill -KILL $PPID ;;
  *hangs*) echo $$ $PPID >{folder}/hangs; exec sleep 60 ;;
esac
printf '%s\\n' "$names" | {igs} "$@"
"""
TABLE = (
    "SELECT files.id, name, error, read, entities, units, errors, warnings, notes, findings.*"
    " FROM files LEFT JOIN findings ON file = files.id ORDER BY files.id, findings.rowid"
)
Rows = list[tuple[Any, ...]]


def run(*command: object, status: int = 0, stdin: bytes = b"", **environment: str) -> str:
    words, variables = [str(word) for word in command], os.environ | environment
    done = subprocess.run(words, input=stdin, capture_output=True, env=variables)
    assert done.returncode == status, done.stderr.decode()
    return done.stdout.decode() + ("" if status == 0 else done.stderr.decode())


def rows(database: Path, query: str = TABLE) -> Rows:
    with closing(sqlite3.connect(database)) as connection:
        return connection.execute(query).fetchall()


def wait_for(condition: Callable[[], object]) -> None:
    end = time.monotonic() + 60
    while not condition():
        assert time.monotonic() < end
        time.sleep(0.05)


def listed(names: Sequence[str]) -> bytes:
    return b"".join(os.fsencode(name) + b"\0" for name in names)


def make_files(folder: Path, special: Mapping[int, str]) -> list[str]:
    """200 files, all of other contents, every third one damaged; some have a word in their name."""
    result = []
    for number in range(200):
        content = EXAMPLES[number % len(EXAMPLES)].read_bytes()
        cut = len(content) * (number % 7 + 1) // 9 if number % 3 == 0 else len(content)
        path = folder / f"{number:03} {special.get(number, 'a')}'s \"file\".igs"
        path.write_bytes(b"%08d" % number + content[8:cut])
        result.append(str(path))
    return result


def cut_spoilt(folder: Path, results: Path, names: Sequence[str]) -> Path:
    """Cuts the list into batches of ten for a program that is spoilt, and returns that."""
    igs = folder / "igs"
    igs.write_text(SPOILT_IGS.format(igs=igs_program.find_igs(), folder=folder))
    igs.chmod(0o755)
    (folder / "spoil").touch()
    cut = [ARCHIVE / "batches.py", "cut", results, "--size", 10, "--files-from", "-"]
    assert run(*cut, stdin=listed(names), IGS=str(igs)) == f"{len(names) // 10}\n"
    return igs


def check_table(folder: Path, results: Path, names: Sequence[str]) -> None:
    """The table is that of the program alone, but for the one file that it crashes at."""
    check = [igs_program.find_igs(), "check", *igs_program.FIXED_OPTIONS]
    alone = subprocess.run(check, input=listed(names), stdout=subprocess.PIPE).stdout
    run(ARCHIVE / "to_sqlite.py", folder / "alone.sqlite", stdin=alone)
    found = rows(results / "findings.sqlite")
    [hostile] = [row for row in found if "hostile" in str(row[1])]
    assert hostile[2] == "igs was ended by signal 11"
    # What was ended before its last line leaves the table of before.
    run(ARCHIVE / "to_sqlite.py", folder / "alone.sqlite", stdin=alone[:-9], status=1)
    assert not list(folder.glob(".*"))
    expected = [row for row in rows(folder / "alone.sqlite") if "hostile" not in str(row[1])]
    assert len(expected) > len(names) and [row for row in found if row != hostile] == expected


def part_files(results: Path) -> dict[Path, int]:
    """The parts, and whether they are the same as before."""
    return {path: path.stat().st_ino for path in results.glob("parts/*.ndjson")}
