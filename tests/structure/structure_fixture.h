#pragma once

#include <string>
#include <utility>

#include "geometry/geometry_fixture.h"

namespace igs_test {

/// Adds an entity given as "type:form,fields"; the form may be missing when it is 0. Returns its DE number.
inline int add_record(IgesBuilder& builder, std::string record, De de = {}) {
  const int type = std::stoi(record);
  int form = 0;
  if (const std::size_t colon = record.find(':'); colon < record.find(',')) {
    form = std::stoi(record.substr(colon + 1));
    record.erase(colon, record.find(',') - colon);
  }
  return builder.entity_with_raw_data(type, form, record + ';', std::move(de));
}

/// A file with an entity under test, DE 21, one more with DE 23, and what they may refer to.
struct StructureModel {
  static constexpr int subject = 21;

  explicit StructureModel(const std::string& record, const std::string& another = "") {
    IgesBuilder builder;
    for (const char* const other : {
             "110,0.,0.,0.,1.,1.,0.",                    // 1: a line
             "102,0",                                    // 3: an entity with a fault
             "108,0.,0.,1.,0.,0,0.,0.,0.,-1.",           // 5: a plane with one that can be repaired
             "108,0.,0.,1.,0.",                          // 7: a plane
             "410,1,2.",                                 // 9: a view
             "410,2,0.",                                 // 11: a view with a fault that can be repaired
             "410,3,1.,1",                               // 13: a view with a fault
             "124,1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0.",  // 15: a matrix
             "308,0,1HA,1,1",                            // 17: a subfigure
             "124,0.,0.,0.,0.,0.,0.,0.,0.,0.,0.,0.,0.",  // 19: a matrix with a fault
         }) {
      add_record(builder, other);
    }
    add_record(builder, record);
    add_record(builder, another.empty() ? "116,0.,0.,0." : another);
    read = read_text(file, builder.text());
  }
  const igsObject& entity() const { return *file.entity(subject); }
  /// The errors that the entity under test has, in order, without its number: "igsX; igsY 0".
  std::string errors() const {
    std::string errors;
    for (const igsError* const error : object_errors(file)) {
      if (static_cast<const igsObjectError*>(error)->key() != subject) continue;
      std::string text = describe(*error);
      errors += (errors.empty() ? "" : "; ") + text.erase(text.find(" 21"), 3);
    }
    return errors;
  }
  std::string found() const {
    entity().check();
    return errors();
  }

  igsFile file;
  int read;
};

/// `record` with `number` in the place of the '@'.
inline std::string with_reference(std::string record, int number) {
  return record.replace(record.find('@'), 1, std::to_string(number));
}

}  // namespace igs_test
