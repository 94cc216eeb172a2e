#pragma once

#include "igs/shape/igsVec.h"

/// Where on the straight line between two points another is nearest: 0 at the first, 1 at the second. `Vec` is igsVec2
/// or igsVec3.
template <class Vec>
double igs_part_of_line(const Vec& point, const Vec& from, const Vec& to) {
  const Vec along = to - from;
  const double square = along.dot(along);
  return square > 0 ? igsRange().clamp((point - from).dot(along) / square) : 0;
}

/// How far a point is from the straight line between two others.
template <class Vec>
double igs_distance_from_line(const Vec& point, const Vec& from, const Vec& to) {
  return (point - from - (to - from) * igs_part_of_line(point, from, to)).length();
}
