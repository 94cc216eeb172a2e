#include "igs/shape/private/igsFaceGrid.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr std::size_t most_grid_spans = 256;
constexpr double most_lines = 1000;

/// Looks at a surface along one direction.
class CurvatureAlong {
 public:
  CurvatureAlong(const igsShapeSurface& surface, bool along_v, const igsVec2& low, const igsVec2& high,
                 const igsShapeTolerance& tolerance)
      : m_surface(surface),
        m_along_v(along_v),
        m_along(along_v ? igsRange{low.y, high.y} : igsRange{low.x, high.x}),
        m_across(along_v ? igsRange{low.x, high.x} : igsRange{low.y, high.y}),
        m_tolerance(tolerance) {
    find_spans();
    m_num_across = m_spans.size() <= 9 ? 5 : 3;
    m_num_along = m_spans.size() <= 9 ? 5 : 3;
  }

  igsGridLines lines() const {
    igsGridLines lines;
    std::size_t first = 0;
    for (std::size_t i = 1; i < m_spans.size(); ++i) {
      const bool is_last = i + 1 == m_spans.size();
      if (!is_last && !is_kink(m_spans[i])) continue;
      divide(first, i, lines.at);
      first = i;
      if (is_last) continue;
      lines.at.push_back(m_spans[i]);
      lines.kinks.push_back(m_spans[i]);
    }
    return lines;
  }

 private:
  // The ends of the part, and the breaks between them.
  void find_spans() {
    const igsSurfaceDirection& direction = m_along_v ? m_surface.v() : m_surface.u();
    const double period = direction.is_closed ? direction.range.length() : 0;
    const double first = period > 0 ? std::floor((m_along.low - direction.range.low) / period) : 0;
    const double last = period > 0 ? std::floor((m_along.high - direction.range.low) / period) : 0;
    const double least = 1e-9 * m_along.length();
    m_spans.push_back(m_along.low);
    constexpr int most_turns = 9;
    for (int turn = 0; turn < most_turns && first + turn <= last; ++turn) {
      for (const double at : direction.breaks) {
        const double here = at + (first + turn) * period;
        if (here > m_spans.back() + least && here < m_along.high - least) m_spans.push_back(here);
      }
    }
    m_spans.push_back(m_along.high);
    if (m_spans.size() <= most_grid_spans) return;
    std::vector<double> fewer;
    for (std::size_t i = 0; i <= most_grid_spans; ++i)
      fewer.push_back(m_spans[i * (m_spans.size() - 1) / most_grid_spans]);
    m_spans = std::move(fewer);
  }

  igsSurfacePoint at(double along, int row, igsSide side) const {
    const double across = m_across.at((row + 0.5) / m_num_across);
    return m_along_v ? m_surface.at(across, along, igsSide::after, side)
                     : m_surface.at(along, across, side, igsSide::after);
  }

  bool is_kink(double along) const {
    constexpr double least_kink = 0.1;
    for (int row = 0; row < m_num_across; ++row) {
      const igsVec3 before = at(along, row, igsSide::before).normal(), after = at(along, row, igsSide::after).normal();
      if (before.angle_to(after) > least_kink) return true;
    }
    return false;
  }

  // Into how many parts a span should be cut; a fraction below 1 where it is nearly flat.
  double parts(const igsRange& span) const {
    constexpr double seen = 0.96;  // of the span
    double most = 0;
    for (int row = 0; row < m_num_across; ++row) {
      double turn = 0, bend = 0;
      igsVec3 before;
      for (int i = 0; i < m_num_along; ++i) {
        const double share = (1 - seen) / 2 + seen * i / (m_num_along - 1);
        const igsSurfacePoint point = at(span.at(share), row, igsSide::after);
        const igsVec3 normal = point.normal();
        if (i > 0) turn += before.angle_to(normal);
        bend = std::max(bend, std::abs(normal.dot(m_along_v ? point.vv : point.uu)));
        before = normal;
      }
      const double by_chord = span.length() * std::sqrt(bend / (8 * m_tolerance.chord));
      most = std::max({most, turn / seen / m_tolerance.angle, std::isfinite(by_chord) ? by_chord : 0});
    }
    return std::min(most, most_lines);
  }

  // Evenly by what the spans between two kinks need.
  void divide(std::size_t first, std::size_t last, std::vector<double>& lines) const {
    std::vector<double> sums{0};
    for (std::size_t i = first; i < last; ++i) {
      constexpr double always = 1e-9;
      sums.push_back(sums.back() + parts({m_spans[i], m_spans[i + 1]}) + always);
    }
    const double count = std::min(std::ceil(sums.back() - 0.05), most_lines);
    std::size_t span = 0;
    for (int i = 1; i < count; ++i) {
      const double wanted = sums.back() * i / count;
      while (sums[span + 1] < wanted) ++span;
      const double share = (wanted - sums[span]) / (sums[span + 1] - sums[span]);
      lines.push_back(igsRange{m_spans[first + span], m_spans[first + span + 1]}.at(share));
    }
  }

  const igsShapeSurface& m_surface;
  bool m_along_v;
  igsRange m_along, m_across;
  const igsShapeTolerance& m_tolerance;
  std::vector<double> m_spans;
  int m_num_across, m_num_along;
};
}  // namespace

igsGridLines igs_grid_lines(const igsShapeSurface& surface, bool along_v, const igsVec2& low, const igsVec2& high,
                            const igsShapeTolerance& tolerance) {
  return CurvatureAlong(surface, along_v, low, high, tolerance).lines();
}
