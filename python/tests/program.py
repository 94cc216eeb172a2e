"""What the program igs says of a file: the package has to say the same."""

from __future__ import annotations

import base64
import json
import os
import re
import shutil
import subprocess
import zlib
from functools import cache
from pathlib import Path
from typing import Any

ROOT = Path(__file__).resolve().parents[2]
EXAMPLES = ROOT / "examples"


def run(*arguments: str | Path) -> subprocess.CompletedProcess[bytes]:
    program = os.environ.get("IGS") or shutil.which("igs")
    assert program, "igs is not in the path; IGS may name it"
    command, *rest = arguments
    return subprocess.run([program, command, "--config", "", *rest], capture_output=True, timeout=120)


def report(*arguments: str | Path) -> dict[str, Any]:
    """The object that the program prints with --format json."""
    found: dict[str, Any] = json.loads(run(*arguments, "--format", "json").stdout)
    return found


@cache
def check(sample: Path) -> dict[str, Any]:
    return report("check", sample)


def attributes(sample: Path) -> dict[int, dict[str, str]]:
    """What `igs print` says of each entity: the lines with one value, of the entity itself."""
    found: dict[int, dict[str, str]] = {}
    inside: dict[int, dict[str, str]] = {}  # by the number of tabs before its lines
    for line in run("print", sample).stdout.decode(errors="replace").splitlines():
        depth = len(line) - len(line.lstrip("\t"))
        if begun := re.fullmatch(r"\t+@(\d+)\(\d+\) = \{", line):
            inside[depth + 1] = found.setdefault(int(begun[1]), {})
        elif depth in inside and (set_to := re.fullmatch(r"\t+(\w+) = ([^{].*)", line)):
            inside[depth].setdefault(set_to[1], set_to[2])
    return found


def fields(sample: Path, folder: Path) -> dict[int, tuple[list[tuple[str, str]], int]]:
    """The fields of each entity that `igs view` shows, and how many more it has."""
    page = folder / "page.html"
    run("view", "-o", page, sample)
    data = re.search(r'id="model">\s*([^<]*)<', page.read_text())
    assert data
    packed = base64.b64decode(data[1])
    plain = zlib.decompress(packed[1:]) if packed[0] else packed[1:]
    header = json.loads(plain[4 : 4 + int.from_bytes(plain[:4], "little")])
    shown = zip(header["entities"], header["fieldLabels"], header["fieldValues"])
    return {row[0]: (list(zip(labels, values)), row[-1]) for row, labels, values in shown}
