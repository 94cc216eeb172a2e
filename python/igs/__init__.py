"""Read, check, repair and write IGES files.

>>> import igs
>>> f = igs.read("examples/curves.igs")
>>> for curve in f.entities.filter(type=126):
...     print(curve.de, curve.degree, curve.control_points.shape)
23 2 (3, 3)
>>> f.check()
[]

Lengths are in the units of the file (`File.units`), angles in radians; what IGES 5.3 says of the entity types is in its
chapter 4. A file belongs to the thread that read or made it: in any other its use raises a RuntimeError.
"""

from __future__ import annotations

from ._explain import Explanation, explain, explanations
from ._file import Entities, File, new, read
from ._findings import Finding, Findings, Lost, Repair, to_frame
from ._igs import (
    Arc,
    BSplineCurve,
    BSplineSurface,
    Boundary,
    BoundedSurface,
    CompositeCurve,
    ConicArc,
    CurveOnSurface,
    Direction,
    Entity,
    GeometryChecks,
    Header,
    Line,
    Mesh,
    Point,
    PointSet,
    Polyline,
    TransformationMatrix,
    TrimmedSurface,
)

__all__ = [
    "Arc",
    "BSplineCurve",
    "BSplineSurface",
    "Boundary",
    "BoundedSurface",
    "CompositeCurve",
    "ConicArc",
    "CurveOnSurface",
    "Direction",
    "Entities",
    "Entity",
    "Explanation",
    "File",
    "Finding",
    "Findings",
    "GeometryChecks",
    "Header",
    "Line",
    "Lost",
    "Mesh",
    "Point",
    "PointSet",
    "Polyline",
    "Repair",
    "TransformationMatrix",
    "TrimmedSurface",
    "explain",
    "explanations",
    "new",
    "read",
    "to_frame",
]
