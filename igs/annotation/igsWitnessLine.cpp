#include "igs/annotation/igsWitnessLine.h"

#include <cmath>

#include "igs/annotation/igsWitnessLine_errors.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/support/coResourceTable.h"

igsWitnessLine::igsWitnessLine() { set_directory_entry_type(igsEntity106, 40); }

void igsWitnessLine::check_pd() const {
  const bool enough_points = number_of_points() >= 3;
  check_plane();
  check_number_of_points(enough_points && number_of_points() % 2 != 0);
  if (check_points() && enough_points) check_line();
}

void igsWitnessLine::check_line() const {
  const double tolerance = kel_resource_table_inquire().value(kelTolCoincPoint2d);
  const giPoint2 first = planar_point(0), last = planar_point(number_of_points() - 1);
  if (giPoint2::coincident(first, last, tolerance)) {
    tag<igsWitnessLineCoincidentPoints>(tolerance);
    return;
  }
  const double length = first.distance(last);
  const double x = (last.x() - first.x()) / length, y = (last.y() - first.y()) / length;
  int farthest = 0;
  double largest = 0;
  for (int i = 1; i < number_of_points() - 1; ++i) {
    const giPoint2 point = planar_point(i);
    const double distance = std::abs(x * (point.y() - first.y()) - y * (point.x() - first.x()));
    if (!(distance > largest)) continue;
    farthest = i;
    largest = distance;
  }
  if (largest > tolerance) tag<igsWitnessLineNotCollinear>(farthest, largest);
}
