#include "igs/annotation/igs106Base.h"

int igs106Base::remove_unpaired_point() {
  if (number_of_points() < 3 || number_of_points() % 2 == 0) return 0;
  remove_last_point();
  return 1;
}

bool igs106Base::has_paired_points() const { return number_of_points() >= 2 && number_of_points() % 2 == 0; }
