#pragma once

#include <optional>

#include "igs/shape/export.h"
#include "igs/shape/igsVec.h"
#include "igs/support/giXform3.h"

class igsObject;

/// Where something stands: a linear map, which may scale and mirror, and a translation; none by default.
class IGS_SHAPE_API igsPlacement {
 public:
  igsPlacement() = default;
  explicit igsPlacement(const giXform3& transform);
  /// Where the unit vectors of the axes come to stand, and then what all of it is moved by.
  igsPlacement(const igsVec3& x, const igsVec3& y, const igsVec3& z, const igsVec3& translation)
      : m_columns{x, y, z}, m_translation(translation) {}
  /// `scale` times, then moved.
  igsPlacement(double scale, const igsVec3& translation);

  /// What an entity's directory entry says (IGES 5.3, section 2.2.4.4.7): its matrix (igs124), the matrix under which
  /// that stands, and so on, up to 32. A matrix with elements that are not finite counts as none.
  static igsPlacement of(const igsObject& entity);

  /// Where a point comes to stand.
  igsVec3 point(const igsVec3& p) const { return vector(p) + m_translation; }
  /// As point(), without the translation.
  igsVec3 vector(const igsVec3& v) const { return m_columns[0] * v.x + m_columns[1] * v.y + m_columns[2] * v.z; }
  /// This after `inner`.
  igsPlacement operator*(const igsPlacement& inner) const;
  /// What undoes it; nothing where it is flat, or nearly so, or the numbers become too large.
  std::optional<igsPlacement> inverse() const;
  /// True where nothing is moved.
  bool is_identity() const { return *this == igsPlacement(); }
  /// Of the linear map; negative where it mirrors.
  double determinant() const { return m_columns[0].cross(m_columns[1]).dot(m_columns[2]); }
  /// By how much lengths grow at most, over the axes; 1 for a rotation.
  double scale() const;
  bool operator==(const igsPlacement&) const = default;

 private:
  igsVec3 m_columns[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  igsVec3 m_translation;
};
