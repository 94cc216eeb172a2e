#include "explain_table.h"

std::span<const ErrorText> geometry_errors() {
  static constexpr ErrorText rows[] = {
      {"igs100NoConstruct", "the arc's centre, start point, end point or plane height is undefined", ""},
      {"igs100ZeroRadius", "the arc's radius is 0", ""},
      {"igs100InconsistRad", "the arc's start and end point have different distances from its centre",
       "The centre is moved so that both points lie on one circle of the mean radius."},
      {"igs110InvalidStartPoint", "the line's start point is undefined", ""},
      {"igs110InvalidEndPoint", "the line's end point is undefined", ""},
      {"igs110CoincidentPoints", "the line's end points are at most {0} apart",
       "The line is replaced by a polyline with the same ends."},
      {"igs116InvalidPoint", "the point's coordinates are undefined", ""},
      {"igs123NoConstruct", "the direction's components are undefined", ""},
      {"igs124NoConstruct", "the matrix is invalid", ""},
      {"igs124NotHomogenous", "the matrix's last element is {0}, not 1", ""},
      {"igs124InvalidRHS", "the form says a right-handed matrix, but the determinant is {0}, not 1",
       "A negative determinant makes the form left-handed. With kelOptRigidTransforms set, a matrix that is nearly "
       "rigid "
       "is made rigid, and any other is not repaired."},
      {"igs124InvalidLHS", "the form says a left-handed matrix, but the determinant is {0}, not -1",
       "A positive determinant makes the form right-handed. With kelOptRigidTransforms set, a matrix that is nearly "
       "rigid "
       "is made rigid, and any other is not repaired."},
      {"igs124InvalidUnitVectors", "the matrix's columns are no unit vectors",
       "With kelOptRigidTransforms set, a matrix that is nearly rigid is made rigid."},
      // Copious data.
      {"igsPointsetInvalidDimensionality", "the point set's dimensionality is {0}; it has to be 1, 2 or 3",
       "The dimensionality that the form tells is taken."},
      {"igsPointsetInconsistForm", "form {0} does not fit dimensionality {1}", "The form is set to match."},
      {"igsPointsetNoPoints", "the point set has no points", ""},
      {"igsPointsetInvalidZLevel", "the point set's plane height is undefined", ""},
      {"igsPointsetInvalidPoint", "point {0} (counted from 0) is undefined", ""},
      {"igsPointsetBadNumPoints", "the record cannot hold {0} points; the entity was left out", ""},
      {"igsPolylineInvalidDimensionality", "the polyline's dimensionality is {0}; it has to be 1, 2 or 3",
       "The dimensionality that the form tells is taken."},
      {"igsPolylineInconsistForm", "form {0} does not fit dimensionality {1}", "The form is set to match."},
      {"igsPolylineTooFewPoints", "the polyline has fewer than 2 points: {0}", ""},
      {"igsPolylineInvalidZLevel", "the polyline's plane height is undefined", ""},
      {"igsPolylineInvalidPoint", "point {0} (counted from 0) is undefined", ""},
      {"igsPolylineBadNumPoints", "the record cannot hold {0} points; the entity was left out", ""},
  };
  return rows;
}
