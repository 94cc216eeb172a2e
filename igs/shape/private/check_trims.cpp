#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "igs/shape/igsShapeNearest.h"
#include "igs/shape/private/igsBoxTree.h"
#include "igs/shape/private/igsLine.h"
#include "igs/shape/private/igsLoopChecking.h"
#include "igs/shape/private/igsPieceInSpace.h"
#include "igs/shape/private/igsTrack.h"

namespace {
using Chain = std::vector<igsChainLink>;

/// Of a distance, the greatest met so far, with what belongs to it. What is no more than that, or than `enough`, need
/// not be known exactly.
template <class Where>
struct Greatest {
  explicit Greatest(double enough) : distance(enough) {}
  bool is_beaten_by(double other) const { return other > distance; }
  void take(double other, Where there) {
    if (is_beaten_by(other)) distance = other, where = std::move(there);
  }

  double distance;
  std::optional<Where> where;
};

/// The number of breaks of a surface that a straight way in one direction passes.
std::size_t passed(const igsSurfaceDirection& direction, double from, double to) {
  const std::vector<double>& breaks = direction.breaks;
  const auto behind = [&](double t) { return std::upper_bound(breaks.begin(), breaks.end(), t); };
  return breaks.size() > 2 ? static_cast<std::size_t>(std::abs(behind(to) - behind(from))) : 0;
}

/// Where to look at a curve, as the loop runs: a few places in each span, the ends left out. Of a curve in the
/// parameter space of `surface` a span ends at the breaks of that, too, about.
std::vector<double> inner_parameters(const igsChainLink& link, const igsShapeSurface* surface) {
  constexpr std::size_t usual = 4, few = 2, many_spans = 8;
  const igsShapeCurve& curve = *link.piece->curve;
  const std::vector<double>& breaks = curve.breaks();
  std::vector<std::size_t> counts(breaks.size() - 1, 1);
  std::size_t num_spans = counts.size();
  if (surface != nullptr && surface->u().breaks.size() + surface->v().breaks.size() > 4) {
    igsVec3 from = curve.start();
    for (std::size_t i = 0; i < counts.size(); ++i) {
      const igsVec3 to = curve.point(breaks[i + 1]);
      const std::size_t more = std::max(passed(surface->u(), from.x, to.x), passed(surface->v(), from.y, to.y));
      counts[i] += more;
      num_spans += more;
      from = to;
    }
  }
  const std::size_t each = num_spans < many_spans ? usual : few;
  std::vector<double> parameters;
  parameters.reserve(num_spans * each);
  for (std::size_t i = 0; i < counts.size(); ++i) {
    const igsRange span{breaks[i], breaks[i + 1]};
    const std::size_t count = each * counts[i];
    for (std::size_t k = i == 0 ? 1 : 0; k < count; ++k) {
      parameters.push_back(span.at(static_cast<double>(k) / static_cast<double>(count)));
    }
  }
  if (link.is_reversed) std::reverse(parameters.begin(), parameters.end());
  return parameters;
}

double start_parameter(const igsChainLink& link) {
  const igsRange range = link.piece->curve->range();
  return link.is_reversed ? range.high : range.low;
}
double end_parameter(const igsChainLink& link) {
  const igsRange range = link.piece->curve->range();
  return link.is_reversed ? range.low : range.high;
}

// Follows the curves in parameter space.

double overshoot(const igsSurfaceDirection& direction, double t) {
  return direction.is_closed ? 0 : std::abs(t - direction.range.clamp(t));
}

class ParameterTrace {
 public:
  explicit ParameterTrace(igsLoopChecking& loop)
      : m_loop(loop), m_surface(*loop.face.surface), m_outside(loop.checking.options.least) {}

  // A member goes on where the one before it has ended, be it periods away.
  void follow() {
    igsVec2 shift;
    for (std::size_t i = 0; i < m_loop.parameter.size(); ++i) {
      const igsChainLink& link = m_loop.parameter[i];
      shift = m_loop.trace.empty() ? igsVec2{} : igs_periods_between(m_surface, link.start_uv, m_loop.trace.back().uv);
      if (m_loop.trace.empty() || m_loop.trace.back().uv != link.start_uv + shift) {
        add(i, link.start_uv, shift, start_parameter(link), link.start);
      }
      for (const double t : inner_parameters(link, &m_surface)) {
        const igsVec3 uv = link.piece->curve->point(t);
        add(i, {uv.x, uv.y}, shift, t, m_surface.point({uv.x, uv.y}));
      }
      add(i, link.end_uv, shift, end_parameter(link), link.end);
    }
    if (!m_outside.where) return;
    const igsTracePoint& at = *m_outside.where;
    m_loop.tag_distance<igsShapeOutsideDomain>(
        m_outside.distance, m_loop.parameter[static_cast<std::size_t>(at.link)].piece->entity->de_number(),
        at.parameter, at.uv.x, at.uv.y);
  }

