#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include "igs/shape/export.h"
#include "igs/shape/igsShapeCurve.h"
#include "igs/shape/igsShapeSurface.h"

class igsFile;
class igsObject;

/// Makes the shapes of a file's entities, each once. The file must not change while shapes are made; those that were
/// made live on without it. Not for several threads at a time.
class IGS_SHAPE_API igsShapes {
 public:
  explicit igsShapes(const igsFile& file);

  /// The curve that an entity (igsCurve, igs142: its model-space curve, or its parameter-space curve on its surface)
  /// is, its matrices applied. Null for null, for anything else, and where its data make no curve: undefined or
  /// infinite values, knots out of order, references that lead nowhere or in circles.
  igsShapeCurvePtr curve(const igsObject* entity);
  /// The surface that an entity is, likewise: igsSurface, and of an igs143, igs144 or igs510 the surface as a whole.
  igsShapeSurfacePtr surface(const igsObject* entity);

  // For the makers of shapes.

  /// False when shapes that are made of shapes have become too many for the file: a short one may name the same curve
  /// again and again. `pieces`: the number of breaks that one more would have.
  bool may_add(std::size_t pieces);
  /// An evaluation of the shape that is being made takes 2^`levels` times as many of the shapes that it is made of. Up
  /// to 2^8 steps are allowed altogether; the shape is null otherwise.
  void add_levels(int levels) { m_levels += levels; }

 private:
  template <class Shape>
  struct Made {
    Shape shape;
    int levels = 0;
  };
  template <class Shape, class Make>
  Shape made_once(std::unordered_map<const igsObject*, Made<Shape>>& shapes, const igsObject* entity, Make make);

  std::unordered_map<const igsObject*, Made<igsShapeCurvePtr>> m_curves;
  std::unordered_map<const igsObject*, Made<igsShapeSurfacePtr>> m_surfaces;
  std::int64_t m_pieces_left;
  bool m_has_asked = false;  ///< may_add() was called, or a shape made, since the last shape was begun
  int m_depth = 0;
  int m_levels = 0;  ///< of the shapes that the one being made has asked for
};
