"""Files and their entities."""

from __future__ import annotations

import contextlib
import json
import os
import stat
from collections.abc import Iterable, Iterator, Mapping, Sequence
from dataclasses import dataclass
from typing import IO, Any, overload

from . import _igs
from ._findings import Findings, Finding, Lost, Repair
from ._igs import Entity, GeometryChecks, Header, Mesh
from ._write import write_whole

Patterns = str | Iterable[str]


class Entities(Sequence[Entity]):
    """Entities in the order of their directory entries. Once an entity of the file was removed, they raise a
    RuntimeError: ask the file for its entities again."""

    def __init__(self, entities: _igs.EntityList) -> None:
        self._list = entities

    def __len__(self) -> int:
        return len(self._list)

    @overload
    def __getitem__(self, index: int) -> Entity:
        ...

    @overload
    def __getitem__(self, index: slice) -> Entities:
        ...

    def __getitem__(self, index: int | slice) -> Entity | Entities:
        if isinstance(index, slice):
            return Entities(self._list.take(range(*index.indices(len(self)))))
        position = index + len(self) if index < 0 else index
        if not 0 <= position < len(self):
            raise IndexError(f"there are {len(self)} entities")
        return self._list.at(position)

    def __iter__(self) -> Iterator[Entity]:
        return map(self._list.at, range(len(self)))

    def filter(
        self,
        *,
        type: int | Iterable[int] | None = None,
        form: int | None = None,
        level: int | None = None,
        name: str | None = None,
    ) -> Entities:
        """Those of this type (or one of these types), of this form, on this level and of this name."""
        types = {type} if isinstance(type, int) else None if type is None else set(type)
        return Entities(self._list.find(types, form, level, name))

    def __repr__(self) -> str:
        return f"<{len(self)} entities>"


@dataclass(frozen=True)
class _OnDisk:
    """A file on disk that need not be kept in memory."""

    path: str
    state: tuple[int, ...]

    @staticmethod
    def of(path: str | os.PathLike[str], file: IO[bytes]) -> _OnDisk | None:
        """None for what cannot be read a second time, such as a pipe."""
        status = os.fstat(file.fileno())
        if not stat.S_ISREG(status.st_mode):
            return None
        return _OnDisk(
            os.path.abspath(path), (status.st_dev, status.st_ino, status.st_size, status.st_mtime_ns)
        )

    def content(self) -> bytes | None:
        """None where it is gone, or another one."""
        with contextlib.suppress(OSError), open(self.path, "rb") as file:
            content = file.read()
            return content if _OnDisk.of(self.path, file) == self else None
        return None


