#include "igs/solids/igs508_errors.h"

#include "igs/objects/igsCast.h"
#include "igs/solids/igs502.h"
#include "igs/solids/igs508.h"

namespace {
/// Hands oriented edge `i` of the loop to `repair`. Returns what igs_repair() returns; 0 when there is no such edge.
template <class Repair>
int repair_edge(igsObject* object, int i, Repair repair) {
  return igs_repair<igs508>(object, [&](igs508& loop) {
    igsOrientedEdge* const edge = loop.oriented_edge_at(i);
    return edge != nullptr ? repair(*edge) : 0;
  });
}
}  // namespace

int igs508OrientatedEdgeWrong502EdgeType::fix() {
  return repair_edge(object_at_key(), value<0>(), [](igsOrientedEdge& edge) {
    edge.set_edge_type(1);
    return 1;
  });
}

int igs508OrientatedEdge502InvalidList::fix() {
  return repair_edge(object_at_key(), value<0>(), [](const igsOrientedEdge& edge) {
    const igs502* const vertices = igs_cast<igs502>(edge.list().object());
    return vertices != nullptr && !vertices->vertex(edge.index()).is_undefined() ? 1 : 0;
  });
}

int igs508OrientatedEdgeWrong504EdgeType::fix() {
  return repair_edge(object_at_key(), value<0>(), [](igsOrientedEdge& edge) {
    edge.set_edge_type(0);
    return 1;
  });
}

int igs508OrientatedEdgeInvalidEdgeDirection::fix() {
  return repair_edge(object_at_key(), value<0>(), [](igsOrientedEdge& edge) {
    edge.set_orientation(1);
    return 1;
  });
}

int igs508HalfEdgeInvalidCurveFlag::fix() {
  return repair_edge(object_at_key(), value<0>(), [j = value<1>()](igsOrientedEdge& edge) {
    igsHalfEdge* const half_edge = edge.half_edge_at(j);
    if (half_edge == nullptr) return 0;
    half_edge->set_isoparametric_flag(1);
    return 1;
  });
}
