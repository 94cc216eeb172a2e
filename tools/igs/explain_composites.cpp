#include "explain_table.h"

std::span<const ErrorText> composite_errors() {
  static constexpr ErrorText rows[] = {
      {"igs102NoSubCurves", "the composite curve has no sub-curves", ""},
      {"igs102NullSubCurvePtr", "sub-curve {0} (counted from 0) is missing", ""},
      {"igs102InvalidSubCurveType", "sub-curve {0} (counted from 0) is neither a curve nor a point",
       "A sound point set is made a polyline; where other entities use it too, they keep the point set."},
      {"igs102InvalidSubCurveData", "sub-curve {0} (counted from 0) has faults of its own",
       "The sub-curve is repaired; if that fails, it is taken out of the composite curve."},
      {"igs102OnlyPoint", "the composite curve's only sub-curve is a point", ""},
      {"igs102AdjacentPoints", "sub-curves {0} and {1} (counted from 0) are both points",
       "It is accepted; nothing is changed."},
      {"igs102BadNumCurves", "the record cannot hold {0} sub-curves; the entity was left out", ""},
      {"igs104NoConstruct", "the conic arc's coefficients, start point, end point or plane height are undefined", ""},
      {"igs104UnknownType", "the conic arc's coefficients describe no ellipse, hyperbola or parabola", ""},
      {"igs104NotEllipse", "the form says an ellipse, but the coefficients do not describe one",
       "The form is set to match; coefficients that describe no curve are not repaired."},
      {"igs104NotHyperbola", "the form says a hyperbola, but the coefficients do not describe one",
       "The form is set to match; coefficients that describe no curve are not repaired."},
      {"igs104NotParabola", "the form says a parabola, but the coefficients do not describe one",
       "The form is set to match; coefficients that describe no curve are not repaired."},
  };
  return rows;
}
