#pragma once

#include <vector>

#include "igs/shape/igsShapeCurve.h"

/// How far along a part of a curve its points are, the length of the whole part being 1. Keeps a reference to the
/// curve.
class igsArcLength {
 public:
  /// The part from the first of these breaks to the last; all breaks of the curve between them are among them.
  igsArcLength(const igsShapeCurve& curve, const std::vector<double>& breaks);

  /// Of the whole part, in model units; not finite where a point is not.
  double length() const { return m_length; }
  /// Length and parameter run alike.
  bool is_even() const { return m_is_even; }
  /// 0 everywhere where the part has no length.
  double fraction_at(double parameter) const;
  /// `side`: where the fraction is that of a break.
  double parameter_at(double fraction, igsSide side) const;

 private:
  double length_between(double from, double to) const;

  const igsShapeCurve& m_curve;
  std::vector<double> m_parameters;
  std::vector<double> m_fractions;  ///< one a parameter
  double m_length = 0;
  bool m_is_even = true;
};