class File:
    """An IGES file in memory, made by `igs.read` or `igs.new`.

    It belongs to the thread that made it: in any other thread its use, and that of its entities, raises a RuntimeError.
    """

    def __init__(
        self, model: _igs.Model, source: bytes | _OnDisk | None, options: _igs.Options, name: str
    ) -> None:
        self._model = model
        self._source = source
        self._options = options
        self._name = name
        self._is_output = False

    @property
    def name(self) -> str:
        """Where it was read; "" for a file of bytes and a new one."""
        return self._name

    @property
    def fault(self) -> str:
        """Why the input is not whole: it could not be read to its end, or lacks a section; "" where it is."""
        return self._model.fault

    @property
    def messages(self) -> list[str]:
        """What else reading had to say."""
        return self._model.messages

    @property
    def entities(self) -> Entities:
        """All entities, in the order of their directory entries."""
        return Entities(self._model.entities)

    def entity(self, de: int) -> Entity:
        """The entity with this directory entry (1, 3, 5, ...). Raises a KeyError where there is none."""
        found = self._model.entity(de)
        if found is None:
            raise KeyError(f"no entity has the directory entry {de}")
        return found

    @property
    def header(self) -> Header:
        """The parameters of the Global section, which may be set."""
        return self._model.header

    @property
    def units(self) -> str | None:
        """The units of lengths: "MM", "INCH", ... (see `Header.units`). To set them changes no length."""
        return self._model.header.units

    @units.setter
    def units(self, units: str | int) -> None:
        self._model.header.units = units

    @property
    def start(self) -> list[str]:
        """The lines of the Start section, text for people; at most 72 characters each."""
        return self._model.start

    @start.setter
    def start(self, lines: list[str]) -> None:
        self._model.start = lines

    def __len__(self) -> int:
        return len(self._model)

    def __repr__(self) -> str:
        return f"<igs.File {self._name!r}: {len(self)} entities>"

    def check(
        self,
        *,
        geometry: bool | GeometryChecks = True,
        ignore: Patterns = (),
        only: Patterns = (),
        severity: Mapping[str, str] | None = None,
    ) -> Findings:
        """What is wrong with the file, the worst first, as `igs check` lists it.

        `ignore` and `only` are patterns of class names, in which "*" is any text; `severity` rates the classes that a
        pattern fits as "error", "warning" or "note". `geometry`: whether, or from when on, gaps, free edges and the
        like count.
        """
        return Findings._of(
            json.loads(_igs.check(self._model, _rules(ignore, only, severity), _geometry(geometry)))
        )

    def repair(
        self,
        *,
        geometry: bool | GeometryChecks = True,
        ignore: Patterns = (),
        only: Patterns = (),
        severity: Mapping[str, str] | None = None,
        units: str | None = None,
        keep_geometry: bool = False,
        delete_faulty: bool = False,
        salvage: bool = False,
        summary: bool = False,
    ) -> Repair:
        """Repairs the file as `igs repair` does, and says what was done. Nothing is written.

        `units` says what the units are where the file leaves them in doubt; with `keep_geometry` coordinates, knots,
        weights and parameters stay as they are; `delete_faulty` removes what still has errors or warnings; `salvage`
        is needed for a file that was not read to its end, or lacks sections. The rest is as for `check`.

        What was repaired takes the place of this file's content. Entities and arrays that were taken before still show
        the file as it was. Raises a ValueError, the file as it was, where data would be lost or the result cannot be
        trusted.
        """
        text, repaired, failure = _igs.repair(
            _shown(self._name), self._content(salvage), self._options, _rules(ignore, only, severity),
            _geometry(geometry), units, keep_geometry, delete_faulty, salvage, summary,
        )  # fmt: skip
        if repaired is None:
            raise ValueError(failure)
        report = json.loads(text)
        model = _igs.Model.read(_shown(self._name), repaired, self._options)
        self._model.retire()
        self._model, self._source, self._is_output = model, repaired, True
        return Repair(
            repaired=Findings(map(Finding._of, report["fixed"])),
            left=Findings(map(Finding._of, report["errors"])),
            lost=[Lost(**each) for each in report["lost"]],
            deleted=report.get("deleted", []),
            changes=report.get("summary"),
        )

    def write(
        self,
        path: str | os.PathLike[str],
        *,
        salvage: bool = False,
        exponent: str | None = None,
        line_ends: str | None = None,
    ) -> None:
        """Writes the file, whole or not at all: until all of it is on disk, a file of that name stays as it was.

        `exponent` ("D" or "E") and `line_ends` ("lf" or "crlf") are as in the input without them. Directory entries may
        be numbered anew. Raises an OSError where it cannot be written, and a ValueError for a file that was not read to
        its end, unless `salvage` says that what was read will do.
        """
        write_whole(path, self.to_bytes(salvage=salvage, exponent=exponent, line_ends=line_ends))

    def to_bytes(
        self, *, salvage: bool = False, exponent: str | None = None, line_ends: str | None = None
    ) -> bytes:
        """What `write` writes."""
        if exponent not in (None, "D", "E"):
            raise ValueError(f'exponent is "D" or "E", not {exponent!r}')
        if line_ends not in (None, "lf", "crlf"):
            raise ValueError(f'line_ends is "lf" or "crlf", not {line_ends!r}')
        if self.fault and not salvage:
            raise ValueError(f"{self.fault}; nothing is written, as data would be lost")
        as_read = exponent is None and line_ends is None
        if self._is_output and isinstance(self._source, bytes) and as_read and not self._model.is_changed:
            return self._source
        return self._model.write(exponent, line_ends)

    def _content(self, salvage: bool) -> bytes:
        """What a repair begins with: the input, as long as it is there and nothing was changed."""
        if not self._model.is_changed:
            content = self._source.content() if isinstance(self._source, _OnDisk) else self._source
            if content is not None:
                return content
        return self.to_bytes(salvage=salvage)

    def add(self, type: int, form: int = 0, **values: Any) -> Entity:
        """A new entity, whose attributes are given the values.

        >>> f = igs.new()
        >>> f.add(110, start_point=(0, 0, 0), end_point=(3, 4, 0))
        <110 Line (DE 1)>

        What makes the arrays of an entity has to be given here: `degree`, `control_points` and `knots` of B-splines
        (126, 128), whose `weights` are 1 without any, and whose `range` is that of the knots; `coordinates` of point
        lists (106), with `vectors` for forms 3 and 13. Raises a ValueError or a TypeError, no entity added, where it
        does not take the values, or for a type and form that no class stands for.
        """
        entity = self._model.add(type, form)
        try:
            entity._define(values)
            for name, value in values.items():
                try:
                    setattr(entity, name, value)
                except AttributeError:
                    raise ValueError(
                        f"entities of type {type}, form {form} have no {name!r} to be set"
                    ) from None
        except BaseException:
            self._model.remove(entity)
            raise
        return entity

    def remove(self, entity: Entity) -> None:
        """Takes the entity out; what referred to it refers to nothing. Raises a BufferError while arrays of it are in
        use."""
        self._model.remove(entity)

    def mesh(self, chord: float = 0.1, angle: float = 0.35) -> Mesh:
        """The triangles of all that the file shows and does not blank: faces, and surfaces that stand for themselves;
        at most `chord` (model units) from them, neighbours at most `angle` (radians) from each other."""
        return self._model.mesh(chord, angle)


