#pragma once

#include <string>
#include <vector>

#include "igs/igs.h"

// The sections of a file that hold no entities, for the commands that show them.

/// Hands `visit(name, value)` the parameters of the section in their order, under the names of their accessors.
template <class Visit>
void for_each_parameter(const igsGlobalSection& global, Visit visit) {
  visit("parameter_delimiter", std::string(1, global.parameter_delimiter()));
  visit("record_delimiter", std::string(1, global.record_delimiter()));
  visit("product_id_from_sending_system", global.product_id_from_sending_system());
  visit("file_name", global.file_name());
  visit("system_id", global.system_id());
  visit("preprocessor_version", global.preprocessor_version());
  visit("binary_bits_for_int", global.binary_bits_for_int());
  visit("sp_max_pow10", global.sp_max_pow10());
  visit("sp_sig_digs", global.sp_sig_digs());
  visit("dp_max_pow10", global.dp_max_pow10());
  visit("dp_sig_digs", global.dp_sig_digs());
  visit("product_id_for_receiving_system", global.product_id_for_receiving_system());
  visit("model_space_scale", global.model_space_scale());
  visit("units", global.units());
  visit("max_number_of_line_weights", global.max_number_of_line_weights());
  visit("width_of_max_line_weight", global.width_of_max_line_weight());
  visit("file_creation_date", global.file_creation_date().date_string());
  visit("minimum_resolution", global.minimum_resolution());
  visit("max_coord_value", global.max_coord_value());
  visit("name_of_author", global.name_of_author());
  visit("authors_organization", global.authors_organization());
  visit("iges_version", global.iges_version());
  visit("drafting_standard", global.drafting_standard());
  visit("file_modification_date", global.file_modification_date().date_string());
}

inline std::vector<std::string> start_lines(const igsStartSection& start) {
  std::vector<std::string> lines;
  std::string line;
  for (int i = 0; start.line(i, line) != 0; ++i) lines.push_back(line);
  return lines;
}
