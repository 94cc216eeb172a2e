#include "igs/curves/igs100.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>

#include "geometry/geometry_fixture.h"

namespace igs_test {
namespace {
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

igs100* make_arc(const giPoint2& centre, const giPoint2& start, const giPoint2& end, double z_level = 0) {
  auto* const arc = new igs100;
  arc->set_centre(centre);
  arc->set_start_point(start);
  arc->set_end_point(end);
  arc->set_z_level(z_level);
  return arc;
}

TEST(Igs100, Checks) {
  const giPoint2 none;
  const std::vector<std::string> sound, no_construct{"igs100NoConstruct 1"}, zero_radius{"igs100ZeroRadius 1"},
      inconsistent{"igs100InconsistRad 1"};
  const struct {
    giPoint2 centre, start, end;
    double z_level;
    std::vector<std::string> found;
  } cases[] = {
      {{0, 0}, {1, 0}, {0, 1}, 0, sound},
      {{0, 0}, {1, 0}, {1, 0}, 0, sound},
      {none, {1, 0}, {0, 1}, 0, no_construct},
      {{0, 0}, none, {0, 1}, 0, no_construct},
      {{0, 0}, {1, 0}, {0, DBL_MAX}, 0, no_construct},
      {{0, 0}, {1, 0}, {0, 1}, -DBL_MAX, no_construct},
      {{0, 0}, {1, 0}, {0, 1}, DBL_MAX, sound},
      {{2, 3}, {2, 3}, {2, 3}, 0, zero_radius},
      {{nan, 0}, {1, 0}, {0, 1}, 0, zero_radius},
      {{0, 0}, {1, 0}, {0, 1.1}, 0, inconsistent},  // 0.1 / 2.1 = 0.0476
      {{0, 0}, {1, 0}, {0, 1.09}, 0, sound},        // 0.09 / 2.09 = 0.0431, which is not above 0.0474
      {{0, 0}, {0, 0}, {0, 1}, 0, inconsistent},
      {{0, 0}, {infinity, 0}, {0, 1}, 0, sound},
  };
  const Resource tolerance(kelTolRadiusDiff, 0.0474);
  for (const auto& c : cases) {
    SCOPED_TRACE(printed(c.centre) + printed(c.start) + printed(c.end));
    igsFile file;
    EXPECT_EQ(found_by_check(*make_arc(c.centre, c.start, c.end, c.z_level)), c.found);
    if (c.found == no_construct || c.found == zero_radius) {
      EXPECT_EQ(object_errors(file).front()->fix(), 0);
    }
  }
}

TEST(Igs100, SettersAndText) {
  IgesBuilder builder;
  builder.entity(100, 0, "5.,0.,0.,1.,0.,0.,1.");
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  igs100& arc = entity_of<igs100>(file);
  EXPECT_EQ(printed_data(arc), "ZLevel = 5\nCentre = (0, 0)\nStartPoint = (1, 0)\nEndPoint = (0, 1)\n");
  EXPECT_EQ(arc.set_centre(giPoint2(DBL_MAX, 0)), 0);
  EXPECT_EQ(arc.centre(), giPoint2(0, 0));
  EXPECT_EQ(arc.set_centre(giPoint2(0.5, -1)), 1);
  giPoint2 start, end;
  arc.end_points(start, end);
  EXPECT_EQ(start, giPoint2(1, 0));
  EXPECT_EQ(end, giPoint2(0, 1));
  EXPECT_EQ(written_data(file), "100,5.,0.5,-1.,1.,0.,0.,1.;");
}

TEST(Igs100, RecentringPutsBothEndsOnOneCircle) {
  const struct {
    const char* what;
    giPoint2 centre, start, end, expected;
  } cases[] = {
      // R = 7.285, half chord 5: the centre is 5.298 away from the chord, on the old centre's side of it.
      {"oblique", {-5, 2}, {-3, -4}, {3, 4}, {-4.239, 3.179}},
      {"above", {0.5, 4}, {-3, 0}, {3, 0}, {0, 4.01}},
      {"below", {0.5, -4}, {-3, 0}, {3, 0}, {0, -4.01}},
      // r1 = 1, r2 = 1.5, the centre between them: R is half the chord.
      {"chord of 2R", {0, 0}, {1, 0}, {-1.5, 0}, {-0.25, 0}},
      // The old centre lies on the chord's line, equally near to both: d = (0, 1), n = (-1, 0), R = 2, s = sqrt(3).
      {"tie", {0, 3}, {0, 0}, {0, 2}, {-std::sqrt(3.), 1}},
      {"tie, ends exchanged", {0, 3}, {0, 2}, {0, 0}, {std::sqrt(3.), 1}},
      {"large", {0, 3e200}, {0, 0}, {0, 2e200}, {-std::sqrt(3.) * 1e200, 1e200}},
      {"small", {0, 3e-200}, {0, 0}, {0, 2e-200}, {-std::sqrt(3.) * 1e-200, 1e-200}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    igsFile file;
    igs100* const arc = make_arc(c.centre, c.start, c.end, 7);
    ASSERT_EQ(fix_the_fault(*arc), 1);
    const double radius = (c.centre.distance(c.start) + c.centre.distance(c.end)) / 2;
    EXPECT_NEAR(arc->centre().distance(c.start) / radius, 1, 1e-12);
    EXPECT_NEAR(arc->centre().distance(c.end) / radius, 1, 1e-12);
    EXPECT_LT(arc->centre().distance(c.expected) / radius, 1e-2);
    EXPECT_EQ(arc->start_point(), c.start);
    EXPECT_EQ(arc->end_point(), c.end);
    EXPECT_EQ(arc->z_level(), 7);
    EXPECT_EQ(found_by_check(*arc), std::vector<std::string>());
  }
}

TEST(Igs100, RecentringDeclinesWhereThereIsNoBisector) {
  const struct {
    giPoint2 start, end;
  } cases[] = {
      {{1, 0}, {1, 0}}, {{1, 0}, {nan, 0}}, {{-infinity, 0}, {infinity, 0}}, {{0.9 * DBL_MAX, 0.9 * DBL_MAX}, {1, 0}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(printed(c.start) + printed(c.end));
    igsFile file;
    igs100* const arc = make_arc({0, 0}, {1, 0}, {2, 0});
    arc->check();
    arc->set_start_point(c.start);  // after the check found the radii to differ
    arc->set_end_point(c.end);
    EXPECT_EQ(object_errors(file).front()->fix(), 0);
    EXPECT_EQ(arc->centre(), giPoint2(0, 0));
  }
}
}  // namespace
}  // namespace igs_test
