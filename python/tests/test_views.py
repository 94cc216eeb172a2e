"""Typed views and the header: what they show, take and refuse."""

from __future__ import annotations

import gc
import math
from collections.abc import Callable
from pathlib import Path
from typing import Any

import igs
import numpy as np
import pytest
from numpy.typing import NDArray
from program import EXAMPLES

Array = NDArray[np.float64]

QUARTER = np.sqrt(0.5)
ARC: dict[str, Any] = {
    "degree": 2,
    "knots": [0, 0, 0, 1, 1, 1],
    "weights": [1, QUARTER, 1],
    "control_points": [[1, 0, 0], [1, 1, 0], [0, 1, 0]],
}
GRID = np.arange(4 * 3 * 3, dtype=float).reshape(4, 3, 3) ** 2 / 7
SHEET: dict[str, Any] = {
    "degree": (3, 1),
    "knots": ([0, 0, 0, 0, 2, 2, 2, 2], [1, 1, 1.5, 3, 3]),
    "weights": 1 + np.arange(12).reshape(4, 3) / 10,
    "control_points": GRID,
}
ROTATED = [[0, -1, 0, 5], [1, 0, 0, 6], [0, 0, 1, 7], [0, 0, 0, 1]]
UNSET = -1.7976931348623157e308
ROWS = [[0, 0, 2.5], [3, 0, 2.5], [3, 4, 2.5]]

NEW: list[tuple[int, int, dict[str, Any]]] = [
    (126, 0, ARC | {"range": (0.25, 0.75), "planar": True, "unit_normal": (0, 0, 1), "closed": False}),
    (126, 0, {name: ARC[name] for name in ("degree", "knots", "control_points")} | {"periodic": True}),
    (128, 0, SHEET | {"range": [(0.5, 2), (1, 2)], "closed": (False, True), "periodic": (True, False)}),
    (106, 11, {"coordinates": ROWS}),
    (106, 12, {"coordinates": GRID[0]}),
    (106, 13, {"coordinates": ROWS, "vectors": GRID[1]}),
    (106, 3, {"coordinates": ROWS, "vectors": GRID[1]}),
    (110, 1, {"start_point": (1, 2, 3), "end_point": (4, 5, 6.5)}),
    (100, 0, {"centre": (1, 2), "start_point": (4, 2), "end_point": (1, 5), "z_level": -1.5}),
    (104, 1, {"coeffs": (0.25, 0, 1, 0, 0, -1), "start_point": (2, 0), "end_point": (-2, 0), "z_level": 3}),
    (116, 0, {"point": (1, 2, 3)}),
    (123, 0, {"direction": (0, 3, 4)}),
    (124, 0, {"elements": ROTATED}),
]


def assert_same(got: Any, wanted: Any) -> None:
    ragged = isinstance(got, tuple) and isinstance(got[0], np.ndarray)
    for one, other in zip(got, wanted, strict=True) if ragged else [(got, wanted)]:
        np.testing.assert_array_equal(one, other)


def test_new_entities_come_back() -> None:
    f = igs.new()
    for type, form, values in NEW:
        f.add(type, form, label="NEW", **values)
    read = igs.read(f.to_bytes()).entities
    for entity, (type, form, values) in zip(read, NEW, strict=True):
        assert (entity.type, entity.form, entity.label) == (type, form, "NEW")
        for name, value in values.items():
            assert_same(getattr(entity, name), value)
    assert [each.rational for each in read[:3]] == [True, False, True]
    assert_same(read[1].weights, [1, 1, 1])
    assert_same(read[1].range, (0, 1))


