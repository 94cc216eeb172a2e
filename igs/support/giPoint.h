#pragma once

#include <cfloat>
#include <cmath>

#include "igs/support/export.h"
#include "igs/support/giHypot.h"
#include "igs/support/undefined.h"

class utOstream;

/// A point in a plane, in model or parameter units; undefined until it is given coordinates.
class IGS_API giPoint2 {
 public:
  giPoint2() = default;
  giPoint2(double x, double y) : m_x(x), m_y(y) {}

  double x() const { return m_x; }
  double y() const { return m_y; }

  /// The library's one test for "no point here": x is -DBL_MAX or +DBL_MAX, or y is +DBL_MAX. A y of -DBL_MAX and NaNs
  /// count as defined.
  bool is_undefined() const { return m_x == -DBL_MAX || m_x == DBL_MAX || m_y == DBL_MAX; }

  /// In the units of the points. Not to be asked of undefined ones.
  double distance(const giPoint2& other) const { return std::hypot(m_x - other.m_x, m_y - other.m_y); }
  /// True when the points are at most `tolerance` apart.
  static bool coincident(const giPoint2& a, const giPoint2& b, double tolerance) { return a.distance(b) <= tolerance; }

  /// Prints "(x, y)".
  void print(utOstream& os) const;
  bool operator==(const giPoint2&) const = default;

 private:
  double m_x = igs_undefined_real;
  double m_y = igs_undefined_real;
};

/// A point in space, in model units; undefined until it is given coordinates.
class IGS_API giPoint3 {
 public:
  giPoint3() = default;
  giPoint3(double x, double y, double z) : m_x(x), m_y(y), m_z(z) {}

  double x() const { return m_x; }
  double y() const { return m_y; }
  double z() const { return m_z; }

  /// As giPoint2::is_undefined, z being tested like y.
  bool is_undefined() const { return m_x == -DBL_MAX || m_x == DBL_MAX || m_y == DBL_MAX || m_z == DBL_MAX; }

  /// In the units of the points. Not to be asked of undefined ones.
  double distance(const giPoint3& other) const { return gi_hypot(m_x - other.m_x, m_y - other.m_y, m_z - other.m_z); }
  /// True when the points are at most `tolerance` apart.
  static bool coincident(const giPoint3& a, const giPoint3& b, double tolerance) { return a.distance(b) <= tolerance; }

  /// Prints "(x, y, z)".
  void print(utOstream& os) const;
  bool operator==(const giPoint3&) const = default;

 private:
  double m_x = igs_undefined_real;
  double m_y = igs_undefined_real;
  double m_z = igs_undefined_real;
};
