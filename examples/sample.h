#pragma once

/// What the programs that make the samples share: the Start and Global sections, lines, and the way to standard output.

#include <initializer_list>
#include <iostream>

#include "igs/igs.h"

namespace sample {

/// Fills the Start section with `about`, and the Global section of the product `name`, whose file is name.igs.
inline void describe(igsFile& file, const utString& name, std::initializer_list<const char*> about,
                     double max_coordinate) {
  igsStartSection start;
  for (int i = 0; const char* line : about) start.set_line(i++, line);
  file.set_start_section(start);

  igsGlobalSection global;
  global.set_product_id_from_sending_system(name);
  global.set_product_id_for_receiving_system(name);
  global.set_file_name(name + ".igs");
  global.set_system_id("igs");
  global.set_preprocessor_version("make_" + name);
  global.set_binary_bits_for_int(32);
  global.set_sp_max_pow10(38);
  global.set_sp_sig_digs(6);
  global.set_dp_max_pow10(308);
  global.set_dp_sig_digs(15);
  global.set_max_number_of_line_weights(8);
  global.set_width_of_max_line_weight(0.8);
  global.set_file_creation_date(igsDate("20240229.120000"));  // fixed: the same file every day
  global.set_file_modification_date(igsDate("20240229.120000"));
  global.set_minimum_resolution(1e-6);
  global.set_max_coord_value(max_coordinate);
  global.set_name_of_author("The igs project");
  global.set_authors_organization("The igs project");
  global.set_iges_version(11);
  file.set_global_section(global);
}

/// Writes the file to standard output. The exit status of the program: 0 when all went well.
inline int print(igsFile& file) {
  utOstream messages(std::cerr);
  return file.write(std::cout, messages) != 0 && std::cout.flush() ? 0 : 1;
}

/// Says in the directory entry that another entity refers to this one, which has no meaning of its own without it.
template <class Entity>
Entity* part(Entity* entity, igsEntityUse use = igsStatusFlags::use_geometry) {
  constexpr igsSubordinateStatus physically_dependent = 1;
  entity->directory_entry().set_status_flags(igsStatusFlags(0, physically_dependent, use, 0));
  return entity;
}

inline igs110* line(const giPoint3& start, const giPoint3& end) {
  auto* entity = new igs110;  // the current file owns it
  entity->set_start_point(start);
  entity->set_end_point(end);
  return entity;
}

/// Counterclockwise about the centre in the plane z = `z`; a full circle when start and end are the same.
inline igs100* arc(const giPoint2& centre, const giPoint2& start, const giPoint2& end, double z = 0) {
  auto* entity = new igs100;
  entity->set_z_level(z);
  entity->set_centre(centre);
  entity->set_start_point(start);
  entity->set_end_point(end);
  return entity;
}

inline igs100* circle(const giPoint2& centre, double radius, double z = 0) {
  const giPoint2 start(centre.x() + radius, centre.y());
  return arc(centre, start, start, z);
}

/// Of curves that follow each other; they become parts of it.
inline igs102* composite(std::initializer_list<igsObject*> curves, igsEntityUse use = igsStatusFlags::use_geometry) {
  auto* entity = new igs102;
  entity->set_size(static_cast<int>(curves.size()));
  int i = 0;
  for (igsObject* curve : curves) entity->set_sub_curve(i++, igsObjectPtr(part(curve, use)));
  return entity;
}

inline igs116* point(const giPoint3& place) {
  auto* entity = new igs116;
  entity->set_point(place);
  return entity;
}

inline igs123* direction(const giVector3& vector) {
  auto* entity = new igs123;
  entity->set_direction(vector);
  return entity;
}

}  // namespace sample
