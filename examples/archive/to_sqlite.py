#!/usr/bin/python3
"""Puts what `igs check --format json` prints into tables of SQLite.

    igs check --format json --files-from LIST | to_sqlite.py FINDINGS.sqlite
"""

import json
import os
import secrets
import sqlite3
import sys
from collections.abc import Iterator
from contextlib import contextmanager
from pathlib import Path
from typing import Any

Report = dict[str, Any]

TABLES = """
CREATE TABLE files (
  id INTEGER PRIMARY KEY,
  name NOT NULL,      -- a BLOB where it is no UTF-8
  sha256 TEXT,        -- of the content, where that was asked for
  error TEXT,         -- why there is no report; NULL where there is one, and all that follows then
  read INTEGER,       -- 1: to its end
  entities INTEGER,
  units TEXT,
  errors INTEGER, warnings INTEGER, notes INTEGER
);
CREATE TABLE findings (
  file INTEGER NOT NULL REFERENCES files (id),
  class TEXT NOT NULL,
  severity TEXT NOT NULL,
  line INTEGER NOT NULL,
  de INTEGER, type INTEGER,
  message TEXT NOT NULL,
  details TEXT NOT NULL,  -- the values, as a JSON array
  consequence INTEGER NOT NULL,
  repairable INTEGER NOT NULL
);
"""
INDEXES = """
CREATE INDEX files_by_name ON files (name);
CREATE INDEX findings_by_file ON findings (file);
CREATE INDEX findings_by_class ON findings (class);
"""


def text_of(value: str | None) -> str | bytes | None:
    """What SQLite takes: a text, or bytes where the text has some that are no UTF-8."""
    if value is None:
        return None
    try:
        value.encode()
    except UnicodeEncodeError:
        return os.fsencode(value)
    return value


@contextmanager
def replacing(path: Path) -> Iterator[Path]:
    """A name beside PATH; what is written there takes the name PATH as a whole, or is gone when something fails."""
    name = path.with_name(f".{path.name}.{secrets.token_hex(8)}")
    handle = os.open(name, os.O_CREAT | os.O_EXCL | os.O_RDWR | os.O_CLOEXEC, 0o666)
    try:
        yield name
        os.fsync(handle)
        os.replace(name, path)
    except BaseException:
        name.unlink()
        raise
    finally:
        os.close(handle)


def open_unnamed(path: Path) -> sqlite3.Connection:
    """A database that nobody else knows yet: should the machine fail in between, nobody misses it."""
    database = sqlite3.connect(path, isolation_level=None)
    for setting in ("synchronous = OFF", "journal_mode = MEMORY", "cache_size = -65536"):
        database.execute(f"PRAGMA {setting}")
    return database


def _finding_row(file: int | None, found: Report) -> list[Any]:
    row = [file, *(found[name] for name in ("class", "severity", "line")), found.get("de"), found.get("type")]
    row += [text_of(found["message"]), json.dumps(found["values"]), found["consequence"], found["repairable"]]
    return row


class Findings:
    """Tables that are being filled; one transaction until `close`."""

    def __init__(self, path: Path) -> None:
        self.database = open_unnamed(path)
        self.database.executescript(TABLES)
        self.database.execute("BEGIN")

    def add(self, name: str, report: Report, sha256: str | None = None) -> None:
        counts = report.get("counts", {})
        row = [text_of(name), sha256, text_of(report.get("error"))]
        row += [report.get("read"), report.get("entities"), text_of(report.get("units"))]
        row += [counts.get(severity) for severity in ("error", "warning", "note")]
        marks = ",".join("?" * len(row))
        file = self.database.execute(f"INSERT INTO files VALUES (NULL, {marks})", row).lastrowid
        rows = (_finding_row(file, found) for found in report.get("errors", ()))
        self.database.executemany("INSERT INTO findings VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)", rows)

    def count(self, table: str) -> int:
        return int(self.database.execute(f"SELECT count(*) FROM {table}").fetchone()[0])

    def close(self) -> None:
        self.database.execute("COMMIT")
        self.database.executescript(INDEXES)
        self.database.close()


def main() -> None:
    if len(sys.argv) != 2:
        sys.exit("usage: igs check --format json ... | to_sqlite.py FINDINGS.sqlite")
    with replacing(Path(sys.argv[1])) as path:
        findings = Findings(path)
        for number, line in enumerate(sys.stdin.buffer, 1):
            try:
                report = json.loads(line)
                findings.add(report["file"], report)
            except (ValueError, KeyError, TypeError):
                sys.exit(f"to_sqlite: line {number} is no report of igs check")
        print(f"{findings.count('files')} files, {findings.count('findings')} findings")
        findings.close()


if __name__ == "__main__":
    main()
