#include <algorithm>
#include <cstddef>
#include <set>
#include <unordered_set>
#include <utility>
#include <vector>

#include "igs/shape/igsShapeNearest.h"
#include "igs/shape/private/igsLoopChecking.h"

namespace {
int de_of(const igsChainLink& link) { return link.piece->entity->de_number(); }

void tag_joint(igsLoopChecking& loop, const std::vector<igsChainLink>& chain, std::size_t i) {
  if (i == 0) {
    loop.tag_distance<igsShapeOpenLoop>(chain[0].gap, de_of(chain.back()), de_of(chain[0]),
                                        static_cast<int>(chain.size() - 1));
  } else {
    loop.tag_distance<igsShapeLoopGap>(chain[i].gap, static_cast<int>(i - 1), de_of(chain[i - 1]), de_of(chain[i]));
  }
}

/// Of the gaps that are within the tolerance the widest is enough.
void tag_gaps(igsLoopChecking& loop, const std::vector<igsChainLink>& chain) {
  std::size_t widest = 0;
  bool is_open = false;
  for (std::size_t i = 0; i < chain.size(); ++i) {
    if (chain[i].gap > chain[widest].gap) widest = i;
    if (!(chain[i].gap > loop.checking.options.tolerance)) continue;
    tag_joint(loop, chain, i);
    is_open = true;
  }
  if (!is_open && !chain.empty()) tag_joint(loop, chain, widest);
}

bool is_of_reversed_edge(const igsLoopChecking& loop, const igsChainLink& link) {
  if (link.piece->model < 0) return false;
  const igsShapePiece& edge = loop.loop.model[static_cast<std::size_t>(link.piece->model)];
  return edge.edge >= 0 && edge.is_reversed;
}

// A member that is shorter than the tolerance may lie either way. So may the image of an edge that the loop uses
// backwards: some senders let it follow the loop, others the edge.
void tag_wrong_senses(igsLoopChecking& loop, const std::vector<igsChainLink>& chain) {
  const double tolerance = loop.checking.options.tolerance;
  for (std::size_t i = 0; i < chain.size(); ++i) {
    const igsChainLink &link = chain[i], &next = chain[(i + 1) % chain.size()];
    if (!link.is_turned || link.gap > tolerance || next.gap > tolerance || is_of_reversed_edge(loop, link)) continue;
    if ((link.end - link.start).length() > tolerance) {
      loop.tag<igsShapeWrongSense>(static_cast<int>(i), de_of(link));
    }
  }
}

/// The members of one kind: in model space, or in parameter space where a surface is given.
std::vector<igsChainLink> chain_of(const igsLoopChecking& loop, const igsShapeSurface* surface) {
  const auto& pieces = surface != nullptr ? loop.loop.parameter : loop.loop.model;
  return igs_chain_within(pieces, surface, loop.checking.options.least);
}

// What is open in model space mostly is in parameter space, too: it is told once.
void check_joints(igsLoopChecking& loop) {
  loop.model = chain_of(loop, nullptr);
  if (loop.face.surface != nullptr) loop.parameter = chain_of(loop, loop.face.surface.get());
  const auto check = [&](const std::vector<igsChainLink>& chain) {
    tag_wrong_senses(loop, chain);
    tag_gaps(loop, chain);
  };
  check(loop.model);
  if (!loop.is_faulty) check(loop.parameter);
}

void check_face(igsShapeChecking& checking, const igsShapeFace& face) {
  std::vector<igsLoopChecking> loops;
  loops.reserve(face.loops.size());
  for (const igsShapeLoop& loop : face.loops) {
    if (loop.entity == nullptr) continue;
    check_joints(loops.emplace_back(checking, face, loop));
    igs_check_trims(loops.back());
  }
  igs_check_crossings(checking, face, loops);
  for (const igsLoopChecking& loop : loops) {
    if (!loop.is_faulty) continue;
    const int de = loop.loop.entity->de_number();
    auto* const error = igs_report<igsShapeFaultyBoundary>(de);
    error->set_obj(de);
    face.entity->tag_error(error);
    ++checking.num_errors;
  }
}

bool is_on_surfaces(const igsShapeChecking& checking, const igsShapeEdge& edge, const igsVec3& vertex) {
  return std::all_of(edge.faces.begin(), edge.faces.end(), [&](int face) {
    const igsShapeSurfacePtr& surface = checking.model.faces()[static_cast<std::size_t>(face)].surface;
    return surface != nullptr && igsNearestPointOnSurface(*surface)(vertex).distance <= checking.options.least;
  });
}

void check_vertices(igsShapeChecking& checking) {
  std::set<std::pair<const igsObject*, int>> seen;
  for (const igsShapeEdge& edge : checking.model.edges()) {
    if (edge.curve == nullptr || !edge.curve->range().is_finite()) continue;
    const double distances[] = {(edge.curve->start() - edge.first).length(),
                                (edge.curve->end() - edge.second).length()};
    if (!(distances[0] > checking.options.least) && !(distances[1] > checking.options.least)) continue;
    if (!seen.emplace(edge.list, edge.position).second) continue;
    const int worse = distances[1] > distances[0] ? 1 : 0;
    for (const int end : {0, 1}) {
      if (end != worse && !(distances[end] > checking.options.tolerance)) continue;
      if (!(distances[end] > checking.options.least)) continue;
      const bool can_be_met = is_on_surfaces(checking, edge, end == 0 ? edge.first : edge.second);
      checking.tag_distance<igsShapeVertexOffEdge>(*edge.list, distances[end], edge.position,
                                                   edge.curve_entity->de_number(), end, can_be_met ? 1 : 0);
    }
  }
}
}  // namespace

// A face that is placed more than once is looked at once.
void igs_check_loops(igsShapeChecking& checking) {
  std::unordered_set<const igsObject*> seen;
  for (const igsShapeFace& face : checking.model.faces()) {
    if (seen.insert(face.entity).second) check_face(checking, face);
  }
  check_vertices(checking);
}
