#include "igs/shape/igsPlacement.h"

#include <algorithm>
#include <cmath>

#include "igs/curves/igs124.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsCast.h"

namespace {
constexpr int longest_chain = 32;
constexpr double flattest = 1e-9;  // the volume of the unit cube, against that of the cube over its longest edge
}  // namespace

igsPlacement::igsPlacement(const giXform3& transform) {
  const auto column = [&](int j) {
    return igsVec3{transform.element(0, j), transform.element(1, j), transform.element(2, j)};
  };
  for (int j = 0; j < 3; ++j) m_columns[j] = column(j);
  m_translation = column(3);
}

igsPlacement::igsPlacement(double scale, const igsVec3& translation)
    : igsPlacement({scale, 0, 0}, {0, scale, 0}, {0, 0, scale}, translation) {}

igsPlacement igsPlacement::of(const igsObject& entity) {
  igsPlacement placement;
  const igsObject* object = &entity;
  for (int i = 0; i < longest_chain; ++i) {
    const auto* const matrix = igs_cast<igs124>(object->directory_entry().matrix().object());
    if (matrix == nullptr) break;
    if (!matrix->transform().invalid()) placement = igsPlacement(matrix->transform()) * placement;
    object = matrix;
  }
  return placement;
}

igsPlacement igsPlacement::operator*(const igsPlacement& inner) const {
  igsPlacement both;
  for (int j = 0; j < 3; ++j) both.m_columns[j] = vector(inner.m_columns[j]);
  both.m_translation = point(inner.m_translation);
  return both;
}

std::optional<igsPlacement> igsPlacement::inverse() const {
  const auto& [a, b, c] = m_columns;
  const double volume = determinant(), longest = scale();
  if (!(std::abs(volume) > flattest * longest * longest * longest)) return std::nullopt;
  const double factor = 1 / volume;
  const igsVec3 x = b.cross(c) * factor, y = c.cross(a) * factor, z = a.cross(b) * factor;  // the rows
  igsPlacement linear({x.x, y.x, z.x}, {x.y, y.y, z.y}, {x.z, y.z, z.z}, {});
  linear.m_translation = linear.vector(m_translation) * -1;
  const bool is_finite = std::isfinite(linear.scale()) && linear.m_translation.is_finite();
  return is_finite ? std::optional(linear) : std::nullopt;
}

double igsPlacement::scale() const {
  return std::max({m_columns[0].length(), m_columns[1].length(), m_columns[2].length()});
}
