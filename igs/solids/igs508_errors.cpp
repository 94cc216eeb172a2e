#include "igs/solids/igs508_errors.h"

#include "igs/solids/igs502.h"

int igs508OrientatedEdge502InvalidList::fix() {
  return igs_repair<igs508>(object_at_key(), [this](igs508& loop) {
    const igsOrientedEdge* const edge = loop.oriented_edge_at(value<0>());
    const igs502* const vertices = edge != nullptr ? igs_cast<igs502>(edge->list().object()) : nullptr;
    return vertices != nullptr && !vertices->vertex(edge->index()).is_undefined() ? 1 : 0;
  });
}

int igs508HalfEdgeInvalidCurveFlag::fix() {
  return igs_repair<igs508>(object_at_key(), [this](igs508& loop) {
    igsOrientedEdge* const edge = loop.oriented_edge_at(value<0>());
    igsHalfEdge* const half_edge = edge != nullptr ? edge->half_edge_at(value<1>()) : nullptr;
    if (half_edge == nullptr) return 0;
    half_edge->set_isoparametric_flag(1);
    return 1;
  });
}
