// What a host of igs::shape needs of headers, flags and linking; the library proper comes along.
#include <cmath>
#include <iostream>

#include "igs/igs.h"
#include "igs/shape/igsShape.h"

int main() {
  igsFile file;
  auto* const line = new igs110;
  line->set_start_point(giPoint3(0, 0, 0));
  line->set_end_point(giPoint3(3, 4, 0));
  file.check();
  const int errors = igsShapeCheck(file);
  const igsShapeCurvePtr shape = igsShapes(file).curve(line);
  if (errors == 0 && shape != nullptr && std::abs(shape->point(0.5).length() - 2.5) < 1e-12) return 0;
  std::cerr << "shapes: failed\n";
  return 1;
}
