"""The program igs as a child that may crash, hang or ask for too much memory, and takes nothing with it but one file."""

import functools
import json
import os
import resource
import shutil
import signal
import subprocess
import tempfile
from collections.abc import Iterator, Sequence
from dataclasses import dataclass
from pathlib import Path
from typing import IO

# What these say stands in a plan, or is no matter of a file's content: no configuration file, one line a file.
FIXED_OPTIONS = ("--config", "", "--format", "json", "--jobs", "1", "--files-from", "-")


@dataclass(frozen=True)
class Limits:
    """Of one call of the program."""

    seconds: float = 60.0  # and as many for every 20 MB that it is to read
    memory: int = 4096  # MiB


@functools.cache
def find_igs() -> str:
    """$IGS, the igs in the path, or that of this checkout."""
    here = Path(__file__).resolve().parents[2] / "build/release/bin/igs"
    found = os.environ.get("IGS") or shutil.which("igs") or (str(here) if here.exists() else None)
    if found is None:
        raise FileNotFoundError("igs is neither in the path nor built here; IGS may name it")
    return found


@functools.cache
def igs_version() -> str:
    return subprocess.run(
        [find_igs(), "--version"], check=True, stdout=subprocess.PIPE, text=True
    ).stdout.strip()


def refuse_unusable(options: Sequence[str]) -> None:
    """ValueError for options with which igs check does not print a line for every name, or that it does not know."""
    command = [find_igs(), "check", *FIXED_OPTIONS, *options]
    tried = subprocess.run(
        command, stdin=subprocess.DEVNULL, capture_output=True, text=True, errors="replace"
    )
    if tried.returncode != 0 or tried.stdout or {"-q", "--quiet"} & set(options):
        reason = tried.stderr.strip() or "they change which files are reported"
        raise ValueError(f"options that igs check cannot take here: {' '.join(options)}: {reason}")


def reports(names: Sequence[str], options: Sequence[str], limits: Limits) -> Iterator[tuple[bytes, str]]:
    """For each name in its turn the report that the program prints, or why there is none.

    When the program ends early, the file that it was at is tried alone, and those behind it in two halves.
    """
    waiting = [names]
    while waiting:
        piece = waiting.pop()
        with tempfile.TemporaryFile() as out:
            ending = _call(piece, options, limits, out)
            out.seek(0)
            done = 0
            for line in out:
                if done == len(piece) or not line.endswith(b"\n"):
                    break
                done += 1
                yield _outcome(line)
        rest = piece[done:]
        if len(piece) == 1 and rest:
            yield b"", ending
        else:
            middle = 1 + len(rest) // 2
            waiting += [part for part in (rest[middle:], rest[1:middle], rest[:1]) if part]


def _outcome(line: bytes) -> tuple[bytes, str]:
    return line.strip(), str(json.loads(line).get("error", ""))


def _call(names: Sequence[str], options: Sequence[str], limits: Limits, out: IO[bytes]) -> str:
    """Calls the program for all names, within the limits; says how it ended."""
    seconds = limits.seconds * (1 + sum(map(_size, names)) / 20e6)
    child = subprocess.Popen(
        [find_igs(), "check", *FIXED_OPTIONS, *options],
        stdin=subprocess.PIPE,
        stdout=out,
        stderr=subprocess.PIPE,  # nobody reads it; its end tells at once that the program has ended
        start_new_session=True,
    )
    try:
        _limit(child.pid, resource.RLIMIT_AS, limits.memory << 20)
        # Ends it even when nobody is left to do so.
        _limit(child.pid, resource.RLIMIT_CPU, int(seconds) + 5)
        _limit(child.pid, resource.RLIMIT_CORE, 0)
        child.communicate(b"".join(os.fsencode(name) + b"\0" for name in names), timeout=seconds)
    except subprocess.TimeoutExpired:
        return f"igs was ended after {seconds:.0f} s"
    finally:
        if child.poll() is None:
            os.killpg(child.pid, signal.SIGKILL)
            child.communicate()
    if child.returncode < 0:
        return f"igs was ended by signal {-child.returncode}"
    return f"igs ended with status {child.returncode} and no report"


def _limit(pid: int, what: int, most: int) -> None:
    hard = resource.getrlimit(what)[1]
    least = most if hard == resource.RLIM_INFINITY else min(most, hard)
    resource.prlimit(pid, what, (least, least))


def _size(name: str) -> int:
    try:
        return os.stat(name).st_size
    except OSError:
        return 0
