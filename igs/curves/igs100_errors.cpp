#include "igs/curves/igs100_errors.h"

#include <cmath>
#include <numeric>

#include "igs/curves/igs100.h"
#include "igs/objects/igsCast.h"

namespace {
// M + s n or M - s n: M the chord's midpoint, n the half chord d turned by a right angle, s = sqrt(R^2 / |d|^2 - 1).
giPoint2 recentred(const igs100& arc) {
  const giPoint2& start = arc.start_point();
  const giPoint2& end = arc.end_point();
  const giPoint2 middle(std::midpoint(start.x(), end.x()), std::midpoint(start.y(), end.y()));
  const double dx = end.x() / 2 - start.x() / 2;
  const double dy = end.y() / 2 - start.y() / 2;
  const double radius = std::midpoint(arc.centre().distance(start), arc.centre().distance(end));
  const double ratio = radius / std::hypot(dx, dy);
  const double t = (ratio - 1) * (ratio + 1);  // neither overflows nor cancels where the squares would
  const double s = t > 0 ? std::sqrt(t) : 0;
  const giPoint2 left(middle.x() - s * dy, middle.y() + s * dx);
  const giPoint2 right(middle.x() + s * dy, middle.y() - s * dx);
  return right.distance(arc.centre()) < left.distance(arc.centre()) ? right : left;
}
}  // namespace

int igs100InconsistRad::fix() {
  igs100* const arc = igs_cast<igs100>(object_at_key());
  if (arc == nullptr) return 0;
  const giPoint2 centre = recentred(*arc);
  return std::isfinite(centre.x()) && std::isfinite(centre.y()) ? arc->set_centre(centre) : 0;
}
