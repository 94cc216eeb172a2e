#!/usr/bin/python3
"""Checks an archive of IGES files in batches: cut the list once, run the batches anywhere, gather what they found.

    batches.py cut RESULTS --files-from LIST [--size N] [--seconds N] [--memory MIB] [-- CHECK-OPTION...]
    batches.py run RESULTS NUMBER...
    batches.py gather RESULTS

RESULTS is a folder that all machines see. `run` may be called for any batches, at any time, on any machine, twice as
well: a batch's part takes its name when it is whole. What was gathered is not checked again, under whichever name.
"""

import argparse
import contextlib
import hashlib
import itertools
import json
import os
import shutil
import sqlite3
import stat
import sys
import time
import zlib
from collections.abc import Iterable, Iterator, Sequence
from dataclasses import asdict, dataclass, field
from pathlib import Path
from typing import Any

from igs_program import Limits, igs_version, refuse_unusable, reports
from to_sqlite import Findings, open_unnamed, replacing

MOST_BATCHES = 100_000  # a folder has to hold their lists


@dataclass(frozen=True)
class Plan:
    """What is to be checked, and how; the same on all machines."""

    results: Path
    version: str
    options: tuple[str, ...]
    size: int
    files: int
    batches: int
    names: str  # a digest of all names
    limits: Limits = field(default_factory=Limits)

    def key(self, sha256: str) -> str:
        """Under which the report of a content is known."""
        return hashlib.sha256(json.dumps([sha256, self.version, self.options]).encode()).hexdigest()

    def list_file(self, number: int) -> Path:
        return self.results / f"batches/{number:06}.list"

    def part_file(self, number: int) -> Path:
        return self.results / f"parts/{number:06}.ndjson"


@dataclass(frozen=True)
class BatchDone:
    """What a batch came to; all is 0 where its part was there already."""

    number: int
    files: int = 0
    checked: int = 0
    known: int = 0
    failed: int = 0
    seconds: float = 0.0


@dataclass(frozen=True)
class Gathered:
    files: int
    findings: int
    failed: int
    missing: list[int]


def listed_names(list_bytes: bytes) -> Iterator[str]:
    """The names in a list as igs reads one: between NUL characters when it has any, a line each otherwise."""
    separator = b"\0" if b"\0" in list_bytes else b"\n"
    begin = 0
    while begin < len(list_bytes):
        end = list_bytes.find(separator, begin)
        end = end if end >= 0 else len(list_bytes)
        name = list_bytes[begin:end]
        name = name.removesuffix(b"\r") if separator == b"\n" else name
        if name:
            yield os.fsdecode(name)
        begin = end + 1


