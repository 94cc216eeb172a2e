"""What checks and repairs find."""

from __future__ import annotations

from collections.abc import Iterable
from dataclasses import dataclass, field, fields
from typing import TYPE_CHECKING, Any

if TYPE_CHECKING:
    import pandas

Value = int | float | str | None


@dataclass(frozen=True)
class Finding:
    """A deviation of a file from the standard, or a fault of its geometry."""

    class_name: str
    """What is wrong: the name that `igs.explain` knows."""
    severity: str
    """"error", "warning" or "note"."""
    line: int
    """Of the input, from 1; 0 where it is not known."""
    de: int | None
    """The directory entry of the entity concerned; None for faults of the sections."""
    type: int | None
    """The type of that entity."""
    message: str
    """A sentence for people."""
    values: tuple[Value, ...]
    """What the sentence is about; a real that is not finite is None."""
    consequence: bool
    """It only says that an entity referred to has faults."""
    repairable: bool
    """A repair that loses nothing can mend it."""
    section: str
    """Where it was noted: "object", "structure", "global", "start" or "terminate"."""

    @staticmethod
    def _of(json: dict[str, Any]) -> Finding:
        return Finding(
            class_name=json["class"],
            severity=json["severity"],
            line=json["line"],
            de=json.get("de"),
            type=json.get("type"),
            message=json["message"],
            values=tuple(json["values"]),
            consequence=json["consequence"],
            repairable=json["repairable"],
            section=json["log"],
        )

    def __str__(self) -> str:
        place = f"DE {self.de}: " if self.de is not None else ""
        return f"line {self.line}: {self.severity}: {place}{self.message} [{self.class_name}]"


@dataclass(frozen=True)
class Lost:
    """An entity of the input that could not be kept."""

    de: int
    type: int | None
    line: int
    why: str


class Findings(list[Finding]):
    """Findings, the worst first; beside them what the check says of the file as a whole."""

    def __init__(self, findings: Iterable[Finding] = (), lost: Iterable[Lost] = ()) -> None:
        super().__init__(findings)
        self.lost = list(lost)
        """The entities that reading could not keep."""

    @staticmethod
    def _of(json: dict[str, Any], member: str = "errors") -> Findings:
        return Findings(map(Finding._of, json[member]), (Lost(**each) for each in json["lost"]))

    def count(self, severity: Any) -> int:
        """How many are of this severity (or equal to this finding)."""
        if isinstance(severity, str):
            return sum(1 for each in self if each.severity == severity)
        return super().count(severity)

    @property
    def roots(self) -> Findings:
        """Those that are no consequences of others."""
        return Findings((each for each in self if not each.consequence), self.lost)


@dataclass(frozen=True)
class Repair:
    """What a repair has done."""

    repaired: Findings
    """What is wrong no more."""
    left: Findings
    """What a check of the repaired file finds."""
    lost: list[Lost]
    """Entities of the input that could not be kept."""
    deleted: list[int]
    """Directory entries of the entities that were deleted, on request."""
    changes: dict[str, Any] | None = field(default=None, repr=False)
    """With `summary`: how the repaired file differs, as the program's JSON has it."""


def to_frame(findings: Iterable[Finding]) -> pandas.DataFrame:
    """The findings as a table of pandas, a row each, a column for each attribute of `Finding`.

    Raises an ImportError where pandas is not installed.
    """
    import pandas

    columns = [each.name for each in fields(Finding)]
    rows = [[getattr(finding, name) for name in columns] for finding in findings]
    frame = pandas.DataFrame(rows, columns=columns)
    return frame.astype(
        {"de": "Int64", "type": "Int64", "line": "int64", "consequence": bool, "repairable": bool}
    )
