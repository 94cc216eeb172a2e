#include "igs/curves/igs124.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>

#include "geometry/geometry_fixture.h"
#include "igs/curves/igs116.h"
#include "igs/support/giVector.h"

namespace igs_test {
namespace {
/// The matrix whose rotation has these three columns, and the translation (1, 2, 3).
struct Matrix {
  double elements[4][4] = {{0, 0, 0, 1}, {0, 0, 0, 2}, {0, 0, 0, 3}, {0, 0, 0, 1}};
  Matrix(const giVector3& a, const giVector3& b, const giVector3& c) {
    for (int j = 0; const giVector3& column : {a, b, c}) {
      elements[0][j] = column.x();
      elements[1][j] = column.y();
      elements[2][j] = column.z();
      ++j;
    }
  }
};
Matrix diagonal(double a, double b, double c) { return {{a, 0, 0}, {0, b, 0}, {0, 0, c}}; }

igs124* make_matrix(const Matrix& matrix, int form) {
  auto* const entity = new igs124;
  entity->set_matrix(matrix.elements);
  entity->directory_entry().set_form_number(form);
  return entity;
}

TEST(Igs124, Checks) {
  using Found = std::vector<std::string>;
  Matrix not_homogeneous = diagonal(1, 1, 1), undefined = diagonal(1, 1, 1), not_a_number = diagonal(1, 1, 1);
  not_homogeneous.elements[3][3] = 1.0000001;
  undefined.elements[1][3] = -DBL_MAX;
  not_a_number.elements[0][0] = std::numeric_limits<double>::quiet_NaN();
  const double s = std::sqrt(0.5);
  const struct {
    const char* what;
    Matrix matrix;
    int form;
    Found found;
  } cases[] = {
      {"identity", diagonal(1, 1, 1), 0, {}},
      {"turned", {{s, s, 0}, {-s, s, 0}, {0, 0, 1}}, 0, {}},
      {"mirror of form 0", diagonal(1, 1, -1), 0, {"igs124InvalidRHS 1 -1"}},
      {"mirror of form 1", diagonal(1, 1, -1), 1, {}},
      {"identity of form 1", diagonal(1, 1, 1), 1, {"igs124InvalidLHS 1 1"}},
      {"form 2", diagonal(1, 1, -1), 2, {}},
      {"form 2, scaled", diagonal(1, 1, -4), 2, {"igs124InvalidUnitVectors 1"}},
      {"scaled", diagonal(2, 2, 2), 0, {"igs124InvalidRHS 1 8", "igs124InvalidUnitVectors 1"}},
      {"row 4", not_homogeneous, 0, {"igs124NotHomogenous 1 1.0000001"}},
      {"undefined translation", undefined, 0, {"igs124NoConstruct 1"}},
      {"not a number", not_a_number, 0, {"igs124NoConstruct 1"}},
      // The tolerances are 0.01 for the determinant and 0.1 for the columns.
      {"determinant within", diagonal(1.005, 1, 1), 0, {}},
      {"determinant beyond", diagonal(1.05, 1, 1), 0, {"igs124InvalidRHS 1 1.05"}},
      {"column beyond", diagonal(2, 0.5, 1), 0, {"igs124InvalidUnitVectors 1"}},
  };
  const Resource determinant_tolerance(kelTolMinValue, 0.01);
  const Resource unit_tolerance(kelTolRigidTransformDeterminant, 0.1);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    igsFile file;
    EXPECT_EQ(found_by_check(*make_matrix(c.matrix, c.form)), c.found);
  }
}

TEST(Igs124, Repairs) {
  enum { declines, repairs };
  const double near = 1 + 5e-5;  // within 100 x 1e-6 of 1
  const struct {
    const char* what;
    bool rigid;
    Matrix matrix;
    int form;
    int fix;
    int form_after;
    bool sound_after;
  } cases[] = {
      {"mirror", false, diagonal(1, 1, -1), 0, repairs, 1, true},
      {"no mirror", false, diagonal(1, 1, 1), 1, repairs, 0, true},
      {"flat", false, {{1, 0, 0}, {0, 1, 0}, {0, 1, 0}}, 0, declines, 0, false},
      {"flat, left", false, {{1, 0, 0}, {0, 1, 0}, {0, 1, 0}}, 1, declines, 1, false},
      {"sheared, nothing to change", false, {{1, 0, 0}, {0, 1, 0}, {0, 0.6, 0.8}}, 0, repairs, 0, false},
      {"scaled columns", false, diagonal(2, 0.5, 1), 0, declines, 0, false},
      {"rigid, mirror", true, diagonal(1, 1, -1), 0, repairs, 1, true},
      {"rigid, no mirror", true, diagonal(1, 1, 1), 1, repairs, 0, true},
      {"rigid, near 1", true, {{1, 0, 0}, {0, 1, 0}, {0, std::sqrt(2e-4), std::sqrt(1 - 2e-4)}}, 0, declines, 0, false},
      {"rigid, nearer 1", true, {{1, 0, 0}, {0, 1, 0}, {0, std::sqrt(1e-4), std::sqrt(1 - 1e-4)}}, 0, repairs, 0, true},
      {"rigid, near -1, left", true, {{1, 0, 0}, {0, 1, 0}, {0, 0.01, -std::sqrt(1 - 1e-4)}}, 1, repairs, 1, true},
      {"rigid, near -1, right", true, {{1, 0, 0}, {0.01, std::sqrt(1 - 1e-4), 0}, {0, 0, -1}}, 0, repairs, 1, true},
      {"rigid, sheared", true, {{1, 0, 0}, {0, 1, 0}, {0, 0.6, 0.8}}, 0, declines, 0, false},
      {"rigid, flat", true, {{1, 0, 0}, {0, 1, 0}, {0, 1, 0}}, 1, declines, 1, false},
      {"rigid, columns", true, diagonal(near, 1 / near, 1), 0, repairs, 0, true},
      {"rigid, columns of a mirror", true, diagonal(near, -1 / near, 1), 1, repairs, 1, true},
      {"rigid, columns of form 2", true, diagonal(near, near, 1), 2, declines, 2, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const Resource option(kelOptRigidTransforms, c.rigid);
    igsFile file;
    igs124* const entity = make_matrix(c.matrix, c.form);
    EXPECT_EQ(fix_the_fault(*entity), c.fix == repairs ? 1 : 0);
    EXPECT_EQ(entity->directory_entry().form_number(), c.form_after);
    EXPECT_EQ(found_by_check(*entity).empty(), c.sound_after);
    if (c.fix == declines || !c.rigid) {
      EXPECT_EQ(entity->transform(), giXform3(c.matrix.elements));
    }
    EXPECT_EQ(entity->transform().element(2, 3), 3);
  }
}

TEST(Igs124, RigidKeepsTheFirstColumnAndThePlaneOfTheFirstTwo) {
  igsFile file;
  igs124* const entity = make_matrix({{0, 2, 0}, {-3, 1, 0}, {5, 6, -7}}, 0);
  EXPECT_EQ(entity->make_rigid(true), 1);
  EXPECT_EQ(entity->transform(), giXform3(Matrix({0, 1, 0}, {-1, 0, 0}, {0, 0, -1}).elements));
  EXPECT_EQ(entity->make_rigid(false), 1);
  EXPECT_EQ(entity->transform(), giXform3(Matrix({0, 1, 0}, {-1, 0, 0}, {0, 0, 1}).elements));
  for (const Matrix& flat : {Matrix({0, 0, 0}, {0, 1, 0}, {0, 0, 1}), Matrix({0, 2, 0}, {0, 4, 0}, {0, 0, 1})}) {
    entity->set_matrix(flat.elements);
    EXPECT_EQ(entity->make_rigid(false), 0);
    EXPECT_EQ(entity->transform(), giXform3(flat.elements));
  }
}

TEST(Igs124, ScaledMatrixKeepsBothFaultsWithTheOption) {
  const Resource option(kelOptRigidTransforms, true);
  igsFile file;
  igs124* const entity = make_matrix(diagonal(2, 2, 2), 0);
  EXPECT_EQ(found_by_check(*entity).size(), 2U);
  for (igsError* error : object_errors(file)) EXPECT_EQ(error->fix(), 0);
  EXPECT_EQ(entity->transform(), giXform3(diagonal(2, 2, 2).elements));
}

TEST(Igs124, DirectoryCheckLooksAtMatrixStatusAndSubscriptOnly) {
  igsFile file;
  igs124* const entity = make_matrix(diagonal(1, 1, 1), 0);
  igs124* const own = make_matrix(diagonal(1, 1, -1), 0);
  igsDirectoryEntry& entry = entity->directory_entry();
  entry.set_line_font(igsLineFont(6));
  entry.set_colour(igsColour(9));
  entry.set_line_weight(-1);
  EXPECT_EQ(found_by_check(*entity), std::vector<std::string>());

  entry.set_status_flags({2, 0, 0, 0});
  entry.set_entity_subscript(-1);
  entry.set_matrix(own);
  const std::vector<std::string> with_faulty_matrix = found_by_check(*entity);
  ASSERT_EQ(with_faulty_matrix.size(), 4U);
  EXPECT_EQ(with_faulty_matrix[0], "igs124InvalidRHS 3 -1");
  EXPECT_EQ(with_faulty_matrix[1], "igsDEInvalidMatrixData 1");
  EXPECT_EQ(with_faulty_matrix[2].substr(0, 25), "igsDEInvalidStatusFlags 1");
  EXPECT_EQ(with_faulty_matrix[3].substr(0, 29), "igsDEInvalidEntitySubscript 1");
  EXPECT_EQ(static_cast<igsObjectError*>(object_errors(file)[1])->obj(), 3);

  igsFile other;
  igs124* const odd = make_matrix(diagonal(1, 1, 1), 0);
  odd->directory_entry().set_matrix(new igs116);
  EXPECT_EQ(found_by_check(*odd),
            (std::vector<std::string>{"igsDEInvalidMatrix 1", "igs116InvalidPoint 3", "igsDEInvalidMatrixData 1"}));

  igsFile third;
  igs124* const own_of_itself = make_matrix(diagonal(1, 1, 1), 0);
  own_of_itself->directory_entry().set_matrix(own_of_itself);
  EXPECT_EQ(found_by_check(*own_of_itself), std::vector<std::string>());
}

TEST(Igs124, ReadsWritesAndPrints) {
  IgesBuilder builder;
  builder.entity(124, 0, "0.,-1.,0.,10.123456789,1.,0.,0.,20.,0.,0.,1.");
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  const igs124& entity = entity_of<igs124>(file);
  double elements[4][4];
  entity.matrix(elements);
  EXPECT_EQ(elements[0][1], -1);
  EXPECT_EQ(elements[1][3], 20);
  EXPECT_EQ(elements[2][3], 0);
  EXPECT_EQ(elements[3][3], 1);
  const Resource precision(kelOptDoubleParametricPrecision, 4);
  EXPECT_EQ(written_data(file), "124,0.,-1.,0.,10.12,1.,0.,0.,20.,0.,0.,1.,0.;");
  EXPECT_EQ(printed_data(entity),
            "Transform = {\n\t(0, -1, 0, 10.123456789)\n\t(1, 0, 0, 20)\n\t(0, 0, 1, 0)\n\t(0, 0, 0, 1)\n}\n");
}
}  // namespace
}  // namespace igs_test