def cut(
    results: Path,
    names: Iterable[str],
    size: int = 100,
    options: Sequence[str] = (),
    limits: Limits = Limits(),
) -> Plan:
    """Makes a plan; that of before goes on where it is the same, and what it found is gathered where it is not."""
    refuse_unusable(options)
    here = Path.cwd()
    # Absolute: a batch may be run from any folder, and no name begins with "-".
    wanted = list(dict.fromkeys(str(here / name) for name in names))
    batches = -(-len(wanted) // size)
    if batches > MOST_BATCHES:
        raise ValueError(
            f"these are {batches} batches; of {-(-len(wanted) // MOST_BATCHES)} files or more each they fit"
        )
    digest = hashlib.sha256()
    for name in wanted:
        digest.update(os.fsencode(name) + b"\0")
    plan = Plan(
        results.resolve(),
        igs_version(),
        tuple(options),
        size,
        len(wanted),
        batches,
        digest.hexdigest(),
        limits,
    )
    if (results / "plan.json").exists():
        if load_plan(results) == plan:
            return plan
        gather(results)
        (results / "plan.json").unlink()
    _write_lists(plan, wanted)
    with replacing(results / "plan.json") as path:
        path.write_text(json.dumps(asdict(plan), default=str))
    return plan


def _write_lists(plan: Plan, names: Sequence[str]) -> None:
    for folder, pattern in (("batches", "*.list"), ("parts", "*.ndjson*"), (".", ".*.sqlite.*")):
        (plan.results / folder).mkdir(parents=True, exist_ok=True)
        for old in (plan.results / folder).glob(pattern):  # temporary ones, too
            old.unlink()
    for number in range(plan.batches):
        batch = names[number * plan.size : (number + 1) * plan.size]
        plan.list_file(number).write_bytes(b"".join(os.fsencode(name) + b"\0" for name in batch))


def load_plan(results: Path) -> Plan:
    values = json.loads((results / "plan.json").read_text())
    changed = {
        "results": results.resolve(),
        "options": tuple(values["options"]),
        "limits": Limits(**values["limits"]),
    }
    return Plan(**{**values, **changed})


def missing(results: Path) -> list[int]:
    """The batches that have no part yet."""
    done = set(os.listdir(results / "parts"))
    plan = load_plan(results)
    return [number for number in range(plan.batches) if plan.part_file(number).name not in done]


def run_batch(results: Path, number: int) -> BatchDone:
    """Checks the files of a batch, those alone whose content is not known, and writes its part."""
    start = time.monotonic()
    plan = load_plan(results)
    if plan.part_file(number).exists():
        return BatchDone(number)
    if plan.version != igs_version():
        raise RuntimeError(f"the plan was made for {plan.version}, here is {igs_version()}")
    names = list(listed_names(plan.list_file(number).read_bytes()))
    counts = {"checked": 0, "known": 0, "failed": 0}
    with replacing(plan.part_file(number)) as path:
        with path.open("wb") as part:
            for line, kind in _lines(plan, names):
                part.write(line)
                counts[kind] += 1
        if load_plan(results) != plan:
            raise RuntimeError("the plan was changed meanwhile")
    return BatchDone(number, len(names), **counts, seconds=time.monotonic() - start)


@dataclass
class _Content:
    """Of a file; `state` changes when it is written to."""

    name: str
    sha256: str = ""
    key: str = ""
    state: tuple[int, ...] = ()
    error: str = ""


def _lines(plan: Plan, names: Sequence[str]) -> Iterator[tuple[bytes, str]]:
    """The lines of a part, one for each name in its turn, each with what kind it counts as."""
    contents = [_content(plan, name) for name in names]
    done = _known(plan, contents)
    first = {
        content.key: content for content in reversed(contents) if content.key and content.key not in done
    }
    todo = [content.name for content in contents if first.get(content.key) is content]
    said = reports(todo, plan.options, plan.limits)
    failures: dict[str, str] = {}
    for content in contents:
        error = content.error or failures.get(content.key, "")
        if not error and content.key not in done:
            report, error = next(said)
            error = error or _change(content)
            if not error:
                done.add(content.key)
                yield _line(content, b'"report": ' + report), "checked"
                continue
            failures[content.key] = error
        if error:
            yield _line(content, b'"error": ' + json.dumps(error).encode()), "failed"
        else:
            yield _line(content, b'"known": true'), "known"


def _line(content: _Content, rest: bytes) -> bytes:
    values = {"file": content.name, "key": content.key, "sha256": content.sha256}
    return json.dumps(values)[:-1].encode() + b", " + rest + b"}\n"


def _open_at_once(name: str, flags: int) -> int:
    """A pipe must not keep the batch waiting for somebody to write to it."""
    return os.open(name, flags | os.O_NONBLOCK)


def _content(plan: Plan, name: str) -> _Content:
    try:
        with open(name, "rb", buffering=0, opener=_open_at_once) as file:
            state = os.fstat(file.fileno())
            if not stat.S_ISREG(state.st_mode):
                return _Content(name, error="it is no regular file")
            sha256 = hashlib.file_digest(file, "sha256").hexdigest()  # type: ignore[arg-type]
        return _Content(name, sha256, plan.key(sha256), _state(state))
    except OSError as error:
        return _Content(name, error=error.strerror or str(error))


def _state(found: os.stat_result) -> tuple[int, ...]:
    return found.st_dev, found.st_ino, found.st_size, found.st_mtime_ns


def _change(content: _Content) -> str:
    """What igs has read must be what the key stands for."""
    try:
        return "" if _state(os.stat(content.name)) == content.state else "it changed while it was checked"
    except OSError as error:
        return error.strerror or str(error)


def _known(plan: Plan, contents: Iterable[_Content]) -> set[str]:
    """The keys among these whose reports are gathered already."""
    if not (plan.results / "known.sqlite").exists():
        return set()
    # It is replaced as a whole and never written to, so that no lock is needed, which network file systems may lack.
    place = (plan.results / "known.sqlite").as_uri() + "?mode=ro&immutable=1"
    with contextlib.closing(sqlite3.connect(place, uri=True)) as known:
        find = "SELECT 1 FROM known WHERE key = ?"
        keys = {content.key for content in contents if content.key}
        return {key for key in keys if known.execute(find, (bytes.fromhex(key),)).fetchone()}


def gather(results: Path) -> Gathered:
    """Makes findings.sqlite of all parts, and adds their reports to what is known."""
    plan = load_plan(results)
    old = plan.results / "known.sqlite"
    with replacing(plan.results / "findings.sqlite") as path, replacing(old) as copy:
        if old.exists():
            shutil.copyfile(old, copy)
        known = open_unnamed(copy)
        known.execute("CREATE TABLE IF NOT EXISTS known (key BLOB PRIMARY KEY, report BLOB NOT NULL)")
        known.execute("BEGIN")
        findings = Findings(path)
        gone = [number for number in range(plan.batches) if not _gather_part(plan, number, findings, known)]
        sums = (
            findings.count("files"),
            findings.count("findings"),
            findings.count("files WHERE error IS NOT NULL"),
        )
        known.execute("COMMIT")
        known.close()
        findings.close()
    return Gathered(*sums, missing=gone)


def _gather_part(plan: Plan, number: int, findings: Findings, known: sqlite3.Connection) -> bool:
    """False where there is no part, or one that is not what the plan asks for, which goes."""
    try:
        with plan.part_file(number).open("rb") as part, _undone(findings.database), _undone(known):
            names = listed_names(plan.list_file(number).read_bytes())
            for name, line in itertools.zip_longest(names, part):
                _gather_line(plan, name, json.loads(line), findings, known)
    except FileNotFoundError:
        return False
    except (ValueError, KeyError, TypeError) as error:
        print(f"batch {number} is to be run again, as its part is not sound: {error}", file=sys.stderr)
        plan.part_file(number).unlink(missing_ok=True)
        return False
    return True


def _gather_line(plan: Plan, name: str, entry: Any, findings: Findings, known: sqlite3.Connection) -> None:
    if entry["file"] != name:
        raise ValueError("its names are not those of the list")
    if "error" in entry:
        return findings.add(name, {"error": entry["error"]}, entry["sha256"] or None)
    if entry["key"] != plan.key(entry["sha256"]):
        raise ValueError("it was made with another version or other options")
    key = bytes.fromhex(entry["key"])
    if "report" in entry:
        known.execute(
            "INSERT OR IGNORE INTO known VALUES (?, ?)",
            (key, zlib.compress(json.dumps(entry["report"]).encode(), 1)),
        )
        return findings.add(name, entry["report"], entry["sha256"])
    row = known.execute("SELECT report FROM known WHERE key = ?", (key,)).fetchone()
    if row is None:
        raise ValueError("what it takes as known is not")
    findings.add(name, json.loads(zlib.decompress(row[0])), entry["sha256"])


@contextlib.contextmanager
def _undone(database: sqlite3.Connection) -> Iterator[None]:
    """What is done to a database within goes again when something fails."""
    database.execute("SAVEPOINT part")
    try:
        yield
    except BaseException:
        database.execute("ROLLBACK TO part")
        raise
    finally:
        database.execute("RELEASE part")


def _arguments(arguments: Sequence[str]) -> argparse.Namespace:
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    commands = parser.add_subparsers(dest="command", required=True)
    making = commands.add_parser("cut", help="make the lists of the batches, and print how many there are")
    running = commands.add_parser("run", help="check the files of batches")
    gathering = commands.add_parser("gather", help="make findings.sqlite; 1 when batches are missing")
    for command in (making, running, gathering):
        command.add_argument("results", type=Path)
    making.add_argument(
        "--files-from", required=True, help="names, NUL or newline separated; - is standard input"
    )
    making.add_argument("--size", type=int, default=100, help="files a batch")
    making.add_argument(
        "--seconds", type=float, default=Limits.seconds, help="a call of igs may take, for small files"
    )
    making.add_argument("--memory", type=int, default=Limits.memory, help="MiB that a call of igs may take")
    running.add_argument("number", type=int, nargs="+")
    return parser.parse_args(arguments)


def _cut(chosen: argparse.Namespace, options: Sequence[str]) -> int:
    if chosen.size < 1:
        raise ValueError("a batch has one file or more")
    listed = sys.stdin.buffer.read() if chosen.files_from == "-" else Path(chosen.files_from).read_bytes()
    limits = Limits(chosen.seconds, chosen.memory)
    print(cut(chosen.results, listed_names(listed), chosen.size, options, limits).batches)
    return 0


def _run(chosen: argparse.Namespace) -> int:
    for number in chosen.number:
        done = run_batch(chosen.results, number)
        counts = f"{done.checked} checked, {done.known} known, {done.failed} failed"
        print(f"batch {number}: {done.files} files: {counts}", file=sys.stderr)
    return 0


def _gather(chosen: argparse.Namespace) -> int:
    found = gather(chosen.results)
    print(f"{found.files} files, {found.failed} of them failed, {found.findings} findings")
    if found.missing:
        print("batches: missing:", *found.missing, file=sys.stderr)
    return 1 if found.missing else 0


def main() -> int:
    # Not left to argparse, which would take the first option of the program for one of its own.
    given = sys.argv[1:]
    own = given[: given.index("--")] if "--" in given else given
    chosen = _arguments(own)
    try:
        if chosen.command == "cut":
            return _cut(chosen, given[len(own) + 1 :])
        return _run(chosen) if chosen.command == "run" else _gather(chosen)
    except (OSError, ValueError, KeyError, RuntimeError) as error:
        print(f"batches: {error}", file=sys.stderr)
        return 2


if __name__ == "__main__":
    sys.exit(main())
