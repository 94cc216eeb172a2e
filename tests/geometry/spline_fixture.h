#pragma once

#include <string>
#include <vector>

#include "geometry/geometry_fixture.h"

namespace igs_test {

using Found = std::vector<std::string>;

inline const char* const lowest = "-1.79769313486232e+308";  // an unset value, as describe() gives it

/// "text,text,text": `count` times.
inline std::string repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += (i > 0 ? "," : "") + text;
  return all;
}

/// Reads one entity from its data; the file owns it, null when the reader dropped it.
inline const igsObject* read_entity(igsFile& file, int type, const std::string& data, int form = 0) {
  IgesBuilder builder;
  builder.entity(type, form, data);
  read_text(file, builder.text());
  return file.entity(1);
}

/// What is found in an entity read from its data: by its check, or by the reader, which drops it then.
inline Found found_in(int type, const std::string& data) {
  igsFile file;
  if (const igsObject* const entity = read_entity(file, type, data)) return found_by_check(*entity);
  Found found{"dropped"};
  for (const igsError* error : object_errors(file)) found.push_back(describe(*error));
  return found;
}

/// Checks the entity and repairs what is found in that order: what each `fix` answers.
inline std::vector<int> fix_all(const igsObject& object) {
  object.check();
  std::vector<int> answers;
  for (igsError* error : object_errors(object.file())) answers.push_back(error->fix());
  return answers;
}

}  // namespace igs_test