def read(
    source: str | os.PathLike[str] | bytes | bytearray | memoryview | IO[bytes],
    *,
    keep: bool = True,
    strict: bool = True,
    recover: bool = True,
) -> File:
    """Reads a file: by its path, its bytes, or from an open file in binary mode. What is packed by gzip is unpacked.

    `keep`: nothing is lost that can be told apart: entities without a class, and what stands beside an entity's own
    fields, stay. `strict`: fields that cannot have been read as they stand are findings. `recover`: files that end
    early, lack sections or have broken lines are understood as far as possible; `File.fault` says what is missing.

    Raises an OSError where the file cannot be read, and a ValueError where it is no IGES file.
    """
    name = ""
    options = _igs.Options(keep, strict, recover)
    if isinstance(source, (bytes, bytearray, memoryview)):
        content = bytes(source)
    elif isinstance(source, (str, os.PathLike)):
        name = os.fspath(source)
        with open(source, "rb", buffering=0) as file:
            if place := _OnDisk.of(source, file):
                return File(_igs.Model.read_open(_shown(name), file.fileno(), options), place, options, name)
            content = file.readall()
    else:
        content = source.read()
        if not isinstance(content, bytes):
            raise TypeError("the file is not open in binary mode")
    return File(_igs.Model.read(_shown(name), content, options), content, options, name)


def new() -> File:
    """A file without entities, in millimetres."""
    options = _igs.Options(True, True, True)
    return File(_igs.Model.new("", options), None, options, "")


def _shown(name: str) -> str:
    """A name for messages: those of files need not be UTF-8."""
    return name.encode(errors="backslashreplace").decode()


def _patterns(patterns: Patterns) -> list[str]:
    return [patterns] if isinstance(patterns, str) else list(patterns)


def _rules(ignore: Patterns, only: Patterns, severity: Mapping[str, str] | None) -> _igs.Rules:
    return _igs.Rules(_patterns(ignore), _patterns(only), list((severity or {}).items()))


def _geometry(geometry: bool | GeometryChecks) -> GeometryChecks | None:
    if isinstance(geometry, GeometryChecks):
        return geometry
    return GeometryChecks() if geometry else None
