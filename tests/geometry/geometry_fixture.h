#pragma once

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "iges_builder.h"
#include "igs/igs.h"

namespace igs_test {

/// The active object errors of a file.
inline std::vector<igsError*> object_errors(const igsFile& file) {
  std::vector<igsError*> errors;
  igsSimpleSectionLogIT it(file.error_log().object_log());
  while (++it != 0) errors.push_back(it());
  return errors;
}

/// What a check of the entity finds, as describe() gives it.
inline std::vector<std::string> found_by_check(const igsObject& object) {
  object.check();
  std::vector<std::string> found;
  for (const igsError* error : object_errors(object.file())) found.push_back(describe(*error));
  return found;
}

/// The parameter data of an entity as the file writes it, its records joined.
inline std::string written_data(igsFile& file, int de = 1) {
  std::string data;
  for (const std::string& record : records_of(written(file), 'P')) {
    if (number_at(record, 66, 7) != de) continue;
    data += record.substr(0, 64);
    data.erase(data.find_last_not_of(' ') + 1);
  }
  return data;
}

/// What the entity's own data print.
inline std::string printed_data(const igsObject& object) {
  std::ostringstream text;
  utOstream os(text);
  object.print_pd_data(os);
  return text.str();
}

/// The entity with this DE number, which must be a `T`.
template <class T>
T& entity_of(const igsFile& file, int de = 1) {
  T* const entity = igs_cast<T>(file.entity(de));
  if (entity == nullptr) throw std::runtime_error("no such entity");
  return *entity;
}

/// Reads entities, each as "type:form fields", with blanks between them.
inline void read_entities(igsFile& file, const std::string& entities) {
  IgesBuilder builder;
  std::istringstream words(entities);
  char colon = 0;
  int type = 0, form = 0;
  for (std::string data; words >> type >> colon >> form >> data;) builder.entity(type, form, data);
  if (read_text(file, builder.text()) != 1) throw std::runtime_error("the file cannot be read");
}

/// What the call answers for the numbers from `first` to `last`, a blank behind each.
template <class Call>
std::string answers(int first, int last, Call call) {
  std::string all;
  for (int i = first; i <= last; ++i) all += std::to_string(call(i)) + ' ';
  return all;
}

}  // namespace igs_test
