#include <cstddef>
#include <memory>
#include <numeric>
#include <utility>
#include <vector>

#include "igs/curves/igsPointset.h"
#include "igs/curves/igsPolyline.h"
#include "igs/curves/igsSimpleClosedPlanarCurve.h"
#include "igs/shape/private/igsShapeMakers.h"
#include "igs/shape/private/igsVecOf.h"

namespace {
class PolylineShape final : public igsShapeCurve {
 public:
  explicit PolylineShape(std::vector<igsVec3> points)
      : igsShapeCurve({0, static_cast<double>(points.size() - 1)}, numbers(points.size())),
        m_points(std::move(points)) {}

 protected:
  igsCurvePoint evaluate(double t, igsSide side) const override {
    const std::size_t i = piece_at(t, side);
    const igsVec3 along = m_points[i + 1] - m_points[i];
    const double part = t - static_cast<double>(i);
    return {part == 1 ? m_points[i + 1] : m_points[i] + along * part, along, {}};
  }

 private:
  static std::vector<double> numbers(std::size_t count) {
    std::vector<double> values(count);
    std::iota(values.begin(), values.end(), 0.0);
    return values;
  }
  std::size_t piece_at(double t, igsSide side) const {
    if (!(t > 0)) return 0;
    const auto i = static_cast<std::size_t>(t);
    const bool is_behind = i == m_points.size() - 1 || (side == igsSide::before && t == static_cast<double>(i));
    return is_behind ? i - 1 : i;
  }

  std::vector<igsVec3> m_points;
};

igsShapeCurvePtr polyline_through(const igsCopiousData& data) {
  const int count = data.number_of_points();
  if (count < 2) return nullptr;
  std::vector<igsVec3> points;
  points.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    points.push_back(igs_vec_of(data, i));
    if (!points.back().is_finite()) return nullptr;
  }
  return std::make_shared<PolylineShape>(std::move(points));
}
}  // namespace

// The parameter is the number of the point, from 0. Points that the format leaves unconnected are joined, too: files
// refer to them where a curve is asked for.
igsShapeCurvePtr igs_make_shape(const igsPointset& points, igsShapes&) { return polyline_through(points); }
igsShapeCurvePtr igs_make_shape(const igsPolyline& polyline, igsShapes&) { return polyline_through(polyline); }
igsShapeCurvePtr igs_make_shape(const igsSimpleClosedPlanarCurve& curve, igsShapes&) { return polyline_through(curve); }
