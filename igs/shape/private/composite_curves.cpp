#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "igs/curves/igs102.h"
#include "igs/curves/igs116.h"
#include "igs/objects/igsCast.h"
#include "igs/shape/private/igsComposedCurves.h"
#include "igs/shape/private/igsShapeMakers.h"
#include "igs/shape/private/igsSpanOf.h"
#include "igs/surfaces/igs141.h"

namespace {
class ChainShape final : public igsShapeCurve {
 public:
  /// A part with the position in the breaks where it starts.
  struct Link {
    igsCurvePart part;
    std::size_t first_break;
  };

  ChainShape(std::vector<Link> links, const igsRange& range, std::vector<double> breaks)
      : igsShapeCurve(range, std::move(breaks)), m_links(std::move(links)) {}

  const std::vector<Link>& links() const { return m_links; }

 protected:
  // A break of a part is met exactly, so that it has its sides here, too.
  igsCurvePoint evaluate(double t, igsSide side) const override {
    const std::size_t piece = igs_span_of(breaks(), t, side);
    const auto starts_later = [](std::size_t at, const Link& link) { return at < link.first_break; };
    const auto& [part, first] = *(std::upper_bound(m_links.begin(), m_links.end(), piece, starts_later) - 1);
    const double behind = t - breaks()[piece];
    const bool is_at_end = t == breaks()[piece + 1];
    const std::vector<double>& own = part.curve->breaks();
    const std::size_t i = piece - first;
    if (!part.is_reversed) return part.curve->at(is_at_end ? own[i + 1] : own[i] + behind, side);
    const std::size_t high = own.size() - 1 - i;
    const igsSide other_side = side == igsSide::after ? igsSide::before : igsSide::after;
    const igsCurvePoint at = part.curve->at(is_at_end ? own[high - 1] : own[high] - behind, other_side);
    return {at.point, at.first * -1, at.second};
  }

 private:
  std::vector<Link> m_links;
};

/// Puts a curve behind others; the parts of a chain one by one.
void append(const igsCurvePart& part, std::vector<ChainShape::Link>& links, std::vector<double>& breaks) {
  const auto append_one = [&](const igsCurvePart& one) {
    const std::vector<double>& own = one.curve->breaks();
    const std::size_t first = breaks.size() - 1;
    const double start = breaks.back();
    for (std::size_t i = 1; i < own.size(); ++i) {
      breaks.push_back(start + (one.is_reversed ? own.back() - own[own.size() - 1 - i] : own[i] - own.front()));
    }
    links.push_back({one, first});
  };
  const auto* const chain = dynamic_cast<const ChainShape*>(part.curve.get());
  if (chain == nullptr) return append_one(part);
  const std::vector<ChainShape::Link>& inner = chain->links();
  for (std::size_t i = 0; i < inner.size(); ++i) {
    const igsCurvePart& one = inner[part.is_reversed ? inner.size() - 1 - i : i].part;
    append_one({one.curve, one.is_reversed != part.is_reversed});
  }
}
}  // namespace

igsShapeCurvePtr igs_chained(const std::vector<igsCurvePart>& parts, igsShapes& shapes) {
  std::vector<ChainShape::Link> links;
  std::vector<double> breaks{0};
  for (const igsCurvePart& part : parts) {
    if (part.curve == nullptr || !part.curve->range().is_finite()) return nullptr;
    if (!shapes.may_add(part.curve->breaks().size())) return nullptr;
    append(part, links, breaks);
  }
  const igsRange range{0, breaks.back()};
  if (!(range.high > 0) || !range.is_finite()) return nullptr;
  return std::make_shared<ChainShape>(std::move(links), range, std::move(breaks));
}

// IGES 5.3, section 4.3: a point among the curves takes nothing of the parameter.
igsShapeCurvePtr igs_make_shape(const igs102& composite, igsShapes& shapes) {
  std::vector<igsCurvePart> parts;
  for (const igsObjectPtr& member : composite.sub_curves()) {
    if (igs_cast<igs116>(member.object()) != nullptr) continue;
    parts.push_back({shapes.curve(member.object())});
    if (parts.back().curve == nullptr) return nullptr;
  }
  return igs_chained(parts, shapes);
}

// The curves in model space, as the boundary runs.
igsShapeCurvePtr igs_make_shape(const igs141& boundary, igsShapes& shapes) {
  std::vector<igsCurvePart> parts;
  for (const igsModelSpaceCurve& curve : boundary.model_space_curves()) {
    parts.push_back({shapes.curve(curve.curve().object()), curve.sense() == igsModelSpaceCurve::reversed});
    if (parts.back().curve == nullptr) return nullptr;
  }
  return igs_chained(parts, shapes);
}
