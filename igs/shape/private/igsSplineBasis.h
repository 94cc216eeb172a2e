#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "igs/shape/igsShapeCurve.h"
#include "igs/shape/igsVec.h"

class igsKnotVector;

/// The B-spline functions of one parametric direction, over its limits in use.
class igsSplineBasis {
 public:
  static constexpr int highest_degree = 60;

  /// The functions that are not 0 at a parameter, degree + 1 of them, with their derivatives.
  struct Values {
    std::size_t first_point;  ///< that the first of them belongs to, 0-based
    double value[highest_degree + 1], first[highest_degree + 1], second[highest_degree + 1];
  };

  /// None where the knots are not those of `num_points` points, not finite or out of order, where their range is empty
  /// or the degree is too high. Limits that are unset or empty count as those of the knots, which they cannot exceed.
  static std::optional<igsSplineBasis> make(const igsKnotVector& knots, int num_points);

  int degree() const { return m_degree; }
  const igsRange& range() const { return m_range; }
  /// Where spans meet, ascending, the ends of the range included.
  const std::vector<double>& breaks() const { return m_breaks; }
  /// `t` lies in the range.
  void evaluate(double t, igsSide side, Values& values) const;
  /// As above, without the derivatives.
  void evaluate_values(double t, igsSide side, Values& values) const;

 private:
  igsSplineBasis() = default;
  bool find_range(const igsKnotVector& knots, std::size_t num_points);
  void find_spans(std::size_t num_points);

  int m_degree = 0;
  std::vector<double> m_knots;
  igsRange m_range;
  std::vector<double> m_breaks;
  std::vector<std::size_t> m_spans;  ///< of each piece between breaks: the knot that its span begins at
};