 private:
  void add(std::size_t link, const igsVec2& uv, const igsVec2& shift, double parameter, const igsVec3& point) {
    if (!uv.is_finite() || !point.is_finite()) return;
    m_loop.trace.push_back({uv + shift, point, static_cast<int>(link), parameter});
    const double u = overshoot(m_surface.u(), uv.x), v = overshoot(m_surface.v(), uv.y);
    if (u == 0 && v == 0) return;
    const igsSurfacePoint at = m_surface.at(uv);
    m_outside.take(std::hypot(u * at.u.length(), v * at.v.length()), {uv, point, static_cast<int>(link), parameter});
  }

  igsLoopChecking& m_loop;
  const igsShapeSurface& m_surface;
  Greatest<igsTracePoint> m_outside;
};

/// A place on a chain.
struct Foot {
  std::size_t link = 0;
  double parameter = 0;
  igsVec3 point;
  double distance = std::numeric_limits<double>::infinity();
};

/// Points of a chain, and the curve through them: of the curves themselves, or of their images on a surface.
class ChainTarget {
 public:
  ChainTarget(const Chain& chain, const igsShapeSurface* surface) : m_chain(chain), m_surface(surface) {}

  /// By Newton's method from about there, until that is near enough.
  Foot near(const igsVec3& point, std::size_t link, double parameter, double enough) const {
    constexpr int most_steps = 8;
    Foot best;
    double t = parameter;
    for (int i = 0; i < most_steps; ++i) {
      const igsCurvePoint at = point_of(link, t);
      const igsVec3 away = at.point - point;
      if (const double distance = away.length(); distance < best.distance) best = {link, t, at.point, distance};
      if (best.distance <= enough) break;
      const double slope = away.dot(at.first), squared = at.first.dot(at.first);
      const double curvature = squared + away.dot(at.second);
      const double step = slope / (curvature > 0.1 * squared ? curvature : squared);
      const double next = m_chain[link].piece->curve->range().clamp(t - step);
      if (!std::isfinite(next) || std::abs(next - t) * std::sqrt(squared) <= 1e-3 * enough) break;
      t = next;
    }
    return best;
  }

  /// Looks everywhere.
  Foot anywhere(const igsVec3& point, double enough) const {
    if (!m_tree) sample();
    Foot best;
    double closest = std::numeric_limits<double>::infinity();
    std::size_t segment = m_samples.size();
    m_tree->visit_near(point, closest, [&](std::size_t i) {
      const igsVec3 &from = m_samples[i].point, &to = m_samples[i + 1].point;
      const double part = igs_part_of_line(point, from, to);
      const double distance = (from + (to - from) * part - point).length();
      if (distance < closest) {
        closest = distance;
        segment = i;
        best.parameter = m_samples[i].parameter + part * (m_samples[i + 1].parameter - m_samples[i].parameter);
      }
      return closest;
    });
    return segment == m_samples.size() ? best : near(point, m_samples[segment].link, best.parameter, enough);
  }

  /// In parameter space the image, whose second derivative is left out: it starts close by.
  igsCurvePoint point_of(std::size_t link, double t) const {
    const igsCurvePoint at = m_chain[link].piece->curve->at(t);
    return m_surface == nullptr ? at : igs_image_of(*m_surface, at);
  }
  igsVec3 place_of(std::size_t link, double t) const {
    const igsVec3 point = m_chain[link].piece->curve->point(t);
    return m_surface == nullptr ? point : m_surface->point({point.x, point.y});
  }

 private:
  struct Sample {
    std::size_t link;
    double parameter;
    igsVec3 point;
  };

