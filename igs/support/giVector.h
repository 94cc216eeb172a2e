#pragma once

#include <cmath>

#include "igs/support/export.h"
#include "igs/support/giHypot.h"
#include "igs/support/undefined.h"

class utOstream;

/// A direction with a length, in a plane; undefined until it is given components.
class IGS_API giVector2 {
 public:
  giVector2() = default;
  giVector2(double x, double y) : m_x(x), m_y(y) {}

  double x() const { return m_x; }
  double y() const { return m_y; }

  /// True when the vector was never built: its x is -DBL_MAX. No other component is looked at.
  bool is_undefined() const { return igs_is_undefined_real(m_x); }
  /// Not to be asked of an undefined vector.
  double length() const { return std::hypot(m_x, m_y); }

  /// Prints "(x, y)".
  void print(utOstream& os) const;
  bool operator==(const giVector2&) const = default;

 private:
  double m_x = igs_undefined_real;
  double m_y = igs_undefined_real;
};

/// A direction with a length, in space; undefined until it is given components.
class IGS_API giVector3 {
 public:
  giVector3() = default;
  giVector3(double x, double y, double z) : m_x(x), m_y(y), m_z(z) {}

  double x() const { return m_x; }
  double y() const { return m_y; }
  double z() const { return m_z; }

  /// True when the vector was never built: its x is -DBL_MAX. No other component is looked at.
  bool is_undefined() const { return igs_is_undefined_real(m_x); }
  /// Not to be asked of an undefined vector.
  double length() const { return gi_hypot(m_x, m_y, m_z); }
  /// The scalar product.
  double dot(const giVector3& other) const { return m_x * other.m_x + m_y * other.m_y + m_z * other.m_z; }
  /// The vector product, right-handed.
  giVector3 cross(const giVector3& other) const {
    return {m_y * other.m_z - m_z * other.m_y, m_z * other.m_x - m_x * other.m_z, m_x * other.m_y - m_y * other.m_x};
  }
  /// `factor` times this vector.
  giVector3 scaled(double factor) const { return {m_x * factor, m_y * factor, m_z * factor}; }

  /// Makes the length 1 and returns 1; returns 0 and changes nothing for a vector whose length is zero or not finite.
  int unitize();

  /// Prints "(x, y, z)".
  void print(utOstream& os) const;
  bool operator==(const giVector3&) const = default;

 private:
  double m_x = igs_undefined_real;
  double m_y = igs_undefined_real;
  double m_z = igs_undefined_real;
};

/// A direction of length 1; undefined when it was built from a vector that has no direction.
class IGS_API giUnitVec3 {
 public:
  giUnitVec3() = default;
  explicit giUnitVec3(const giVector3& direction);
  giUnitVec3(double x, double y, double z) : giUnitVec3(giVector3(x, y, z)) {}

  double x() const { return m_vector.x(); }
  double y() const { return m_vector.y(); }
  double z() const { return m_vector.z(); }
  const giVector3& vector() const { return m_vector; }
  bool is_undefined() const { return m_vector.is_undefined(); }

  /// Prints "(x, y, z)".
  void print(utOstream& os) const;
  bool operator==(const giUnitVec3&) const = default;

 private:
  giVector3 m_vector;
};
