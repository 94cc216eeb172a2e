// Builds the file bracket.igs with the library: an angle bracket of two plates with rounded corners and four holes.
//   make_bracket > bracket.igs
#include <iostream>

#include "igs/curves/igs124.h"
#include "igs/igs.h"

namespace {

constexpr double length = 100;
constexpr double width = 60;
constexpr double height = 45;
constexpr double corner_radius = 10;
constexpr double hole_radius = 4.5;

enum Colour { red = 2, green = 3, blue = 4 };

// Entities belong to the current file, which owns them: whoever makes one does not delete it.

igs110* add_line(const giPoint3& start, const giPoint3& end) {
  auto* line = new igs110;
  line->set_start_point(start);
  line->set_end_point(end);
  line->directory_entry().set_colour(igsColour(blue));
  return line;
}

/// Counterclockwise about the centre; a full circle when start and end are the same.
igs100* add_arc(const giPoint2& centre, const giPoint2& start, const giPoint2& end) {
  auto* arc = new igs100;
  arc->set_z_level(0);
  arc->set_centre(centre);
  arc->set_start_point(start);
  arc->set_end_point(end);
  arc->directory_entry().set_colour(igsColour(blue));
  return arc;
}

igs116* add_point(const giPoint3& place) {
  auto* point = new igs116;
  point->set_point(place);
  point->directory_entry().set_colour(igsColour(green));
  return point;
}

/// A circle with a point at its centre.
igs100* add_hole(double x, double y) {
  add_point(giPoint3(x, y, 0));
  igs100* circle = add_arc(giPoint2(x, y), giPoint2(x + hole_radius, y), giPoint2(x + hole_radius, y));
  circle->directory_entry().set_colour(igsColour(red));
  circle->directory_entry().set_entity_label("HOLE");
  return circle;
}

/// The lower plate, in the plane z = 0; its edge x = 0 is the bend.
void add_lower_plate() {
  const double inner_x = length - corner_radius;
  const double inner_y = width - corner_radius;
  add_line(giPoint3(0, 0, 0), giPoint3(inner_x, 0, 0));
  add_arc(giPoint2(inner_x, corner_radius), giPoint2(inner_x, 0), giPoint2(length, corner_radius));
  add_line(giPoint3(length, corner_radius, 0), giPoint3(length, inner_y, 0));
  add_arc(giPoint2(inner_x, inner_y), giPoint2(length, inner_y), giPoint2(inner_x, width));
  add_line(giPoint3(inner_x, width, 0), giPoint3(0, width, 0));
  add_hole(70, 15);
  add_hole(70, 45);
}

/// The upright plate, in the plane x = 0.
void add_upright_plate() {
  add_line(giPoint3(0, 0, 0), giPoint3(0, 0, height));
  add_line(giPoint3(0, 0, height), giPoint3(0, width, height));
  add_line(giPoint3(0, width, height), giPoint3(0, width, 0));
  add_line(giPoint3(0, width, 0), giPoint3(0, 0, 0));

  // Arcs lie in planes parallel to XY: a matrix takes them to where they belong, x to y, y to z and z to x.
  const double elements[4][4] = {{0, 0, 1, 0}, {1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 0, 1}};
  auto* matrix = new igs124;
  matrix->set_matrix(elements);
  for (const double y : {15.0, 45.0}) {
    igs100* hole = add_arc(giPoint2(y, 25), giPoint2(y + hole_radius, 25), giPoint2(y + hole_radius, 25));
    hole->directory_entry().set_matrix(igsObjectPtr(matrix));
    hole->directory_entry().set_colour(igsColour(red));
    hole->directory_entry().set_entity_label("HOLE");
    add_point(giPoint3(0, y, 25));
  }
}

void describe(igsFile& file) {
  igsStartSection start;
  start.set_line(0, "An angle bracket of two plates, with rounded corners and four holes.");
  start.set_line(1, "Lines and arcs outline the plates, points mark the centres of the holes.");
  file.set_start_section(start);

  igsGlobalSection global;
  global.set_product_id_from_sending_system("Bracket");
  global.set_product_id_for_receiving_system("Bracket");
  global.set_file_name("bracket.igs");
  global.set_system_id("igs");
  global.set_preprocessor_version("make_bracket");
  global.set_binary_bits_for_int(32);
  global.set_sp_max_pow10(38);
  global.set_sp_sig_digs(6);
  global.set_dp_max_pow10(308);
  global.set_dp_sig_digs(15);
  global.set_max_number_of_line_weights(8);
  global.set_width_of_max_line_weight(0.8);
  global.set_file_creation_date(igsDate("20240229.120000"));
  global.set_minimum_resolution(1e-6);
  global.set_max_coord_value(length);
  global.set_name_of_author("The igs project");
  global.set_authors_organization("The igs project");
  global.set_iges_version(11);
  global.set_file_modification_date(igsDate("20240229.120000"));
  file.set_global_section(global);
}

}  // namespace

int main() {
  igsFile file;
  describe(file);
  add_lower_plate();
  add_upright_plate();
  utOstream messages(std::cerr);
  return file.write(std::cout, messages) != 0 && std::cout.flush() ? 0 : 1;
}