  void sample() const {
    for (std::size_t i = 0; i < m_chain.size(); ++i) {
      m_samples.push_back({i, start_parameter(m_chain[i]), m_chain[i].start});
      for (const double t : inner_parameters(m_chain[i], m_surface)) m_samples.push_back({i, t, place_of(i, t)});
      m_samples.push_back({i, end_parameter(m_chain[i]), m_chain[i].end});
    }
    std::vector<igsBox> boxes(m_samples.size() - 1);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      if (m_samples[i].link != m_samples[i + 1].link) continue;
      boxes[i].add(m_samples[i].point);
      boxes[i].add(m_samples[i + 1].point);
    }
    m_tree.emplace(boxes);
  }

  const Chain& m_chain;
  const igsShapeSurface* m_surface;
  mutable std::vector<Sample> m_samples;
  mutable std::optional<igsBoxTree> m_tree;
};

/// How far the two forms of a loop are apart, whole loop against whole loop.
class FormsComparison {
 public:
  explicit FormsComparison(igsLoopChecking& loop)
      : m_loop(loop),
        m_model(loop.model, nullptr),
        m_image(loop.parameter, loop.face.surface.get()),
        m_widest(loop.checking.options.least),
        m_used(loop.model.size()) {}

  void compare() {
    for (const igsTracePoint& at : m_loop.trace) m_feet.push_back(foot_of(at));
    refine();
    compare_back();
    if (!m_widest.where) return;
    const Place& where = *m_widest.where;
    m_loop.tag_distance<igsShapeTrimFormsDiffer>(
        m_widest.distance, m_loop.parameter[where.parameter_link].piece->entity->de_number(),
        m_loop.model[where.model_link].piece->entity->de_number(), where.point.x, where.point.y, where.point.z);
  }

  double widest() const { return m_widest.distance; }
  /// Of each point of the trace.
  const std::vector<Foot>& feet() const { return m_feet; }

 private:
  struct Place {
    std::size_t parameter_link, model_link;
    igsVec3 point;
  };

  // Most often a member is the image of the one at the same place, with a parameter that runs alike.
  Foot foot_of(const igsTracePoint& at) {
    const auto link = static_cast<std::size_t>(at.link);
    if (m_feet.empty() || link != m_link) begin_link(link);
    const igsRange range = m_loop.parameter[link].piece->curve->range();
    const igsRange guessed = m_loop.model[m_guess].piece->curve->range();
    const double part = range.length() > 0 ? (at.parameter - range.low) / range.length() : 0;
    Foot foot = m_model.near(at.point, m_guess, guessed.at(m_runs_alike ? part : 1 - part), m_widest.distance);
    if (m_widest.is_beaten_by(foot.distance) && !m_feet.empty() && m_feet.back().link != m_guess) {
      const Foot other = m_model.near(at.point, m_feet.back().link, m_feet.back().parameter, m_widest.distance);
      if (other.distance < foot.distance) foot = other;
    }
    if (m_widest.is_beaten_by(foot.distance)) {
      const Foot other = m_model.anywhere(at.point, m_widest.distance);
      if (other.distance < foot.distance) foot = other;
      m_shift = foot.link + m_loop.model.size() - link % m_loop.model.size();
      if (foot.link != m_guess) guess(foot.link, link);
    }
    m_widest.take(foot.distance, {link, foot.link, at.point});
    use(foot, link);
    return foot;
  }

  void begin_link(std::size_t link) {
    m_link = link;
    const int told = m_loop.parameter[link].piece->model;
    const std::size_t count = m_loop.model.size();
    guess(
        told >= 0 && static_cast<std::size_t>(told) < count ? static_cast<std::size_t>(told) : (link + m_shift) % count,
        link);
  }

  void guess(std::size_t model_link, std::size_t link) {
    m_guess = model_link;
    const igsChainLink &image = m_loop.parameter[link], &model = m_loop.model[model_link];
    const bool along = (image.start - model.start).length() + (image.end - model.end).length() <=
                       (image.start - model.end).length() + (image.end - model.start).length();
    m_runs_alike = along == (image.is_reversed == model.is_reversed);
  }

  /// Notes the parts of the model-space curve that were met.
  void use(const Foot& foot, std::size_t link) {
    std::vector<igsRange>& ranges = m_used[foot.link];
    const igsShapeCurve& curve = *m_loop.model[foot.link].piece->curve;
    const double most = 1.01 * curve.range().length() / static_cast<double>(curve.breaks().size() - 1);
    const bool goes_on = !ranges.empty() && m_used_by == link && m_feet.back().link == foot.link &&
                         std::abs(m_feet.back().parameter - foot.parameter) <= most;
    if (!goes_on) {
      ranges.push_back({foot.parameter, foot.parameter});
    } else {
      ranges.back().low = std::min(ranges.back().low, foot.parameter);
      ranges.back().high = std::max(ranges.back().high, foot.parameter);
    }
    m_used_by = link;
  }

