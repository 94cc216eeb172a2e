"""What the package says of a file is what the program says."""

from __future__ import annotations

import json
import re
from collections.abc import Iterable, Iterator
from dataclasses import asdict
from pathlib import Path
from typing import Any

import igs
import program
import pytest

# Attributes of a directory entry as they are printed, and those that the page does not repeat among the fields.
PRINTED = (
    "FormNumber Structure LineFont Level View TransformationMatrix LabelDisplay BlankStatus SubordinateStatus"
    " EntityUse Hierarchy LineWeight Colour EntitySubscript"
).split()
SHOWN_ELSEWHERE = ("form_number", "level")


def snake(label: str) -> str:
    name = re.sub("(?<!^)(?=[A-Z])", "_", label).lower()
    return "matrix" if name == "transformation_matrix" else name


def opened(sample: Path) -> igs.File:
    """The file, read; skips what the program does not take for an IGES file either."""
    told = program.check(sample)
    if "error" not in told:
        return igs.read(sample)
    with pytest.raises(ValueError) as refusal:
        igs.read(sample)
    assert told["error"] in str(refusal.value)
    pytest.skip("no IGES file, say both")


def as_json(finding: igs.Finding) -> dict[str, Any]:
    renamed = {"class_name": "class", "section": "log"}
    told = {renamed.get(name, name): value for name, value in asdict(finding).items() if value is not None}
    return told | {"values": list(finding.values)}


def by_text(findings: Iterable[dict[str, Any]]) -> list[list[tuple[str, Any]]]:
    return sorted((sorted(each.items()) for each in findings), key=repr)


def flat(value: object, path: str = "") -> Iterator[tuple[str, object]]:
    """Nested fields as the program names them: "StartPoint.x", "Knots(3)"."""
    if isinstance(value, dict):
        for label, inner in value.items():
            dot = "." if path and not str(label).startswith("(") else ""
            yield from flat(inner, f"{path}{dot}{label}")
    elif isinstance(value, list):
        for i, inner in enumerate(value):
            yield from flat(inner, f"{path}({i})")
    else:
        yield path, value


def is_shown_as(value: object, shown: str) -> bool:
    if isinstance(value, igs.Entity):
        return shown == f"DE {value.de}"
    if isinstance(value, float):
        return float(shown) == value
    if isinstance(value, str):
        most = len(shown) - 3 if shown.endswith("...") else None
        return not value.isprintable() or shown[:most] == value[:most]
    return shown in ("0", "unset") if value is None else shown == str(value)


def test_findings_are_those_of_the_program(sample: Path) -> None:
    file = opened(sample)
    told = program.check(sample)
    found = file.check()
    assert [as_json(each) for each in found] == told["errors"]
    assert [asdict(each) for each in found.lost] == [{"type": None} | each for each in told["lost"]]
    assert {severity: found.count(severity) for severity in told["counts"]} == told["counts"]
    assert len(file) == told["entities"] and (file.fault == "") == told["read"]
    chosen = file.check(geometry=False, ignore="igs1*", severity={"igsDE*": "note"})
    told = program.report("check", "--no-geometry", "--ignore", "igs1*", "--severity", "igsDE*=note", sample)
    # What stands on one line may come in another order when a file is checked again.
    assert by_text(map(as_json, chosen)) == by_text(told["errors"])


def test_repairs_are_those_of_the_program(sample: Path, tmp_path: Path) -> None:
    file = opened(sample)
    output = tmp_path / "repaired.igs"
    options = ("--format", "json", "--units", "mm", "--summary", "-o", output)
    done_by_program = program.run("repair", *options, sample)
    told = json.loads(done_by_program.stdout)
    before = list(file.entities)
    fields_before = [repr(each.fields) for each in before[:20]]
    if not output.exists():
        with pytest.raises(ValueError) as refusal:
            file.repair(units="mm")
        assert str(refusal.value) in done_by_program.stderr.decode() and list(file.entities) == before
        return
    done = file.repair(units="mm", summary=True)
    assert [as_json(each) for each in done.repaired] == told["fixed"]
    assert [as_json(each) for each in done.left] == told["errors"]
    assert [each.de for each in done.lost] == [each["de"] for each in told["lost"]]
    assert (done.deleted, done.changes) == (told.get("deleted", []), told["summary"])
    assert file.to_bytes() == output.read_bytes()
    assert [repr(each.fields) for each in before[:20]] == fields_before
    for entity in before[:1]:
        with pytest.raises(RuntimeError, match="before its repair"):
            entity.label = "NEW"


def test_entities_and_fields_are_those_of_the_program(sample: Path, tmp_path: Path) -> None:
    file = opened(sample)
    printed = program.attributes(sample)
    assert [each.de for each in file.entities] == sorted(printed)
    for entity in file.entities:
        assert file.entity(entity.de) is entity
        told = printed[entity.de]
        assert int(told["EntityType"].split()[0]) == entity.type
        for label in PRINTED:
            value = entity.attributes[snake(label)]
            number = abs(int(told[label].split()[0])) if told[label] else 0
            assert number == (value.de if isinstance(value, igs.Entity) else value or 0), (entity, label)
        assert entity.attributes["entity_label"] == entity.label.strip(" ") or not entity.label.isprintable()
    for de, (shown, left_out) in program.fields(sample, tmp_path).items():
        entity = file.entity(de)
        own = {
            n: v for n, v in entity.attributes.items() if n not in SHOWN_ELSEWHERE and v not in (0, "", None)
        }
        of_entity = [*flat(own), *flat(entity.fields)]
        assert len(of_entity) == len(shown) + left_out, entity
        for (path, value), (label, text) in zip(of_entity, shown):
            assert path == label and is_shown_as(value, text), (entity, path, value, label, text)
