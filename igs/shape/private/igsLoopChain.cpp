#include "igs/shape/private/igsLoopChain.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {
/// An end of a piece.
struct PieceEnd {
  igsVec3 point;
  igsVec2 uv;
  double length_u = 0, length_v = 0;  // of the partials; 0 in model space, and where nothing is fitted
};

/// Both ends of a piece, first as the file has them, then turned round.
struct Directions {
  std::array<PieceEnd, 2> ends;
  const PieceEnd& start(int turned) const { return ends[turned != 0 ? 1 : 0]; }
  const PieceEnd& end(int turned) const { return ends[turned != 0 ? 0 : 1]; }
};

PieceEnd end_at(const igsVec3& point, const igsShapeSurface* surface, igsChaining chaining) {
  if (surface == nullptr) return {point, {}};
  const igsVec2 uv{point.x, point.y};
  if (chaining == igsChaining::as_given) return {surface->point(uv), uv};
  const igsSurfacePoint at = surface->at(uv);
  return {at.point, uv, at.u.length(), at.v.length()};
}

bool find_ends(const igsShapePiece& piece, const igsShapeSurface* surface, igsChaining chaining,
               Directions& directions) {
  if (piece.curve == nullptr || !piece.curve->range().is_finite()) return false;
  igsVec3 start = piece.curve->start(), end = piece.curve->end();
  if (!start.is_finite() || !end.is_finite()) return false;
  if (piece.is_reversed) std::swap(start, end);
  directions.ends = {end_at(start, surface, chaining), end_at(end, surface, chaining)};
  return directions.ends[0].point.is_finite() && directions.ends[1].point.is_finite();
}

double step(double from, double to, const igsSurfaceDirection& direction) {
  const double period = direction.range.length();
  return direction.is_closed ? std::remainder(to - from, period) : to - from;
}

// At a pole, where all images are one, the parameters tell how pieces follow each other.
double misfit(const PieceEnd& from, const PieceEnd& to, const igsShapeSurface* surface) {
  constexpr double share_of_parameters = 1e-3;
  const double gap = (to.point - from.point).length();
  if (surface == nullptr) return gap;
  const double du = step(from.uv.x, to.uv.x, surface->u()) * std::max(from.length_u, to.length_u);
  const double dv = step(from.uv.y, to.uv.y, surface->v()) * std::max(from.length_v, to.length_v);
  return gap + share_of_parameters * std::hypot(du, dv);
}

/// Which pieces to turn for the smallest sum of misfits all the way round.
class BestDirections {
 public:
  BestDirections(const std::vector<Directions>& pieces, const igsShapeSurface* surface)
      : m_pieces(pieces), m_surface(surface) {
    igsBox box;
    for (const Directions& piece : pieces) {
      for (const PieceEnd& end : piece.ends) box.add(end.point);
    }
    constexpr double worth_turning = 1e-7;
    m_cost_of_turning = worth_turning * box.diagonal();
  }

  std::vector<bool> find() {
    for (const int first : {0, 1}) run(first);
    return m_best;
  }

 private:
  struct State {
    double cost = 0;
    int before = 0;
  };

  // Piece by piece, the cheapest way to either direction, beginning with the first piece in a given one.
  void run(int first) {
    std::vector<std::array<State, 2>> states(m_pieces.size());
    const double never = std::numeric_limits<double>::infinity();
    states[0][0].cost = first == 0 ? 0 : never;
    states[0][1].cost = first == 1 ? m_cost_of_turning : never;
    for (std::size_t i = 1; i < m_pieces.size(); ++i) {
      for (const int turned : {0, 1}) {
        const double kept = states[i - 1][0].cost + joint(i - 1, 0, i, turned);
        const double other = states[i - 1][1].cost + joint(i - 1, 1, i, turned);
        states[i][turned != 0 ? 1 : 0] = {std::min(kept, other) + turned * m_cost_of_turning, other < kept ? 1 : 0};
      }
    }
    const std::size_t last = m_pieces.size() - 1;
    const double kept = states[last][0].cost + joint(last, 0, 0, first);
    const double other = states[last][1].cost + joint(last, 1, 0, first);
    if (std::min(kept, other) >= m_best_cost) return;
    m_best_cost = std::min(kept, other);
    m_best.resize(m_pieces.size());
    int turned = other < kept ? 1 : 0;
    for (std::size_t i = m_pieces.size(); i-- > 0;) {
      m_best[i] = turned != 0;
      turned = states[i][turned != 0 ? 1 : 0].before;
    }
  }

  double joint(std::size_t from, int from_turned, std::size_t to, int to_turned) const {
    return misfit(m_pieces[from].end(from_turned), m_pieces[to].start(to_turned), m_surface);
  }

  const std::vector<Directions>& m_pieces;
  const igsShapeSurface* m_surface;
  double m_cost_of_turning;
  double m_best_cost = std::numeric_limits<double>::infinity();
  std::vector<bool> m_best;
};
}  // namespace

std::vector<igsChainLink> igs_chain(const std::vector<igsShapePiece>& pieces, const igsShapeSurface* surface,
                                    igsChaining chaining) {
  std::vector<Directions> directions(pieces.size());
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (!find_ends(pieces[i], surface, chaining, directions[i])) return {};
  }
  std::vector<bool> turned(pieces.size(), false);
  if (chaining == igsChaining::fitting && pieces.size() > 1) turned = BestDirections(directions, surface).find();
  if (turned.size() != pieces.size()) return {};  // the points are too far apart to be added up
  std::vector<igsChainLink> chain(pieces.size());
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const PieceEnd &start = directions[i].start(turned[i]), &end = directions[i].end(turned[i]);
    const std::size_t before = (i == 0 ? pieces.size() : i) - 1;
    const double gap = (start.point - directions[before].end(turned[before]).point).length();
    chain[i] = {&pieces[i], pieces[i].is_reversed != turned[i], turned[i], start.point, end.point, start.uv, end.uv,
                gap};
  }
  return chain;
}

std::vector<igsChainLink> igs_chain_within(const std::vector<igsShapePiece>& pieces, const igsShapeSurface* surface,
                                           double tolerance) {
  std::vector<igsChainLink> chain = igs_chain(pieces, surface, igsChaining::as_given);
  return igs_largest_gap(chain) > tolerance ? igs_chain(pieces, surface) : chain;
}

double igs_largest_gap(const std::vector<igsChainLink>& chain) {
  double largest = 0;
  for (const igsChainLink& link : chain) largest = std::max(largest, link.gap);
  return largest;
}