  // Around the place of the greatest distance the curve is looked at more closely.
  void refine() {
    if (!m_widest.where) return;
    const auto widest = std::max_element(m_feet.begin(), m_feet.end(),
                                         [](const Foot& a, const Foot& b) { return a.distance < b.distance; });
    const auto i = static_cast<std::size_t>(widest - m_feet.begin());
    const igsTracePoint& centre = m_loop.trace[i];
    for (const std::size_t beside : {i - 1, i + 1}) {
      if (beside >= m_feet.size() || m_loop.trace[beside].link != centre.link) continue;
      constexpr int num_parts = 4;
      for (int k = 1; k < num_parts; ++k) {
        const double t = centre.parameter + (m_loop.trace[beside].parameter - centre.parameter) * k / num_parts;
        const auto link = static_cast<std::size_t>(centre.link);
        const igsVec3 point = m_image.place_of(link, t);
        const Foot foot = m_model.near(point, widest->link, widest->parameter, m_widest.distance);
        if (!m_widest.is_beaten_by(foot.distance)) continue;
        m_widest.take(m_model.anywhere(point, m_widest.distance).distance, {link, foot.link, point});
      }
    }
  }

  // From the curve in model space to the image: in the spans that were not passed in steps of one span at most.
  void compare_back() {
    for (std::size_t i = 0; i < m_loop.model.size(); ++i) {
      std::sort(m_used[i].begin(), m_used[i].end(), [](const igsRange& a, const igsRange& b) { return a.low < b.low; });
      auto used = m_used[i].begin();
      double reached = -std::numeric_limits<double>::infinity();
      const std::vector<double>& breaks = m_loop.model[i].piece->curve->breaks();
      for (std::size_t k = 0; k + 1 < breaks.size(); ++k) {
        const double t = igsRange{breaks[k], breaks[k + 1]}.at(0.5);
        while (used != m_used[i].end() && used->low <= t) reached = std::max(reached, (used++)->high);
        if (reached < t) look_back(i, t);
      }
    }
  }

  void look_back(std::size_t model_link, double t) {
    const igsVec3 point = m_model.place_of(model_link, t);
    const Foot foot = m_image.anywhere(point, m_widest.distance);
    m_widest.take(foot.distance, {foot.link, model_link, point});
  }

  igsLoopChecking& m_loop;
  ChainTarget m_model, m_image;
  Greatest<Place> m_widest;
  std::vector<Foot> m_feet;
  std::vector<std::vector<igsRange>> m_used;  ///< by link of the model-space chain, of the parameter
  std::size_t m_link = 0, m_used_by = 0;
  std::size_t m_guess = 0, m_shift = 0;  ///< the member that is tried first, and how far along it lies
  bool m_runs_alike = true;
};

// Holds curves in model space against the surface.

struct OffSurface {
  std::size_t link;
  igsVec3 point;
};

class SurfaceDistance {
 public:
  explicit SurfaceDistance(igsLoopChecking& loop)
      : m_loop(loop), m_nearest(*loop.face.surface), m_worst(loop.checking.options.least) {}

  /// `uv`: where that should be, if it is known.
  igsNearestOnSurface look(std::size_t link, const igsVec3& point, const igsVec2* uv) {
    const double enough = std::max(m_worst.distance, m_loop.checking.options.tolerance);
    const igsNearestOnSurface found =
        uv != nullptr ? m_nearest.near(point, *uv, enough) : m_nearest.within(point, enough);
    m_worst.take(found.distance, {link, point});
    return found;
  }
  bool is_beaten_by(double distance) const { return m_worst.is_beaten_by(distance); }

  void tag() const {
    if (!m_worst.where || !std::isfinite(m_worst.distance)) return;
    const auto& [link, point] = *m_worst.where;
    m_loop.tag_distance<igsShapeOffSurface>(m_worst.distance, m_loop.model[link].piece->entity->de_number(),
                                            m_loop.face.entity->de_number(), point.x, point.y, point.z);
  }

 private:
  igsLoopChecking& m_loop;
  igsNearestPointOnSurface m_nearest;
  Greatest<OffSurface> m_worst;
};

