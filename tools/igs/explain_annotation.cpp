#include "explain_table.h"

std::span<const ErrorText> annotation_errors() {
  static constexpr ErrorText rows[] = {
      {"igsCentreLineInvalidDimensionality", "the centre line's dimensionality is {0}; it has to be 1",
       "It is made 1; of points in space, x and y are kept."},
      {"igsCentreLineInvalidZLevel", "the centre line's plane height is undefined", ""},
      {"igsCentreLineBadNumPoints", "the centre line cannot have {0} points, or the record cannot hold them",
       "Of an odd number of 3 or more, the last point is dropped; others are not repaired."},
      {"igsCentreLineInvalidPoint", "point {0} (counted from 0) is undefined", ""},
      {"igsSectionInvalidDimensionality", "the section's dimensionality is {0}; it has to be 1",
       "It is made 1; of points in space, x and y are kept."},
      {"igsSectionInvalidZLevel", "the section's plane height is undefined", ""},
      {"igsSectionBadNumPoints", "the section cannot have {0} points, or the record cannot hold them",
       "Of an odd number of 3 or more, the last point is dropped; others are not repaired."},
      {"igsSectionInvalidPoint", "point {0} (counted from 0) is undefined", ""},
      {"igsWitnessLineInvalidDimensionality", "the witness line's dimensionality is {0}; it has to be 1",
       "It is made 1; of points in space, x and y are kept."},
      {"igsWitnessLineInvalidZLevel", "the witness line's plane height is undefined", ""},
      {"igsWitnessLineBadNumPoints", "the witness line cannot have {0} points, or the record cannot hold them", ""},
      {"igsWitnessLineInvalidPoint", "point {0} (counted from 0) is undefined", ""},
      {"igsWitnessLineCoincidentPoints", "the witness line's first and last point are at most {0} apart",
       "It is accepted as suppressed; nothing is changed."},
      {"igsWitnessLineNotCollinear",
       "point {0} (counted from 0) is {1} away from the line through the witness line's first and last point",
       "It is accepted; nothing is changed."},
      {"igsSimpleClosedPlanarCurveInvalidDimensionality",
       "the closed planar curve's dimensionality is {0}; it has to be 1",
       "It is made 1; of points in space, x and y are kept."},
      {"igsSimpleClosedPlanarCurveInvalidZLevel", "the closed planar curve's plane height is undefined", ""},
      {"igsSimpleClosedPlanarCurveBadNumPoints", "the record cannot hold {0} points; the entity was left out", ""},
      {"igsSimpleClosedPlanarCurveInvalidPoint", "point {0} (counted from 0) is undefined", ""},
      {"igsSimpleClosedPlanarCurveTooFewPoints", "the closed planar curve has fewer than 3 points: {0}", ""},
      {"igsSimpleClosedPlanarCurveNotClosed", "the closed planar curve's ends are {0} apart",
       "A copy of the first point is put behind the last one."},
  };
  return rows;
}
