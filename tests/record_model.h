#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "geometry/geometry_fixture.h"

namespace igs_test {

/// "214,1,..." for "214/5,1,...": the parameter data.
inline std::string without_form(const std::string& record) {
  const std::size_t comma = std::min(record.find(','), record.size());
  return record.substr(0, std::min(record.find('/'), comma)) + record.substr(comma);
}
/// 5 for "214/5,1,...", 0 for "212,1,...".
inline int form_of(const std::string& record) {
  const std::size_t slash = record.find('/');
  return slash < record.find(',') ? std::stoi(record.substr(slash + 1)) : 0;
}
/// `record` with `number` in the place of the '@'.
inline std::string with_reference(std::string record, int number) {
  return record.replace(record.find('@'), 1, std::to_string(number));
}

/// Adds the entity of such a record. Returns its DE number.
inline int add_record(IgesBuilder& builder, const std::string& record, De de = {}) {
  return builder.entity_with_raw_data(std::stoi(record), form_of(record), without_form(record) + ';', std::move(de));
}

/// A file made of records such as "214/5,1,..." (type, form unless it is 0, data), without their delimiter. The one
/// with DE number `subject_de` is under test, and has the directory entry `de`.
struct RecordModel {
  RecordModel(const std::vector<std::string>& records, int subject_de, De de = {}) : m_subject(subject_de) {
    IgesBuilder builder;
    for (int i = 1; const std::string& record : records) {
      add_record(builder, record, i == m_subject ? de : De());
      i += 2;
    }
    read = read_text(file, builder.text());
  }
  const igsObject& entity() const { return entity_of<igsObject>(file, m_subject); }
  /// What a check of the entity under test finds.
  std::string found() const {
    if (file.entity(m_subject) == nullptr) return "no entity";
    entity().check();
    return errors();
  }
  /// The errors that it has, in order, without its number: "igsX; igsY 0".
  std::string errors() const {
    const std::string number = ' ' + std::to_string(m_subject);
    std::string errors;
    for (const igsError* const error : object_errors(file)) {
      if (static_cast<const igsObjectError*>(error)->key() != m_subject) continue;
      std::string text = describe(*error);
      errors += (errors.empty() ? "" : "; ") + text.erase(text.find(number), number.size());
    }
    return errors;
  }
  /// Its parameter data as the file writes it, without the record delimiter.
  std::string data() {
    std::string data = written_data(file, m_subject);
    if (!data.empty()) data.pop_back();
    return data;
  }

  igsFile file;
  int read = 0;

 private:
  int m_subject;
};

/// `record` at DE 1 and the others at DE 3, 5, ...
inline std::vector<std::string> with_others(const std::string& record, std::vector<std::string> others) {
  others.insert(others.begin(), record);
  return others;
}

/// A check finds this, and whatever it is, the file can be cleaned and written.
inline void expect_found_and_cleanable(RecordModel& model, const std::string& found) {
  EXPECT_EQ(model.found(), found);
  for (const int delete_faulty : {0, 1}) {
    model.file.clean(delete_faulty);
    EXPECT_EQ(column_fault(written(model.file)), "");
  }
}

/// One reference of an entity: a record with '@' in its place, what is found when it is null, of a wrong class or
/// faulty, and the DE numbers of such entities.
struct ReferenceCase {
  const char *record, *null, *wrong_type, *invalid;
  std::vector<int> wrong, faulty;
};

/// Tries every reference of the table. `make_model` makes the RecordModel of a record.
template <class MakeModel>
void expect_references_tested(const std::vector<ReferenceCase>& cases, MakeModel make_model) {
  for (const ReferenceCase& c : cases) {
    const auto expect = [&](int reference, const std::string& found) {
      const std::string record = with_reference(c.record, reference);
      SCOPED_TRACE(record);
      expect_found_and_cleanable(*make_model(record), found);
    };
    for (const int null : {0, 99, 8, 2147483647}) expect(null, c.null);
    for (const int wrong : c.wrong) expect(wrong, c.wrong_type);
    for (const int faulty : c.faulty) expect(faulty, c.invalid);
  }
}

}  // namespace igs_test