// A vertex that lies on the end of its edge is as far from the surface as that.
void check_vertices_on_surface(igsLoopChecking& loop) {
  for (std::size_t i = 0; i < loop.model.size(); ++i) {
    const igsChainLink& link = loop.model[i];
    if (link.piece->edge < 0) continue;
    const igsShapeEdge& edge = loop.checking.model.edges()[static_cast<std::size_t>(link.piece->edge)];
    const igsVec3& vertex = link.is_reversed ? edge.first : edge.second;
    if (!((vertex - link.end).length() > loop.checking.options.tolerance)) continue;
    const double distance = igsNearestPointOnSurface(*loop.face.surface)(vertex).distance;
    if (!std::isfinite(distance)) continue;
    loop.tag_distance<igsShapeVertexOffSurface>(distance, edge.list->de_number(), loop.face.entity->de_number(),
                                                vertex.x, vertex.y, vertex.z);
  }
}

/// The trace of a loop that is given in model space alone.
class ProjectedTrace {
 public:
  explicit ProjectedTrace(igsLoopChecking& loop) : m_loop(loop), m_distance(loop) {}

  void follow() {
    for (std::size_t i = 0; i < m_loop.model.size(); ++i) {
      const igsChainLink& link = m_loop.model[i];
      if (i == 0 || link.gap > m_loop.checking.options.tolerance) add(i, start_parameter(link), link.start);
      for (const double t : inner_parameters(link, nullptr)) add(i, t, link.piece->curve->point(t));
      add(i, end_parameter(link), link.end);
    }
    settle_poles();
    m_distance.tag();
  }

 private:
  void add(std::size_t link, double parameter, const igsVec3& point) {
    if (!point.is_finite()) return;
    const igsVec2* const last = m_loop.trace.empty() ? nullptr : &m_loop.trace.back().uv;
    const igsNearestOnSurface found = m_distance.look(link, point, last);
    if (found.uv.is_finite()) m_loop.trace.push_back({found.uv, point, static_cast<int>(link), parameter});
  }

  // At a pole the loop goes from the parameter before it to the one behind it.
  void settle_poles() {
    const igsShapeSurface& surface = *m_loop.face.surface;
    std::vector<igsTracePoint> settled;
    settled.reserve(m_loop.trace.size());
    const std::size_t count = m_loop.trace.size();
    for (std::size_t i = 0; i < count; ++i) {
      const igsTracePoint& at = m_loop.trace[i];
      double igsVec2::*open = lies_at_pole(surface.v(), at.uv.y) ? &igsVec2::x : nullptr;
      if (open == nullptr && lies_at_pole(surface.u(), at.uv.x)) open = &igsVec2::y;
      settled.push_back(at);
      if (open == nullptr) continue;
      settled.back().uv.*open = m_loop.trace[i > 0 ? i - 1 : count - 1].uv.*open;
      settled.push_back(at);
      settled.back().uv.*open = m_loop.trace[i + 1 < count ? i + 1 : 0].uv.*open;
    }
    m_loop.trace = std::move(settled);
  }

  static bool lies_at_pole(const igsSurfaceDirection& direction, double t) {
    const double close = 1e-6 * direction.range.length();
    return (direction.has_pole_low && t <= direction.range.low + close) ||
           (direction.has_pole_high && t >= direction.range.high - close);
  }

  igsLoopChecking& m_loop;
  SurfaceDistance m_distance;
};

// What lies on the image of the curve in parameter space lies on the surface.
void check_forms(igsLoopChecking& loop) {
  FormsComparison forms(loop);
  forms.compare();
  if (!(forms.widest() > loop.checking.options.least)) return;
  std::optional<SurfaceDistance> surface;
  for (std::size_t i = 0; i < forms.feet().size(); ++i) {
    const Foot& foot = forms.feet()[i];
    if (!(foot.distance > loop.checking.options.least)) continue;
    if (!surface) surface.emplace(loop);
    if (surface->is_beaten_by(foot.distance)) surface->look(foot.link, foot.point, &loop.trace[i].uv);
  }
  if (surface) surface->tag();
}
}  // namespace

void igs_check_trims(igsLoopChecking& loop) {
  if (loop.face.surface == nullptr) return;
  if (!loop.parameter.empty()) {
    ParameterTrace(loop).follow();
    if (!loop.model.empty() && !loop.trace.empty()) check_forms(loop);
  } else if (!loop.model.empty()) {
    ProjectedTrace(loop).follow();
  }
  check_vertices_on_surface(loop);
}
