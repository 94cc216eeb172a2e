#pragma once

#include <string>

#include "record_model.h"

namespace igs_test {

/// A file with an entity under test, DE 21, one more with DE 23, and what they may refer to.
struct StructureModel : RecordModel {
  static constexpr int subject = 21;

  explicit StructureModel(const std::string& record, const std::string& another = "")
      : RecordModel(
            {
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
                record,
                another.empty() ? "116,0.,0.,0." : another,
            },
            subject) {}
};

}  // namespace igs_test
