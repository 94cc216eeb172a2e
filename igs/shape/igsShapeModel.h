#pragma once

#include <cstddef>
#include <vector>

#include "igs/shape/export.h"
#include "igs/shape/igsPlacement.h"
#include "igs/shape/igsShapeCurve.h"
#include "igs/shape/igsShapeSurface.h"
#include "igs/shape/igsShapes.h"

class igsFile;
class igsObject;

/// A curve in its part as a piece of a loop. The members of a composite curve (igs102) are pieces for themselves.
struct igsShapePiece {
  igsShapeCurvePtr curve;             ///< null where the entity makes no curve
  const igsObject* entity = nullptr;  ///< the curve's; null where it is missing
  /// The loop runs against the curve: as the file says it for edges and for the curves of an igs141, false for members
  /// of igs102, of which it says nothing.
  bool is_reversed = false;
  int edge = -1;   ///< 0-based, in igsShapeModel::edges(); -1 for a piece that is no shared edge
  int model = -1;  ///< of a piece in parameter space: the model-space piece whose image it is, where the file tells it
};

/// A boundary of a face. Of a vertex of an igs508 nothing is left here but, perhaps, a piece in parameter space. What
/// is missing or too much for the file stands as a piece without a curve.
struct igsShapeLoop {
  const igsObject* entity = nullptr;  ///< igs142, igs141 or igs508; the boundary curve of an igs108
  std::vector<igsShapePiece> model;   ///< in model space, in the order of the file; empty where there is no such form
  std::vector<igsShapePiece> parameter;  ///< in the surface's parameter space, likewise
  /// The sender does: 2 for an igs142, 1 for an igs141, always an igs508; also where there is no other form. False
  /// where there is none in model space.
  bool prefers_model = false;
};

/// A face, or an untrimmed surface that stands for itself.
struct igsShapeFace {
  const igsObject* entity = nullptr;   ///< igs144, igs143 or igs510, or the surface
  igsShapeSurfacePtr surface;          ///< null where the entity makes none
  std::vector<igsShapeLoop> loops;     ///< the outer one first where the file tells which it is
  bool has_outer_loop = false;         ///< the first loop is the outer one
  bool is_bounded_by_surface = false;  ///< the surface as a whole, less what the loops, all inner ones, take out
  igsPlacement placement;              ///< of the solid and of subfigures; surface and loops stand as the face has them
  int shell = -1;                      ///< 0-based, in igsShapeModel::shells(); -1 for a loose face
  bool is_reversed = false;            ///< the shell uses the face against the normal of its surface
  const igsObject* instance = nullptr;  ///< the outermost igs408 that places it; null where there is none
  bool is_blanked = false;              ///< it, or what it is part of
};

/// An edge of an igs504 that a face uses.
struct igsShapeEdge {
  const igsObject* list = nullptr;          ///< igs504
  int position = 0;                         ///< 0-based, in the list
  igsShapeCurvePtr curve;                   ///< null where the entity makes no curve
  const igsObject* curve_entity = nullptr;  ///< null where it is missing
  igsVec3 first, second;   ///< the vertices that the curve should go between; not finite where there is none
  igsPlacement placement;  ///< of the solid and of subfigures
  std::vector<int> faces;  ///< 0-based, in igsShapeModel::faces(), one for each use
};

/// A shell of solids, or one that stands for itself.
struct igsShapeShell {
  const igsObject* entity = nullptr;  ///< igs514
  const igsObject* solid = nullptr;   ///< igs186; null for a shell that stands for itself
  bool is_void = false;               ///< what it encloses is taken out of the solid
  std::size_t first_face = 0;         ///< 0-based, in igsShapeModel::faces()
  std::size_t end_face = 0;           ///< behind its last face
};

/// A curve that stands alone.
struct igsShapeWire {
  const igsObject* entity = nullptr;    ///< never null
  igsShapeCurvePtr curve;               ///< null where the entity makes no curve
  igsPlacement placement;               ///< of subfigures, and from a sheet into the space of the model
  const igsObject* instance = nullptr;  ///< the outermost igs408 that places it; null where there is none
  bool is_blanked = false;              ///< it, or what places it
  bool is_annotation = false;           ///< it, or what places it, serves as annotation
  /// It, or what places it, stands in the coordinates of a drawing (igs404) that has not just one view of the model.
  bool is_on_sheet = false;
};

/// A point, a set of points, or an entity of annotation; igs_draw() tells what it looks like.
struct igsShapeMark {
  const igsObject* entity = nullptr;    ///< never null
  igsPlacement placement;               ///< of subfigures, and from a sheet into the space of the model
  const igsObject* instance = nullptr;  ///< the outermost igs408 that places it; null where there is none
  bool is_blanked = false;              ///< it, or what places it
  bool is_on_sheet = false;             ///< as for igsShapeWire
};

/// What else belongs to a model; nothing by default.
struct igsShapeModelOptions {
  bool has_blanked = false;  ///< what is blanked, marked as such
  /// Points and annotation, curves that serve as annotation among them. What a drawing with one view lists is put where
  /// the view shows it.
  bool has_marks = false;
};

/// What a file shows: its faces, shells, edges and the curves that stand alone. Blanked entities, annotation and what
/// only defines something (curves of surfaces, surfaces of faces, members of subfigures without an instance) are not
/// part of it, nor are points and what has no end; instances of subfigures (igs408) are placed. The file must not
/// change while a model refers to it.
class IGS_SHAPE_API igsShapeModel {
 public:
  explicit igsShapeModel(const igsFile& file);
  /// As above, with shapes that `shapes`, of the same file, makes or has made.
  igsShapeModel(const igsFile& file, igsShapes& shapes, const igsShapeModelOptions& options = {});

  const std::vector<igsShapeFace>& faces() const { return m_faces; }
  const std::vector<igsShapeShell>& shells() const { return m_shells; }
  const std::vector<igsShapeEdge>& edges() const { return m_edges; }
  const std::vector<igsShapeWire>& wires() const { return m_wires; }
  /// Empty unless they were asked for.
  const std::vector<igsShapeMark>& marks() const { return m_marks; }
  /// DE numbers of the instances (igs408) and faces that were left out, as a whole or in part, because they place too
  /// much for the size of the file; ascending.
  const std::vector<int>& left_out() const { return m_left_out; }

 private:
  friend class igsShapeModelMaker;

  std::vector<igsShapeFace> m_faces;
  std::vector<igsShapeShell> m_shells;
  std::vector<igsShapeEdge> m_edges;
  std::vector<igsShapeWire> m_wires;
  std::vector<igsShapeMark> m_marks;
  std::vector<int> m_left_out;
};
