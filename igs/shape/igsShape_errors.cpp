#include "igs/shape/igsShape_errors.h"

#include "igs/errors/igsRepairs.h"
#include "igs/shape/private/igsLoopRepair.h"
#include "igs/solids/igs504.h"
#include "igs/solids/igs508.h"

int igsShapeLoopGap::fix() {
  return igs_repair<igsObject>(object_at_key(), [this](igsObject& loop) {
    return igs_join_members(loop, value<2>(), value<3>(), value<4>(), value<1>());
  });
}

int igsShapeOpenLoop::fix() {
  return igs_repair<igsObject>(object_at_key(), [this](igsObject& loop) {
    return igs_join_members(loop, value<4>(), value<2>(), value<3>(), value<1>());
  });
}

int igsShapeWrongSense::fix() {
  return igs_repair<igsObject>(object_at_key(),
                               [this](igsObject& loop) { return igs_turn_member(loop, value<0>(), value<1>()); });
}

int igsShapeLoopOrientation::fix() {
  if (value<2>() == 0) return 0;
  return igs_repair<igs508>(object_at_key(), [](igs508& loop) { return igs_turn_loop(loop); });
}

int igsShapeVertexOffEdge::fix() {
  if (value<5>() == 0) return 0;
  return igs_repair<igs504>(object_at_key(), [this](const igs504& edges) {
    return igs_move_to_vertex(edges, value<2>(), value<3>(), value<4>() == 0, value<1>());
  });
}