def test_references_are_entities() -> None:
    f = igs.new()
    line = f.add(110, start_point=(0, 0, 0), end_point=(1, 0, 0))
    arc = f.add(100, centre=(1, 1), start_point=(1, 0), end_point=(1, 2), z_level=0)
    path = f.add(102, sub_curves=[line, arc])
    sheet = f.add(128, **SHEET)
    curve = f.add(142, surface=sheet, curve_2d=path, curve_3d=None)
    trimmed = f.add(144, surface=sheet, outer_boundary=curve, inner_boundaries=[curve, curve])
    bounded = f.add(143, basis_surface=sheet, boundaries=[f.add(141, surface=sheet)])
    assert path.sub_curves == [line, arc] and curve.curve_2d is path and curve.curve_3d is None
    assert trimmed.fields["OuterBoundaryFlag"] == 1 and trimmed.inner_boundaries == [curve, curve]
    assert bounded.basis_surface is sheet and bounded.boundaries[0].surface is sheet
    trimmed.outer_boundary = None
    assert trimmed.fields["OuterBoundaryFlag"] == 0
    read = igs.read(f.to_bytes())
    assert [e.type for e in read.entities[2].sub_curves] == [110, 100]
    f.remove(line)
    assert path.sub_curves == [None, arc]


def test_arrays_are_the_memory_of_the_file() -> None:
    f = igs.read(EXAMPLES / "surfaces.igs")
    surface = next(e for e in f.entities if isinstance(e, igs.BSplineSurface))
    points, knots = surface.control_points, surface.knots[0]
    assert np.shares_memory(points, surface.control_points) and np.shares_memory(knots, surface.knots[0])
    assert not np.shares_memory(points, knots)
    with pytest.raises(ValueError):
        points.setflags(write=True)
    with pytest.raises(ValueError):
        points[0] = 0
    before = points.copy()
    surface.control_points = before + 1
    assert_same(points, before + 1)
    f.repair()
    with pytest.raises(RuntimeError, match="before its repair"):
        surface.control_points = before
    again = f.entity(surface.de).control_points
    assert_same(again, points)
    assert not np.shares_memory(again, points)
    del f, surface
    gc.collect()
    assert_same(points, before + 1)


def test_entities_stay_while_their_arrays_are_in_use() -> None:
    f = igs.new()
    curve = f.add(126, **ARC)
    middle = curve.control_points[1:2]
    with pytest.raises(BufferError):
        f.remove(curve)
    assert_same(middle, [[1, 1, 0]])
    del middle
    f.remove(curve)
    assert len(f) == 0
    with pytest.raises(RuntimeError, match="removed"):
        curve.knots


REFUSED: list[tuple[int, str, Any, str]] = [
    (126, "knots", np.zeros(7), "a curve of degree 2 with 3 control points has 6 knots, not 7"),
    (126, "knots", [0, 0, 0, 1, 1, np.nan], r"knots\[5\] is nan"),
    (126, "knots", [0, 0, 0, 1, 1, UNSET], r"knots\[5\] is -1.79"),
    (126, "weights", [1, 2], "a curve with 3 control points has 3 weights, not 2"),
    (126, "weights", None, "weights is nan"),
    (126, "control_points", [[0, 0]] * 3, r"shape \(3, 3\), not an array of shape \(3, 2\)"),
    (126, "control_points", [[0, 0, 0], [0, np.inf, 0], [0, 0, 0]], r"control_points\[1, 1\] is inf"),
    (126, "range", (1, 0.5), "0.5 is below 1.0"),
    (126, "unit_normal", (0, 1), "unit_normal has 3 coordinates, not 2"),
    (128, "knots", ([0] * 8, [0] * 6), "along v, a surface of degree 1 .* has 5 knots, not 6"),
    (128, "knots", ([0] * 8,), "one value along u and one along v, not 1"),
    (128, "weights", np.ones((3, 4)), r"shape \(4, 3\), not an array of shape \(3, 4\)"),
    (128, "control_points", GRID.T, r"shape \(4, 3, 3\), not an array of shape \(3, 3, 4\)"),
    (128, "range", [(0, 1), (1, 0)], "0.0 is below 1.0"),
    (106, "coordinates", [[0, 0, 1], [0, 0, 2]], "that of point 1 is 2.0, not 1.0"),
    (106, "coordinates", [0, 0, 1], r"shape \(n, 3\), not \(3\)"),
    (106, "vectors", ROWS, "only points of forms 3 and 13 have vectors"),
    (110, "start_point", "here", "could not convert"),
    (100, "z_level", -np.inf, "z_level is -inf"),
    (124, "elements", np.ones((4, 4)), "the last row of a matrix is 0, 0, 0, 1"),
    (124, "elements", ROTATED[:3], r"shape \(4, 4\), not an array of shape \(3, 4\)"),
]


