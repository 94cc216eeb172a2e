#include "igs/surfaces/igs108.h"

#include <gtest/gtest.h>

#include "geometry/geometry_fixture.h"

namespace igs_test {
namespace {
using Found = std::vector<std::string>;

/// A file with a plane, DE 1, and what its boundary may be.
struct Plane {
  Plane(int form, const std::string& data) {
    IgesBuilder builder;
    builder.entity(108, form, data);
    builder.line();                                                 // 3: a curve
    builder.entity(102, 0, "0");                                    // 5: a curve with a fault
    builder.entity(106, 2, "2,2,0.,0.,0.,1.,0.,0.");                // 7: a point set
    builder.entity(124, 0, "1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0.");  // 9: no curve
    builder.entity(102, 0, "1,1");                                  // 11: a curve that refers back to the plane
    read = read_text(file, builder.text());
  }
  const igs108& plane() const { return entity_of<igs108>(file); }
  /// What a check of the plane finds in the plane itself.
  Found found() const {
    Found own;
    for (const std::string& error : found_by_check(plane())) {
      if (error.find(" 1") != std::string::npos && error.rfind("igs108", 0) == 0) own.push_back(error);
    }
    return own;
  }

  igsFile file;
  int read;
};

TEST(Igs108, ChecksAndRepairs) {
  const struct {
    int form;
    const char* data;
    Found found;
    const char* repaired;
    Found left;
  } cases[] = {
      {0, "0.,0.,1.,5.,0,1.,2.,3.,4.", {}, "108,0.,0.,1.,5.,0,1.,2.,3.,4.;", {}},
      {0, "0.,0.,1.,5.", {}, "108,0.,0.,1.,5.,0,0.,0.,0.,0.;", {}},
      {1, "0.,0.,1.,5.,3", {}, "108,0.,0.,1.,5.,3,0.,0.,0.,0.;", {}},
      {-1, "0.,0.,1.,5.,3,,,,", {}, "108,0.,0.,1.,5.,3,0.,0.,0.,0.;", {}},
      {0, "0.,5.D-7,0.,5.", {"igs108ZeroNormal 1"}, "108,0.,5.D-07,0.,5.,0,0.,0.,0.,0.;", {"igs108ZeroNormal 1"}},
      {0, "0.,2.D-6,0.,5.", {}, "108,0.,2.D-06,0.,5.,0,0.,0.,0.,0.;", {}},
      {0, "1.,0.,0.,5.,0,0.,0.,0.,-2.", {"igs108InvalidSymbolSize 1 -2"}, "108,1.,0.,0.,5.,0,0.,0.,0.,0.;", {}},
      // A boundary where there should be none: kept when it is good for something.
      {0, "1.,0.,0.,5.,3", {"igs108UnexpectedBoundary 1"}, "108,1.,0.,0.,5.,3,0.,0.,0.,0.;", {}},
      {0, "1.,0.,0.,5.,5", {"igs108UnexpectedBoundary 1"}, "108,1.,0.,0.,5.,0,0.,0.,0.,0.;", {}},
      {0, "1.,0.,0.,5.,7", {"igs108UnexpectedBoundary 1"}, "108,1.,0.,0.,5.,0,0.,0.,0.,0.;", {}},
      {0, "1.,0.,0.,5.,1", {"igs108UnexpectedBoundary 1"}, "108,1.,0.,0.,5.,0,0.,0.,0.,0.;", {}},
      {0, "1.,0.,0.,5.,11", {"igs108UnexpectedBoundary 1"}, "108,1.,0.,0.,5.,0,0.,0.,0.,0.;", {}},
      // None, or the wrong one, where there should be one.
      {1, "1.,0.,0.,5.,0", {"igs108NullBoundary 1"}, "108,1.,0.,0.,5.,0,0.,0.,0.,0.;", {"igs108NullBoundary 1"}},
      {-1, "1.,0.,0.,5.,99", {"igs108NullBoundary 1"}, "108,1.,0.,0.,5.,0,0.,0.,0.,0.;", {"igs108NullBoundary 1"}},
      {1, "1.,0.,0.,5.,7", {"igs108WrongBoundaryType 1"}, "108,1.,0.,0.,5.,7,0.,0.,0.,0.;", {}},
      {1,
       "1.,0.,0.,5.,9",
       {"igs108WrongBoundaryType 1"},
       "108,1.,0.,0.,5.,9,0.,0.,0.,0.;",
       {"igs108WrongBoundaryType 1"}},
      {-1,
       "1.,0.,0.,5.,1",
       {"igs108WrongBoundaryType 1"},
       "108,1.,0.,0.,5.,1,0.,0.,0.,0.;",
       {"igs108WrongBoundaryType 1"}},
      {1, "1.,0.,0.,5.,5", {"igs108InvalidBoundary 1"}, "108,1.,0.,0.,5.,5,0.,0.,0.,0.;", {"igs108InvalidBoundary 1"}},
      {1,
       "1.,0.,0.,5.,11",
       {"igs108InvalidBoundary 1"},
       "108,1.,0.,0.,5.,11,0.,0.,0.,0.;",
       {"igs108InvalidBoundary 1"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.form) + ": " + c.data);
    Plane plane(c.form, c.data);
    ASSERT_EQ(plane.read, 1);
    EXPECT_EQ(plane.found(), c.found);
    plane.file.clean(0);
    EXPECT_EQ(plane.plane().num_logged_errors(), static_cast<int>(c.left.size()));
    EXPECT_EQ(plane.found(), c.left);
    EXPECT_EQ(written_data(plane.file), c.repaired);
  }
}

TEST(Igs108, AKeptBoundarySetsTheForm) {
  Plane plane(0, "1.,0.,0.,5.,3");
  plane.file.clean(0);
  EXPECT_EQ(plane.plane().directory_entry().form_number(), 1);
  EXPECT_EQ(plane.plane().boundary().de_number(), 3);
}

TEST(Igs108, AHostsPlaneLacksItsCoefficientsAlone) {
  igsFile file;
  igs108* const plane = new igs108;
  EXPECT_EQ(found_by_check(*plane), Found{"igs108InvalidCoefficients 1"});
  plane->set_coefficients(0, 0, 1, undefined_real);
  EXPECT_EQ(fix_the_fault(*plane), 0);
  plane->set_coefficients(0, 3, 4, 5);
  plane->set_symbol_location(giPoint3(1, 2, 3));
  plane->set_symbol_size(6);
  EXPECT_EQ(plane->check(), 1);
  EXPECT_EQ(printed_data(*plane),
            "A = 0\nB = 3\nC = 4\nD = 5\nBoundary = {\n\t(NullPointer)\n}\nSymbolLocation = (1, 2, 3)\n"
            "SymbolSize = 6\n");
}
}  // namespace
}  // namespace igs_test
