#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <iomanip>
#include <string>
#include <vector>

#include "geometry/geometry_fixture.h"
#include "igs/shape/igsShape.h"

namespace igs_test {

/// Entities, each as "type:form fields", with blanks between them, and their shapes.
struct ShapedFile {
  explicit ShapedFile(const std::string& entities) { read_entities(file, entities); }

  igsShapeCurvePtr curve(int de) { return igsShapes(file).curve(file.entity(de)); }
  igsShapeSurfacePtr surface(int de) { return igsShapes(file).surface(file.entity(de)); }

  igsFile file;
};

/// The errors of a file, in the order of their letters, a blank before each value, numbers to five digits.
inline std::vector<std::string> rounded_errors(const igsFile& file) {
  struct Values : igsErrorValueVisitor {
    void value(int number) override { text << ' ' << number; }
    void value(double number) override { text << ' ' << std::setprecision(5) << number; }
    void value(const utString& words) override { text << ' ' << words; }
    std::ostringstream text;
  };
  std::vector<std::string> errors;
  for (const igsError* error : object_errors(file)) {
    Values values;
    error->visit_values(values);
    const int de = dynamic_cast<const igsIndexedError*>(error)->key();
    errors.push_back(error->objtype().id_string() + ' ' + std::to_string(de) + values.text.str());
  }
  std::sort(errors.begin(), errors.end());
  return errors;
}

inline void expect_near(const igsVec3& actual, const igsVec3& expected, double tolerance) {
  EXPECT_LE((actual - expected).length(), tolerance)
      << '(' << actual.x << ", " << actual.y << ", " << actual.z << ") is not (" << expected.x << ", " << expected.y
      << ", " << expected.z << ')';
}

}  // namespace igs_test