def test_setters_refuse_and_leave_the_file_as_it_was() -> None:
    f = igs.new()
    for type, form, values in NEW:
        f.add(type, form, **values)
    path = f.add(102, sub_curves=[f.entities[0]])
    before = f.to_bytes()
    for type, name, value, reason in REFUSED:
        entity = f.entities.filter(type=type)[0]
        with pytest.raises(ValueError, match=reason):
            setattr(entity, name, value)
        assert f.to_bytes() == before, reason
    elsewhere = igs.new().add(116, point=(0, 0, 0))
    for curves in ([path], [None], [elsewhere]):
        with pytest.raises(ValueError):
            path.sub_curves = curves
    assert f.to_bytes() == before


NOT_ADDED: list[tuple[type[Exception], str, int, int, dict[str, Any]]] = [
    (TypeError, "knots is missing", 126, 0, {"degree": 1, "control_points": ROWS}),
    (TypeError, "a degree is an int", 126, 0, ARC | {"degree": 2.5}),
    (ValueError, "the degree is 1 or more, not 0", 126, 0, ARC | {"degree": 0}),
    (ValueError, "degree 3 has more than 3 control points, not 3", 126, 0, ARC | {"degree": 3}),
    (ValueError, "has 6 knots, not 5", 126, 0, ARC | {"knots": [0] * 5}),
    (ValueError, "along u, a surface of degree 2", 128, 0, SHEET | {"degree": (2, 1)}),
    (ValueError, "there are 3 points and 0 vectors", 106, 13, {"coordinates": ROWS}),
    (ValueError, "no 'radius' to be set", 100, 0, {"radius": 3}),
    (ValueError, "no 'colur' to be set", 110, 0, {"colur": 3}),
    (ValueError, "no entities of type 126, form 9", 126, 9, {}),
]


def test_what_is_refused_is_not_added() -> None:
    f = igs.new()
    for error, reason, type, form, values in NOT_ADDED:
        with pytest.raises(error, match=reason):
            f.add(type, form, **values)
        assert len(f) == 0


def numbers_in(value: Any) -> list[float]:
    """All numbers among fields, in their order."""
    if isinstance(value, (dict, list)):
        inner = value.values() if isinstance(value, dict) else value
        return [number for each in inner for number in numbers_in(each)]
    return [UNSET if value is None else value]


# What a view shows, as numbers in the order of the file, and the fields that hold the same.
SHOWN: list[tuple[type[igs.Entity], str, Callable[[Any], list[Any]]]] = [
    (igs.BSplineCurve, "Knots Weights ControlPoints", lambda e: [e.knots, e.weights, e.control_points]),
    (igs.BSplineSurface, "KnotsU KnotsV Weights", lambda e: [*e.knots, e.weights.T]),
    (igs.BSplineSurface, "ControlPoints", lambda e: [e.control_points.transpose(1, 0, 2)]),
    (igs.Line, "StartPoint EndPoint", lambda e: [e.start_point, e.end_point]),
    (igs.Arc, "Centre StartPoint EndPoint", lambda e: [e.centre, e.start_point, e.end_point]),
    (igs.ConicArc, "A B C D E F", lambda e: [e.coeffs]),
    (igs.Point, "Coordinates", lambda e: [e.point]),
    (igs.Direction, "Direction", lambda e: [e.direction]),
]


def test_views_show_what_the_fields_do(sample: Path) -> None:
    try:
        f = igs.read(sample)
    except ValueError:
        pytest.skip("no IGES file")
    for entity in f.entities:
        for view, labels, shown in SHOWN:
            if isinstance(entity, view):
                fields = entity.fields
                wanted = numbers_in([fields[label] for label in labels.split()])
                got = np.concatenate([np.ravel(each) for each in shown(entity)])
                assert_same(got, wanted)


def test_to_set_what_is_there_changes_nothing() -> None:
    met: set[type[igs.Entity]] = set()
    for path in sorted(EXAMPLES.glob("*[a-z].igs")):
        f = igs.read(path)
        before = f.to_bytes()
        met.update(map(type, f.entities))
        if "-" in path.stem:
            continue  # faulty ones have what setters refuse
        for entity in f.entities:
            for name, what in vars(type(entity)).items():
                if isinstance(what, property) and what.fset and getattr(entity, name) is not None:
                    setattr(entity, name, getattr(entity, name))
        f.units, f.start = f.units, f.start
        assert f.to_bytes() == before, path
    views = {each for each in vars(igs).values() if isinstance(each, type) and issubclass(each, igs.Entity)}
    assert views == met


