#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "igs/support/giHypot.h"

// Points and vectors to calculate with; giPoint3 and its like are what entities hold.

/// A point or a vector in a parameter space; zero by default.
struct igsVec2 {
  double x = 0;  ///< u, on a surface
  double y = 0;  ///< v, on a surface

  /// Component by component.
  igsVec2 operator+(const igsVec2& other) const { return {x + other.x, y + other.y}; }
  igsVec2 operator-(const igsVec2& other) const { return {x - other.x, y - other.y}; }
  igsVec2 operator*(double factor) const { return {x * factor, y * factor}; }
  /// The scalar product.
  double dot(const igsVec2& other) const { return x * other.x + y * other.y; }
  /// Above 0 where `other` points to the left of this vector.
  double cross(const igsVec2& other) const { return x * other.y - y * other.x; }
  /// The distance from the origin.
  double length() const { return std::hypot(x, y); }
  /// False where a component is not a number or infinite.
  bool is_finite() const { return std::isfinite(x) && std::isfinite(y); }
  bool operator==(const igsVec2&) const = default;
};

/// A point or a vector in space, in model units; zero by default.
struct igsVec3 {
  double x = 0;  ///< along the x axis
  double y = 0;  ///< along the y axis
  double z = 0;  ///< along the z axis

  /// Component by component.
  igsVec3 operator+(const igsVec3& other) const { return {x + other.x, y + other.y, z + other.z}; }
  igsVec3 operator-(const igsVec3& other) const { return {x - other.x, y - other.y, z - other.z}; }
  igsVec3 operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
  igsVec3& operator+=(const igsVec3& other) { return *this = *this + other; }
  /// The scalar product.
  double dot(const igsVec3& other) const { return x * other.x + y * other.y + z * other.z; }
  /// The vector product, right-handed.
  igsVec3 cross(const igsVec3& other) const {
    return {y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x};
  }
  /// The distance from the origin, in model units.
  double length() const { return gi_hypot(x, y, z); }
  /// Of length 1; zero where the vector has no direction.
  igsVec3 unit() const {
    const double size = length();
    return size > 0 && std::isfinite(size) ? igsVec3{x / size, y / size, z / size} : igsVec3{};
  }
  /// The angle to another vector, in radians, 0 to pi; 0 where one of them is zero.
  double angle_to(const igsVec3& other) const {
    return *this == igsVec3{} || other == igsVec3{} ? 0 : std::atan2(cross(other).length(), dot(other));
  }
  /// False where a component is not a number or infinite.
  bool is_finite() const { return std::isfinite(x) && std::isfinite(y) && std::isfinite(z); }
  bool operator==(const igsVec3&) const = default;
};

/// A part of the parameters, or the whole of them.
struct igsRange {
  double low = 0;   ///< -infinity where there is no end
  double high = 1;  ///< infinity where there is no end

  /// Infinite where an end is missing.
  double length() const { return high - low; }
  /// True where it has both ends.
  bool is_finite() const { return std::isfinite(low) && std::isfinite(high); }
  /// The value of the range that is nearest to `t`.
  double clamp(double t) const { return t < low ? low : t > high ? high : t; }
  /// The value at a fraction of the range, 0 to 1; the ends exactly.
  double at(double fraction) const { return fraction >= 1 ? high : low + fraction * (high - low); }
};

/// A box along the axes, in model units; empty by default.
struct igsBox {
  /// The least coordinates.
  igsVec3 low{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(),
              std::numeric_limits<double>::infinity()};
  /// The greatest coordinates.
  igsVec3 high{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
               -std::numeric_limits<double>::infinity()};

  /// True until something was added.
  bool is_empty() const { return !(low.x <= high.x); }
  /// Makes the box hold the point, too; one that is not finite is ignored.
  void add(const igsVec3& point) {
    if (!point.is_finite()) return;
    low = {std::min(low.x, point.x), std::min(low.y, point.y), std::min(low.z, point.z)};
    high = {std::max(high.x, point.x), std::max(high.y, point.y), std::max(high.z, point.z)};
  }
  void add(const igsBox& other) {
    if (other.is_empty()) return;
    add(other.low);
    add(other.high);
  }
  /// The length of the diagonal; 0 when the box is empty.
  double diagonal() const { return is_empty() ? 0 : (high - low).length(); }
};
