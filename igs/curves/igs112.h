#pragma once

#include <array>
#include <vector>

#include "igs/curves/igsSplinePiece.h"
#include "igs/objects/igsCurve.h"

/// Of one coordinate as a function of the distance s from the segment's break point: the coefficients of 1, s, s^2 and
/// s^3.
using igsCubicSegment = igsSplinePiece<4>;

/// Parametric Spline Curve (IGES 5.3, type 112): N cubic segments; segment i goes from break point T(i) to T(i + 1).
/// Indices are 0-based. Break points and coefficients that were never set are -DBL_MAX; lengths are model units.
///
/// A new curve is empty: set_size() makes its arrays. Setters and getters that name an element return 1; they return 0
/// and leave everything as it is when there is no such element.
class IGS_API igs112 : public igsTyped<igs112, "igs112", igsCurve> {
 public:
  igs112();

  /// Makes `segments` segments and one break point more, all unset, and returns 1; the old ones are lost. Returns 0 and
  /// changes nothing for fewer than 1 segment.
  int set_size(int segments);
  int number_of_segments() const;

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
  int break_point(int i, double& value) const;
  int set_break_point(int i, double value);
  /// Raises break point `i` to `previous`, the largest one before it, and returns 1; returns 0 and changes nothing
  /// where it is not less than `tolerance` below.
  int raise_break_point(int i, double previous, double tolerance);

  /// Segment `i`, below N.
  int segment(int i, igsCubicSegment& segment) const;
  int set_segment(int i, const igsCubicSegment& segment);
  /// The last segment at the last break point, as if another one began there: value, first derivative, second
  /// derivative / 2! and third derivative / 3! of each coordinate. 0 until they are set; nothing compares them.
  igsCubicSegment end_values() const;
  void set_end_values(const igsCubicSegment& values);

  igsObject* make_one() override;
  /// Returns 0, no array made, when the number of segments cannot be used.
  int read_pd_data(igsInStream& in) override;
  void write_pd_data(igsOutStream& out) override;
  void print_pd_data(utOstream& os) const override;
  void visit_fields(igsFieldVisitor& visitor) const override;
  void check_pd() const override;

 private:
  /// What is written, stated once for the writer and for field visitors.
  template <class V>
  void written_fields(V& visit) const;

  int read_segments(igsInStream& in, int count);
  void check_segments() const;
  bool leaves_plane(std::size_t segment, double tolerance) const;

  int m_spline_type = 3;
  int m_continuity = 0;
  int m_dimension = 3;
  std::vector<double> m_break_points;
  std::vector<double> m_coefficients;  ///< by segment, x y z, power
  std::array<double, igsCubicSegment::size> m_end_values{};
};
