#pragma once

#include <string>
#include <utility>
#include <vector>

#include "geometry/geometry_fixture.h"

namespace igs_test {

/// "214,1,..." for "214/5,1,...": the parameter data.
inline std::string without_form(const std::string& record) {
  return record.substr(0, record.find_first_of("/,")) + record.substr(record.find(','));
}
/// 5 for "214/5,1,...", 0 for "212,1,...".
inline int form_of(const std::string& record) {
  const std::size_t end = record.find_first_of("/,");
  return record[end] == '/' ? std::stoi(record.substr(end + 1)) : 0;
}

/// A file made of records such as "214/5,1,..." (type, form unless it is 0, data), without their delimiter. The first,
/// DE 1, is under test; the others stand at DE 3, 5, ...
struct RecordModel {
  explicit RecordModel(const std::string& record, const std::vector<std::string>& others = {}, De de = {}) {
    IgesBuilder builder;
    add(builder, record, std::move(de));
    for (const std::string& other : others) add(builder, other, {});
    read = read_text(file, builder.text());
  }
  /// What a check of the first entity finds.
  std::string found() const {
    if (file.entity(1) == nullptr) return "no entity";
    file.entity(1)->check();
    return errors();
  }
  /// The errors that the first entity has, in order, without its number: "igsX; igsY 0".
  std::string errors() const {
    std::string errors;
    for (const igsError* const error : object_errors(file)) {
      if (static_cast<const igsObjectError*>(error)->key() != 1) continue;
      std::string text = describe(*error);
      errors += (errors.empty() ? "" : "; ") + text.erase(text.find(" 1"), 2);
    }
    return errors;
  }
  /// The parameter data of the first entity as the file writes it, without the record delimiter.
  std::string data() {
    std::string data = written_data(file);
    if (!data.empty()) data.pop_back();
    return data;
  }

  igsFile file;
  int read = 0;

 private:
  static void add(IgesBuilder& builder, const std::string& record, De de) {
    builder.entity(std::stoi(record), form_of(record), record.substr(record.find(',') + 1), std::move(de));
  }
};

}  // namespace igs_test
