"""An archive that is checked in batches: hostile files, odd names, runs that are killed, repeated and changed."""

import json
import os
import shutil
import subprocess
from pathlib import Path

import pytest

from support import ARCHIVE, EXAMPLES, ROOT, Rows, listed, rows, run, wait_for

import igs_program

IGS = igs_program.find_igs()

# The program, as it would be if some contents were too much for it; it writes down what it is asked to check.
FRAGILE = """#!/usr/bin/python3
import os, subprocess, sys, time
names = sys.stdin.buffer.read().split(b"\\0")[:-1] if "--files-from" in sys.argv else []
for name in names:
    with open("LOG", "ab") as log:
        log.write(name + b"\\n")
    content = open(name, "rb").read()
    if content.startswith(b"crash"):
        os.kill(os.getpid(), 11)
    parent = os.getppid()
    while content == b"hang" and os.getppid() == parent:
        time.sleep(0.02)
    if content == b"eat":
        bytearray(1 << 30)
    subprocess.run(["IGS", *sys.argv[1:]], input=name + b"\\0")
if not names:
    os.execv("IGS", ["IGS", *sys.argv[1:]])
"""


class Archive:
    """A folder of files, and the folder of results beside it."""

    def __init__(self, folder: Path) -> None:
        self.files, self.results, self.log = folder / "files", folder / "results", folder / "log"
        self.files.mkdir()
        self.igs = folder / "igs"
        self.igs.write_text(FRAGILE.replace("LOG", str(self.log)).replace("IGS", IGS))
        self.igs.chmod(0o755)

    def command(self, name: str, *arguments: object) -> list[object]:
        return [ARCHIVE / "batches.py", name, self.results, *arguments]

    def call(self, *arguments: str | int, status: int = 0, names: bytes = b"") -> str:
        return run(*self.command(*map(str, arguments)), status=status, stdin=names, IGS=str(self.igs))

    def start(self, *numbers: int) -> subprocess.Popen[bytes]:
        command = [str(word) for word in self.command("run", *numbers)]
        return subprocess.Popen(command, env=os.environ | {"IGS": str(self.igs)})

    def cut(self, *arguments: str | int) -> int:
        return int(self.call("cut", "--files-from", "-", *arguments, names=listed(self.names())))

    def check(self, *arguments: str | int) -> None:
        self.call("run", *range(self.cut(*arguments)))
        self.call("gather")

    def names(self) -> list[str]:
        return sorted(map(str, self.files.iterdir()), key=os.fsencode)

    def table(self, query: str) -> Rows:
        return rows(self.results / "findings.sqlite", query)

    def table_names(self) -> list[str]:
        return sorted(
            (os.fsdecode(name) for (name,) in self.table("SELECT name FROM files")), key=os.fsencode
        )

    def asked(self) -> list[str]:
        """What the program was asked to check since the last call of this."""
        lines = self.log.read_text().splitlines() if self.log.exists() else []
        self.log.unlink(missing_ok=True)
        return [Path(line).name for line in lines]

    def parts(self) -> list[str]:
        return sorted(path.name for path in (self.results / "parts").iterdir() if path.name[0] != ".")


@pytest.fixture
def archive(tmp_path: Path) -> Archive:
    made = Archive(tmp_path)
    for example in EXAMPLES:
        shutil.copy(example, made.files)
    return made


def test_a_hostile_file_stands_alone_with_its_name(archive: Archive) -> None:
    # The first, the last and two neighbours in the middle of a batch, and a copy.
    hostile = {"0": "crash 0", "curve1": "hang", "curve2": "eat", "z": "crash z", "crash again": "crash z"}
    for name, content in hostile.items():
        (archive.files / name).write_text(content)
    archive.check("--size", 100, "--seconds", 1, "--memory", 512)
    found = {Path(name).name: error for name, error in archive.table("SELECT name, error FROM files")}
    assert found == {
        **{example.name: None for example in EXAMPLES},
        **{name: "igs was ended by signal 11" for name in ("0", "crash again", "z")},
        "curve1": "igs was ended after 1 s",
        "curve2": "igs ended with status 1 and no report",
    }


def test_names_are_kept_whatever_they_are(archive: Archive) -> None:
    odd = ["a b", "-q", "-", "'; DROP TABLE files --", "new\nline", "\udcff\udcfe", "ÿ", '"$(touch x)`"\\']
    for name in odd:
        shutil.copy(EXAMPLES[0], archive.files / name)
    (archive.files / "folder.igs").mkdir()
    (archive.files / "gone.igs").symlink_to("nowhere")
    os.mkfifo(archive.files / "pipe.igs")
    archive.check("--size", 5)
    assert archive.table_names() == archive.names()
    errors = archive.table("SELECT error FROM files WHERE error IS NOT NULL ORDER BY name")
    assert errors == [("Is a directory",), ("No such file or directory",), ("it is no regular file",)]
    # In a list of lines, twice, relative, and with an empty one.
    path = os.fsencode(archive.files / "a b")
    lines = path + b"\r\n\n" + path + b"\n-\n"
    assert archive.call("cut", "--files-from", "-", names=lines) == "1\n"
    cut = (archive.results / "batches/000000.list").read_bytes()
    assert cut == path + b"\0" + os.getcwdb() + b"/-\0"


