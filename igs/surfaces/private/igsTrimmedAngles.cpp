#include "igs/surfaces/private/igsTrimmedAngles.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <numbers>

#include "igs/curves/igs100.h"
#include "igs/curves/igs102.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igs126.h"
#include "igs/curves/igsPolyline.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
#include "igs/objects/igsCast.h"
#include "igs/surfaces/igs120.h"
#include "igs/surfaces/igs141.h"
#include "igs/surfaces/igs142.h"

namespace {
using Range = igsRepairRun::Range;

void widen(Range& range, const Range& other) {
  range.first = std::min(range.first, other.first);
  range.second = std::max(range.second, other.second);
}

template <class Point>
void widen(Range& range, const Point& point) {
  if (point.is_undefined() || !(std::abs(point.y()) < DBL_MAX)) return;
  widen(range, Range(point.y(), point.y()));
}

double angle_about(const giPoint2& centre, const giPoint2& point) {
  return std::atan2(point.y() - centre.y(), point.x() - centre.x());
}

/// The arc's highest and lowest point, where it comes through them on its way counterclockwise.
void widen_by_extremes(Range& range, const igs100& arc) {
  constexpr double quarter = std::numbers::pi / 2, turn = 4 * quarter;
  if (arc.centre().is_undefined() || arc.start_point().is_undefined() || arc.end_point().is_undefined()) return;
  const double radius = std::max(arc.centre().distance(arc.start_point()), arc.centre().distance(arc.end_point()));
  const double start = angle_about(arc.centre(), arc.start_point());
  const auto from_start = [start](double angle) { return std::fmod(angle - start + 2 * turn, turn); };
  const double swept =
      arc.start_point() == arc.end_point() ? turn : from_start(angle_about(arc.centre(), arc.end_point()));
  for (const double side : {1., -1.}) {
    if (from_start(side * quarter) > swept) continue;
    widen(range, giPoint2(arc.centre().x(), arc.centre().y() + side * radius));
  }
}

Range range_of_simple(const igsObject& curve) {
  Range range = igs_nowhere;
  if (const auto* const line = igs_cast<igs110>(&curve); line != nullptr && line->is_bounded()) {
    widen(range, line->start_point());
    widen(range, line->end_point());
  } else if (const auto* const conic = igs_cast<igsTrimmedConic>(&curve)) {
    widen(range, conic->start_point());
    widen(range, conic->end_point());
    if (const auto* const arc = igs_cast<igs100>(&curve)) widen_by_extremes(range, *arc);
  } else if (const auto* const spline = igs_cast<igs126>(&curve)) {
    giPoint3 point;
    for (int i = 0; spline->control_point(i, point) != 0; ++i) widen(range, point);
  } else if (const auto* const polyline = igs_cast<igsPolyline>(&curve)) {
    const bool planar = polyline->layout() == igsCopiousData::planar;
    for (int i = 0; i < polyline->number_of_points(); ++i) {
      planar ? widen(range, polyline->planar_point(i)) : widen(range, polyline->point(i));
    }
  }
  return range;
}

class Curves {
 public:
  /// Of nothing, and of what is moved by a matrix, nothing is known.
  const Range& range(const igsObject* curve) {
    static constexpr Range unknown = igs_nowhere;
    if (curve == nullptr || curve->directory_entry().matrix().object() != nullptr) return unknown;
    const auto [known, is_new] = m_ranges.try_emplace(curve->de_number(), igs_nowhere);
    Range& range = known->second;  // stays where it is when the parts of a composite come in
    if (!is_new) return range;
    const auto* const composite = igs_cast<igs102>(curve);
    range = composite != nullptr ? range_of_composite(*composite) : range_of_simple(*curve);
    return range;
  }

 private:
  // Composites are made of simple curves alone: one within another is passed over, which bounds the depth.
  Range range_of_composite(const igs102& composite) {
    Range whole = igs_nowhere;
    for (const igsObjectPtr& part : composite.sub_curves()) {
      if (igs_cast<igs102>(part.object()) == nullptr) widen(whole, range(part.object()));
    }
    return whole;
  }

  igsRepairRun::Ranges m_ranges;
};
}  // namespace

igsRepairRun::Ranges igs_trimmed_angles(const igsFile& file) {
  igsRepairRun::Ranges ranges;
  Curves curves;
  const auto add = [&](const igsObjectPtr& surface, const igsObjectPtr& curve) {
    if (igs_cast<igs120>(surface.object()) == nullptr) return;
    widen(ranges.try_emplace(surface.de_number(), igs_nowhere).first->second, curves.range(curve.object()));
  };
  igsFileIT entities(&file);
  while (++entities) {
    if (const auto* const curve = igs_cast<igs142>(entities())) add(curve->surface(), curve->curve_2d());
    const auto* const boundary = igs_cast<igs141>(entities());
    if (boundary == nullptr) continue;
    for (const igsModelSpaceCurve& part : boundary->model_space_curves()) {
      for (const igsObjectPtr& curve : part.parameter_curves()) add(boundary->surface(), curve);
    }
  }
  return ranges;
}
