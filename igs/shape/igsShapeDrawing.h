#pragma once

#include <vector>

#include "igs/shape/export.h"
#include "igs/shape/igsShapePolyline.h"
#include "igs/shape/igsShapes.h"
#include "igs/shape/igsVec.h"
#include "igs/support/utString.h"

class igsObject;

/// A text as it stands in space: on the plane of `along` and `up`, from `start` to the right and up.
struct igsShapeText {
  utString text;  ///< the bytes of the file, in the encoding of their font
  int font = 1;   ///< the font code: 1001 to 1003 are symbols
  igsVec3 start;  ///< the lower left corner of the first letter, in model units
  igsVec3 along;  ///< the base line of the whole text, from its start to its end; as long as the text is wide
  igsVec3 up;     ///< the upright strokes of its letters, which may be slanted, from the base line to their top
};

/// What points and annotation look like, in model units, the matrices of the entities applied.
struct igsShapeDrawing {
  std::vector<std::vector<igsVec3>> lines;  ///< polylines of two points and more
  /// Flat polygons that are filled (arrowheads); the last point is not the first.
  std::vector<std::vector<igsVec3>> areas;
  std::vector<igsVec3> points;      ///< those of igs116 and igsPointset
  std::vector<igsShapeText> texts;  ///< the strings of notes, where they are stacked vertically letter by letter
};

/// Draws a point (igs116), a set of points (igsPointset), or annotation: dimensions, notes, leaders, labels, symbols,
/// centre and witness lines, hatching and sectioned areas, with the notes, leaders, points and curves that they consist
/// of, each once, their matrices applied before that of the whole. Parts that are blanked are left out, unless the
/// whole is. Hatch lines of a sectioned area are drawn in part where they would be more than five hundred. Nothing for
/// other entities, and of what is undefined, infinite or missing.
IGS_SHAPE_API igsShapeDrawing igs_draw(const igsObject& entity, igsShapes& shapes, const igsShapeTolerance& tolerance);
