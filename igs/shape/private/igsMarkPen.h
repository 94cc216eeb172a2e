#pragma once

#include <vector>

#include "igs/shape/igsPlacement.h"
#include "igs/shape/igsShapeDrawing.h"

/// Draws what stands at one place. Whatever has a point that is undefined, or so far off that it may be, is left out.
class igsMarkPen {
 public:
  igsMarkPen(igsShapeDrawing& drawing, const igsShapeTolerance& tolerance, const igsPlacement& placement)
      : m_drawing(drawing), m_tolerance(tolerance), m_placement(placement) {}

  /// For what stands in this pen's place under the entity's own matrix.
  igsMarkPen under_matrix_of(const igsObject& entity) const {
    return {m_drawing, m_tolerance, m_placement * igsPlacement::of(entity)};
  }

  const igsShapeTolerance& tolerance() const { return m_tolerance; }
  void point(const igsVec3& point) const;
  void line(std::vector<igsVec3> points) const;
  void area(std::vector<igsVec3> corners) const;
  void text(igsShapeText text) const;

 private:
  bool place(std::vector<igsVec3>& points) const;

  igsShapeDrawing& m_drawing;
  const igsShapeTolerance& m_tolerance;
  igsPlacement m_placement;
};

/// Points from `centre` + `first` around to the angle `sweep`, in radians, by way of `centre` + `second`, which stands
/// for a right angle; both ends included.
std::vector<igsVec3> igs_arc_points(const igsVec3& centre, const igsVec3& first, const igsVec3& second, double sweep,
                                    const igsShapeTolerance& tolerance);
