#pragma once

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "iges_builder.h"
#include "igs/errors/igsErrorLog.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
#include "igs/objects/igsCast.h"
#include "igs/objects/igsObject.h"
#include "igs/support/coResourceTable.h"

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

/// Checks the entity, which must have exactly one fault, and repairs that: what `fix` answers.
inline int fix_the_fault(const igsObject& object) {
  object.check();
  const std::vector<igsError*> errors = object_errors(object.file());
  return errors.size() == 1 ? errors.front()->fix() : -1;
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

/// Sets a key of the resource table for the life of this object.
template <class Key, class Value>
class Resource {
 public:
  Resource(Key key, Value value) : m_key(key), m_old(kel_resource_table_inquire().value(key)) {
    kel_resource_table_inquire().set_value(key, value);
  }
  ~Resource() { kel_resource_table_inquire().set_value(m_key, m_old); }
  Resource(const Resource&) = delete;
  Resource& operator=(const Resource&) = delete;

 private:
  Key m_key;
  Value m_old;
};

}  // namespace igs_test
