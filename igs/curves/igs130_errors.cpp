#include "igs/curves/igs130_errors.h"

int igs130NormalNotUnit::fix() {
  return igs_repair<igs130>(object_at_key(), [](igs130& curve) {
    giVector3 normal = curve.normal();
    return normal.unitize() != 0 ? curve.set_normal(normal) : 0;
  });
}