def test_no_content_is_checked_twice_with_the_same_options(archive: Archive) -> None:
    first, second = (archive.files / example.name for example in EXAMPLES[:2])
    archive.check("--size", 4)
    assert sorted(archive.asked()) == [example.name for example in EXAMPLES]
    columns = "SELECT class, line, message, details FROM findings JOIN files ON files.id = file"
    before = archive.table(f"{columns} ORDER BY 1, 2, 3")
    archive.check("--size", 4)  # the same plan
    assert archive.asked() == []

    second.rename(archive.files / "moved.igs")
    shutil.copy(first, archive.files / "copy.igs")
    for name in ("new.igs", "new too.igs"):
        (archive.files / name).write_bytes(first.read_bytes() + b"\n")
    archive.check("--size", 100)
    assert archive.asked() == ["new too.igs"]
    assert archive.table_names() == archive.names()
    old = "WHERE name NOT LIKE '%new%' AND name NOT LIKE '%copy.igs'"
    assert archive.table(f"{columns} {old} ORDER BY 1, 2, 3") == before
    same = f"sha256 = (SELECT sha256 FROM files WHERE name LIKE '%/{first.name}')"
    assert archive.table(f"SELECT count(DISTINCT errors), count(*) FROM files WHERE {same}") == [(1, 2)]

    for options, asked, faults in ("-- --severity *=note", len(EXAMPLES) + 1, 0), ("", 0, 1):
        archive.check("--size", 100, *options.split())
        assert len(archive.asked()) == asked
        assert archive.table("SELECT sum(errors) > 9 FROM files") == [(faults,)]


def test_what_is_killed_or_doubled_leaves_whole_parts(archive: Archive) -> None:
    hanging = archive.files / "curve"
    hanging.write_text("hang")
    assert archive.cut("--size", 6) == 3
    number = archive.names().index(str(hanging)) // 6
    killed = archive.start(0, 1, 2)
    wait_for(lambda: archive.log.exists() and str(hanging) in archive.log.read_text())
    killed.kill()
    killed.wait()
    assert archive.parts() == [f"{done:06}.ndjson" for done in range(number)]
    assert f"missing: {' '.join(map(str, range(number, 3)))}\n" in archive.call("gather", status=1)

    shutil.copy(EXAMPLES[0], hanging)
    at_once = [archive.start(0, 1, 2), archive.start(2, 1, 0)]
    assert [process.wait() for process in at_once] == [0, 0]
    archive.call("gather")
    assert archive.table_names() == archive.names()
    assert archive.table("SELECT count(*) FROM files WHERE error IS NULL") == [(len(EXAMPLES) + 1,)]


def test_a_part_that_is_not_sound_is_made_again(archive: Archive) -> None:
    archive.check("--size", 5)
    table = "SELECT * FROM findings"
    sound, part = archive.table(table), archive.results / "parts/000001.ndjson"
    lines = part.read_bytes().splitlines(keepends=True)
    entry = json.loads(lines[-1])
    other_options = json.dumps(entry | {"key": entry["key"][::-1]}).encode()
    unknown = json.dumps({name: entry[name] for name in ("file", "key", "sha256")} | {"known": True}).encode()
    harms: dict[str, list[bytes]] = {
        "cut short": [*lines[:-1], lines[-1][:-9]],
        "a line lost": lines[:-1],
        "a line doubled": [*lines, lines[-1]],
        "other options": [*lines[:-1], other_options],
        "unknown": [*lines[:-1], unknown],
        "no JSON": [b"\xff\n", *lines[1:]],
    }
    for harm, harmed in harms.items():
        part.write_bytes(b"".join(harmed))
        (archive.results / "known.sqlite").unlink()
        assert "missing: 1\n" in archive.call("gather", status=1), harm
        assert archive.table("SELECT count(*) FROM files") == [(len(EXAMPLES) - 5,)]
        archive.asked()
        archive.call("run", 0, 1)
        assert len(archive.asked()) == 5, harm
        archive.call("gather")
        assert archive.table(table) == sound


def test_what_cannot_be_done_is_refused(archive: Archive) -> None:
    for options in ("--nosuch", "--quiet", "-q", "--config x", "--format text", "other.igs"):
        refused = archive.call("cut", "--files-from", "-", "--", *options.split(), status=2)
        assert "options" in refused
    assert not archive.results.exists()
    many = b"%d\n" * 100_001 % tuple(range(100_001))
    for size, names, reason in (0, b"", "one file or more"), (1, many, "of 2 files or more"):
        assert reason in archive.call("cut", "--files-from", "-", "--size", size, status=2, names=names)
    assert archive.cut() == 1
    assert "000007.list" in archive.call("run", 7, status=2)
    plan = archive.results / "plan.json"
    plan.write_text(plan.read_text().replace(run(IGS, "--version").strip(), "igs 0.0.9"))
    assert "the plan was made for igs 0.0.9" in archive.call("run", 0, status=2)
    assert archive.parts() == []


def test_the_page_shows_what_its_commands_print() -> None:
    check_page = ["/usr/bin/python3", ROOT / "tests/examples/check_page"]
    run(*check_page, ROOT, Path(IGS).parent, ROOT / "docs/guide/archives.md")
