#pragma once

#include <cstdint>
#include <vector>

#include "igs/curves/igsSplinePiece.h"
#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsCurve.h"

/// Fewer than one segment, which ends the read of the curve, as does a number that the record cannot hold; carries it.
using igs112BadNumSegments = igsCountErrors<"igs112", "Segments">::BadNum;

/// Of one coordinate as a function of the distance s from the segment's break point: the coefficients of 1, s, s^2 and
/// s^3.
using igsCubicSegment = igsSplinePiece<4>;

/// Parametric Spline Curve (IGES 5.3, type 112): N cubic segments; segment i goes from break point T(i) to T(i + 1).
/// Indices are 0-based. Break points and coefficients that were never set are -DBL_MAX; lengths are model units.
///
/// A new curve is empty: set_size() makes its arrays. Setters and getters that name an element return 1; they return 0
/// and leave everything as it is when there is no such element.
class IGS_API igs112 : public igsEntity<igs112, "igs112", igsCurve> {
 public:
  igs112();

  /// Makes `segments` segments and one break point more, all unset, and returns 1; the old ones are lost. Returns 0 and
  /// changes nothing for fewer than 1 segment.
  int set_size(int segments);
  int number_of_segments() const { return static_cast<int>(m_segments.size()); }

  /// CTYPE, what the curve was before: 1 linear, 2 quadratic, 3 cubic, 4 Wilson-Fowler, 5 modified Wilson-Fowler,
  /// 6 B-spline.
  int spline_type() const { return m_spline_type; }
  void set_spline_type(int type) { m_spline_type = type; }
  /// H, what is continuous over the break points: 0 position, 1 slope too, 2 curvature too.
  int continuity() const { return m_continuity; }
  void set_continuity(int continuity) { m_continuity = continuity; }
  /// NDIM: 2 for a curve in a plane of constant z, 3 otherwise.
  int dimension() const { return m_dimension; }
  void set_dimension(int dimension) { m_dimension = dimension; }

  /// Break point `i`, from 0 to N.
  int break_point(int i, double& value) const { return igs_get_element(m_break_points, i, value); }
  int set_break_point(int i, double value) { return igs_set_element(m_break_points, i, value); }
  /// Raises break point `i` to `previous`, the largest one before it, and returns 1; returns 0 and changes nothing
  /// where it is not less than `tolerance` below.
  int raise_break_point(int i, double previous, double tolerance);

  /// Segment `i`, below N.
  int segment(int i, igsCubicSegment& segment) const { return igs_get_element(m_segments, i, segment); }
  int set_segment(int i, const igsCubicSegment& segment) { return igs_set_element(m_segments, i, segment); }
  /// The last segment at the last break point, as if another one began there: value, first derivative, second
  /// derivative / 2! and third derivative / 3! of each coordinate. 0 until they are set; nothing compares them.
  const igsCubicSegment& end_values() const { return m_end_values; }
  void set_end_values(const igsCubicSegment& values) { m_end_values = values; }

  /// Returns 0, the curve empty, when the number of segments cannot be used.
  int read_pd_data(igsInStream& in) override;
  void check_pd() const override;

  template <class E, class V>
  static void fields(E& curve, V& visit) {
    using BadCount = igsBadCount<igs112BadNumSegments>;
    visit("SplineType", curve.m_spline_type);
    visit("Continuity", curve.m_continuity);
    visit("Dimension", curve.m_dimension);
    const int count = visit.count("NumberOfSegments", curve.m_segments.size(), 1, BadCount());
    visit.list("BreakPoints", std::int64_t{count} + 1, curve.m_break_points, BadCount{count});
    visit.list("Segments", count, curve.m_segments, BadCount());
    visit("EndValues", curve.m_end_values);
  }

 private:
  void check_segments() const;

  int m_spline_type = 3;
  int m_continuity = 0;
  int m_dimension = 3;
  std::vector<double> m_break_points;
  std::vector<igsCubicSegment> m_segments;
  igsCubicSegment m_end_values;
};
