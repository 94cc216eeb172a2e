"""What is wrong with a file, as a table, and where, as a picture.

    python3 survey.py [FILE [PICTURE]]

The cells are those of a notebook; editors that know "# %%" run them one by one.
"""

# %% Read the file, and check it.
import sys
from pathlib import Path

import igs
import matplotlib
import numpy as np

matplotlib.use("Agg")
from matplotlib import pyplot  # noqa: E402
from mpl_toolkits.mplot3d.art3d import Poly3DCollection  # noqa: E402

source = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent / "surfaces-faulty.igs")
picture = Path(sys.argv[2] if len(sys.argv) > 2 else "survey.png")
file = igs.read(source)
findings = file.check()
print(f"{source.name}: {len(file)} entities, {len(findings)} findings, {len(findings.roots)} of them roots")

# %% The findings as a table.
table = igs.to_frame(findings)
print(table[["severity", "line", "de", "class_name"]].head(5).to_string(index=False))
counts = table.groupby(["type", "severity"]).size().unstack(fill_value=0)
names = {entity.type: f"{entity.type} {entity.type_name}" for entity in file.entities}
print(f"{len(counts)} entity types have findings, most of all {names[counts.sum(axis=1).idxmax()]}")

# %% What stands for itself, as triangles or as points.
faulty = {each.de for each in findings if each.severity != "note"}
meshes, curves = [], []
for entity in file.entities:
    if entity.attributes["subordinate_status"] == 1 or entity.attributes["blank_status"]:
        continue
    try:
        mesh = entity.mesh(chord=0.05, angle=0.1)
        if mesh.is_complete:
            meshes.append((entity, mesh))
    except ValueError:  # no face or surface
        try:
            curves.append((entity, entity.points(100)))
        except ValueError:  # no curve either
            pass
area = sum(
    np.linalg.norm(np.cross(b - a, c - a), axis=1).sum() / 2
    for a, b, c in (np.moveaxis(mesh.points[mesh.triangles], 1, 0) for _, mesh in meshes)
)
print(f"{len(meshes)} surfaces with an area of {area:.0f}, {len(curves)} curves")

# %% A picture: what is faulty is red.
figure = pyplot.figure(figsize=(9, 7.5))
space = figure.add_axes((-0.11, -0.03, 1.22, 1.47), projection="3d", proj_type="ortho", azim=-75, elev=35)
light = np.array([0.3, -0.5, 0.81])
for entity, mesh in meshes:
    colour = np.array([0.85, 0.25, 0.2] if entity.de in faulty else [0.45, 0.6, 0.75])
    shade = 0.45 + 0.55 * np.abs(mesh.normals[mesh.triangles].mean(axis=1) @ light)
    shaded = np.outer(shade, colour).clip(0, 1)
    space.add_collection3d(
        Poly3DCollection(mesh.points[mesh.triangles], facecolors=shaded, edgecolors=shaded, lw=0.3)
    )
    if entity.de in faulty:
        space.text(*mesh.points.mean(axis=0), f"DE {entity.de}", ha="center", weight="bold", zorder=10)
for entity, points in curves:
    space.plot(*points.T, color="firebrick" if entity.de in faulty else "black", lw=1)
corners = np.vstack([mesh.points for _, mesh in meshes] + [points for _, points in curves])
low, high = corners.min(axis=0), corners.max(axis=0)
space.set(xlim=(low[0], high[0]), ylim=(low[1], high[1]), zlim=(low[2], high[2]))
space.set_box_aspect(np.maximum(high - low, 1e-6), zoom=0.8)
space.set_axis_off()

bars = figure.add_axes((0.36, 0.06, 0.6, 0.34))
colours = {"error": "firebrick", "warning": "darkorange", "note": "silver"}
shown = counts.reindex(columns=list(colours), fill_value=0).loc[counts.sum(axis=1).sort_values().index]
shown.rename(index=names).plot.barh(stacked=True, color=colours, ax=bars, width=0.7)
bars.set(title=f"{source.name}: findings by entity type", ylabel="")
bars.xaxis.get_major_locator().set_params(integer=True)
bars.legend(loc="lower right", frameon=False)
bars.spines[["top", "right"]].set_visible(False)
figure.savefig(picture, dpi=100, metadata={"Software": None})
