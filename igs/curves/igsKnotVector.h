#pragma once

#include <vector>

#include "igs/objects/igsList.h"
#include "igs/support/export.h"
#include "igs/support/undefined.h"

class igsInStream;
class utOstream;

/// One parametric direction of a rational B-spline (IGES 5.3, types 126 and 128): its order, its knots and the limits
/// of the parameter range in use. With order k and n control points there are n + k knots; knot i (0-based) is the
/// standard's T(i - k + 1). The spline is defined from T(0), knot k - 1, to T(N), knot n.
class IGS_API igsKnotVector {
 public:
  /// Degree + 1; -2147483647 until there are knots.
  int order() const { return m_order; }
  /// 0 while there are none.
  int number_of_knots() const { return static_cast<int>(m_knots.size()); }
  /// -DBL_MAX where a knot was not supplied.
  const igsList<double>& knots() const { return m_knots; }
  /// Copies knot `i` to `value` and returns 1; returns 0 and leaves `value` alone when there is no such knot.
  int knot(int i, double& value) const;
  /// Returns 1; returns 0 and stores nothing when there is no such knot.
  int set_knot(int i, double value);
  /// Copies T(0) and T(N); leaves alone what has no knot.
  void range(double& low, double& high) const;

  /// The limits in use; -DBL_MAX each until they are set.
  double start() const { return m_start; }
  double end() const { return m_end; }
  /// Returns 1; returns 0 and stores nothing unless `end` >= `start`.
  int set_limits(double start, double end);

  /// Moves the start of the limits to T(0), their end to T(N), or both. Return 0 and change nothing where the end would
  /// come before the start.
  int start_at_range();
  int end_at_range();
  int limit_to_range();
  /// Raises knot `i` to `previous`, the largest knot before it, and returns 1; returns 0 and changes nothing where it
  /// is not less than `tolerance` below.
  int raise_knot(int i, double previous, double tolerance);
  /// Makes knots within the range that are closer than `tolerance` equal. From T(N) down they take the value of the
  /// greater one until a knot is equal or farther away, then, from the second span of the range up, that of the lesser
  /// one. T(0), at which the range begins, is never moved.
  void snap_knots(double tolerance);

 private:
  friend class igs126;
  friend class igs128;

  /// Makes `order` + `count` unset knots.
  void make(int order, int count);
  /// Reads that many knots; 0 when the record cannot hold them.
  int read_knots(igsInStream& in, int order, int count);
  void read_limits(igsInStream& in);
  void print_knots(utOstream& os, const char* label) const;
  void clear() { *this = igsKnotVector(); }

  int m_order = igs_unset_int;
  igsList<double> m_knots;
  double m_start = igs_undefined_real;
  double m_end = igs_undefined_real;
};
