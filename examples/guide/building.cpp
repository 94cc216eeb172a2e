// Builds a file from scratch: a square with a round hole, turned upright, and writes it to standard output.
#include <iostream>

#include "igs/igs.h"

namespace {

// [sections]
void describe(igsFile& file) {
  igsStartSection start;
  start.set_line(0, "A square with a round hole.");
  file.set_start_section(start);

  igsGlobalSection global;
  global.set_product_id_from_sending_system("Square");
  global.set_product_id_for_receiving_system("Square");
  global.set_file_name("square.igs");
  global.set_system_id("guide");
  global.set_preprocessor_version("1");
  global.set_binary_bits_for_int(32);
  global.set_sp_max_pow10(38);
  global.set_sp_sig_digs(6);
  global.set_dp_max_pow10(308);
  global.set_dp_sig_digs(15);
  global.set_units(igsUnits(2));  // millimetres
  global.set_minimum_resolution(1e-6);
  global.set_max_coord_value(40);
  global.set_file_creation_date(igsDate("20240229.120000"));
  global.set_file_modification_date(igsDate("20240229.120000"));
  global.set_name_of_author("A. Author");
  global.set_authors_organization("An organization");
  global.set_iges_version(11);  // IGES 5.3
  file.set_global_section(global);
}
// [sections]

// [entities]
igs100* add_hole() {
  auto* circle = new igs100;  // belongs to the current file from now on: never delete it yourself
  circle->set_z_level(0);
  circle->set_centre(giPoint2(20, 20));
  circle->set_start_point(giPoint2(25, 20));
  circle->set_end_point(giPoint2(25, 20));  // the same point: a full circle
  igsDirectoryEntry& entry = circle->directory_entry();
  entry.set_colour(igsColour(2));  // red
  entry.set_entity_label("HOLE");
  return circle;
}

igsPolyline* add_square() {
  auto* square = new igsPolyline;
  square->set_size(igsCopiousData::planar, 5);
  square->set_z_level(0);
  const giPoint2 corners[] = {{0, 0}, {40, 0}, {40, 40}, {0, 40}, {0, 0}};
  for (int i = 0; i < 5; ++i) square->set_planar_point(i, corners[i]);
  return square;
}
// [entities]

// [matrix]
/// Turns what lies in the plane XY into the plane XZ.
igs124* add_matrix() {
  const double rows[4][4] = {{1, 0, 0, 0}, {0, 0, -1, 0}, {0, 1, 0, 0}, {0, 0, 0, 1}};
  auto* matrix = new igs124;
  matrix->set_matrix(rows);
  return matrix;
}
// [matrix]

}  // namespace

// [main]
int main() {
  igsFile file;
  describe(file);
  igs100* hole = add_hole();
  igsPolyline* square = add_square();
  const igsObjectPtr matrix(add_matrix());
  hole->directory_entry().set_matrix(matrix);
  square->directory_entry().set_matrix(matrix);

  file.check();
  if (file.error_log().object_log().num_errors() != 0) return 1;
  utOstream messages(std::cerr);
  return file.write(std::cout, messages) != 0 && std::cout.flush() ? 0 : 1;
}
// [main]
