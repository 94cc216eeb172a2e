"""Files are written whole or not at all, and what the system says is an OSError."""

from __future__ import annotations

import errno
import os
import resource
import stat
from collections.abc import Iterator
from contextlib import contextmanager, nullcontext
from pathlib import Path

import igs
import pytest
from program import EXAMPLES

BOX = EXAMPLES / "box.igs"


@contextmanager
def as_nobody() -> Iterator[None]:
    """Permissions mean nothing to root."""
    user = os.geteuid()
    os.seteuid(user or 65534)
    try:
        yield
    finally:
        os.seteuid(user)


@contextmanager
def no_file_above(size: int) -> Iterator[None]:
    limits = resource.getrlimit(resource.RLIMIT_FSIZE)
    resource.setrlimit(resource.RLIMIT_FSIZE, (size, limits[1]))
    try:
        yield
    finally:
        resource.setrlimit(resource.RLIMIT_FSIZE, limits)


def names_in(folder: Path) -> list[str]:
    return sorted(each.name for each in folder.iterdir())


def test_a_written_file_keeps_permissions_and_links(tmp_path: Path) -> None:
    target, link = tmp_path / "real.igs", tmp_path / "link.igs"
    target.write_bytes(b"old")
    target.chmod(0o640)
    link.symlink_to("real.igs")
    file = igs.read(BOX)
    file.write(link)
    assert link.is_symlink() and names_in(tmp_path) == ["link.igs", "real.igs"]
    assert stat.S_IMODE(target.stat().st_mode) == 0o640
    assert target.read_bytes() == file.to_bytes() and len(igs.read(target)) == len(file)


@pytest.mark.parametrize("name", ["-o", "a 'b\"\n.igs", os.fsdecode(b"caf\xe9\xff.igs"), "Größe.igs"])
def test_names_may_be_odd(name: str, tmp_path: Path, monkeypatch: pytest.MonkeyPatch) -> None:
    monkeypatch.chdir(tmp_path)
    igs.read(BOX).write(name)
    file = igs.read(name)
    assert (file.name, len(file)) == (name, 46)
    assert file.check() == [] and file.repair().left == []


def test_nothing_is_lost_when_writing_fails(tmp_path: Path) -> None:
    file = igs.read(BOX)
    target = tmp_path / "box.igs"
    target.write_bytes(b"old")
    tmp_path.chmod(0o555)
    for name, error, state in (
        ("box.igs", errno.EACCES, as_nobody()),
        ("box.igs", errno.EFBIG, no_file_above(2000)),
        ("/dev/full", errno.ENOSPC, nullcontext()),
        (".", errno.EISDIR, nullcontext()),
        ("no/box.igs", errno.ENOENT, nullcontext()),
        ("box.igs/box.igs", errno.ENOTDIR, nullcontext()),
    ):
        with state, pytest.raises(OSError) as failed:
            file.write(tmp_path / name)
        assert failed.value.errno == error, name
        tmp_path.chmod(0o755)
        assert names_in(tmp_path) == ["box.igs"] and target.read_bytes() == b"old"


def test_errors_of_the_system_are_of_their_class(tmp_path: Path) -> None:
    missing, hidden = tmp_path / "missing.igs", tmp_path / "hidden.igs"
    hidden.touch(0)
    with pytest.raises(FileNotFoundError) as refused:
        igs.read(missing)
    assert (refused.value.errno, refused.value.filename) == (errno.ENOENT, str(missing))
    with pytest.raises(IsADirectoryError):
        igs.read(str(tmp_path))
    with as_nobody(), pytest.raises(PermissionError):
        igs.read(hidden)
    with open(BOX) as text, pytest.raises(TypeError):
        igs.read(text)  # type: ignore[arg-type]


def test_a_file_that_ends_early_is_written_on_request_alone(tmp_path: Path) -> None:
    content = BOX.read_bytes()
    file = igs.read(content[: len(content) * 3 // 4])
    assert file.fault and len(file) > 0
    with pytest.raises(ValueError, match="data would be lost"):
        file.write(tmp_path / "part.igs")
    with pytest.raises(ValueError):
        file.repair()
    assert names_in(tmp_path) == []
    file.write(tmp_path / "part.igs", salvage=True)
    assert igs.read(tmp_path / "part.igs").fault == ""


def test_style_is_as_in_the_input_unless_told(tmp_path: Path) -> None:
    file = igs.read(BOX)
    assert b"\r\n" not in file.to_bytes()
    written = file.to_bytes(line_ends="crlf", exponent="D")
    assert written.count(b"\r\n") == written.count(b"\n") > 0
    both = igs.read(written).entities, file.entities
    assert all(repr(one.fields) == repr(other.fields) for one, other in zip(*both, strict=True))
    with pytest.raises(ValueError):
        file.to_bytes(line_ends="cr")
    with pytest.raises(ValueError):
        file.to_bytes(exponent="e")
