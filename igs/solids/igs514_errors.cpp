#include "igs/solids/igs514_errors.h"

#include "igs/objects/igsCast.h"
#include "igs/solids/igs514.h"

namespace {
int remove_faulty_faces(igsObject* object, int original) {
  return igs_repair<igs514>(object, [=](igs514& shell) { shell.remove_faulty_faces(original); });
}
}  // namespace

int igs514OrientatedFaceWrongFaceType::fix() { return remove_faulty_faces(object_at_key(), value<0>()); }

int igs514OrientatedFaceInvalidFace::fix() { return remove_faulty_faces(object_at_key(), value<0>()); }

int igs514OrientatedFaceInvalidOrientation::fix() {
  return igs_repair<igs514>(object_at_key(),
                            [i = value<0>()](igs514& shell) { shell.set_orientation_of_original(i, 1); });
}