def bernstein(degree: int, count: int) -> Array:
    """The values of the polynomials of a degree at places from 0 to 1, a row a place."""
    i, t = np.arange(degree + 1), np.linspace(0, 1, count)[:, None]
    binomials = [math.comb(degree, k) for k in i]
    return np.array(binomials * t**i * (1 - t) ** (degree - i))


@pytest.mark.parametrize(("p", "q"), [(1, 1), (2, 1), (3, 5), (6, 2)])
def test_points_are_where_the_definition_of_splines_says(p: int, q: int) -> None:
    random = np.random.default_rng(p)
    points, weights = random.normal(size=(p + 1, q + 1, 3)), random.uniform(0.2, 5, size=(p + 1, q + 1))
    u, v = np.repeat([0.0, 1.0], p + 1), np.repeat([0.0, 1.0], q + 1)
    f = igs.new()
    f.add(126, degree=p, knots=u, weights=weights[:, 0], control_points=points[:, 0])
    f.add(128, degree=(p, q), knots=(u, v), weights=weights, control_points=points)
    curve, surface = igs.read(f.to_bytes()).entities
    raised = np.concatenate([points * weights[..., None], weights[..., None]], axis=2)
    line = bernstein(p, 9) @ raised[:, 0]
    grid = np.einsum("ai,bj,ijk->abk", bernstein(p, 9), bernstein(q, 5), raised)
    np.testing.assert_allclose(curve.points(9), line[:, :3] / line[:, 3:], atol=1e-11)
    np.testing.assert_allclose(surface.points(9, 5), grid[..., :3] / grid[..., 3:], atol=1e-11)


def test_arcs_have_angles() -> None:
    arc = igs.new().add(100, centre=(1, 1), start_point=(1, 3), end_point=(3, 1), z_level=0)
    assert arc.radius == 2
    np.testing.assert_allclose(arc.angles, [np.pi / 2, 2 * np.pi])
    arc.end_point = arc.start_point
    np.testing.assert_allclose(arc.angles, [np.pi / 2, 5 * np.pi / 2])
    arc.start_point = arc.centre
    with pytest.raises(ValueError, match="no radius"):
        arc.angles


# Values of the header, in its order, that are taken, and others that are refused.
TAKEN: list[Any] = [
    "/",
    "#",
    "part",
    "größer.igs",
    "maker",
    "1.0",
    32,
    38,
    7,
    308,
    15,
    "the part",
    0.5,
    "INCH",
    8,
    0.25,
] + ["20240115.093000", 1e-6, 1000.0, "somebody", "somewhere", 11, 3, "20240116.093000"]
NOT_TAKEN: list[Any] = ["5", "ab", "", "two\nlines", "", "", 3, 37, 5, 37, 5, "", 0.0, "furlong", 0, -1.0] + [
    "20241315.093000",
    np.nan,
    np.inf,
    "",
    "",
    12,
    8,
    "yesterday",
]


def test_all_of_the_header_can_be_set() -> None:
    f = igs.new()
    assert f.units == "MM"
    for name, taken, refused in zip(f.header, TAKEN, NOT_TAKEN, strict=True):
        setattr(f.header, name, taken)
        before = dict(f.header)
        with pytest.raises(ValueError):
            setattr(f.header, name, refused)
        assert dict(f.header) == before and before[name] == taken
    f.start = start = ["A part,", "", "for people."]
    with pytest.raises(ValueError, match="line 2 has more than 72"):
        f.start = ["", "x" * 73]
    read = igs.read(f.to_bytes())
    assert dict(read.header) == before and read.start == start
    read.units = "millimetres"
    assert (read.units, read.header["units"]) == ("MM", "MM")
    read.header.units = 6
    assert read.units == "M"
    left_out = f.to_bytes().replace(b"8Hsomebody/", b"          /")
    assert igs.read(left_out).header.name_of_author is None
