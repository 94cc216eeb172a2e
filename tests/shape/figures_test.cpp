#include <gmock/gmock.h>

#include <numbers>
#include <sstream>

#include "shape/box_shell.h"
#include "shape/shape_fixture.h"

using namespace igs_test;

namespace {
constexpr double pi = std::numbers::pi;
const std::string at_origin = "116:0 0.,0.,0.,0 ";

/// Faces, edges, free edges and faces that could not be triangulated.
std::string counts(const igsShapeFigures& figures) {
  std::ostringstream text;
  text << figures.faces << ' ' << figures.edges << ' ' << figures.free_edges << ' ' << figures.unmeshed.size();
  return text.str();
}

void expect_box(const igsShapeFigures& figures, const igsVec3& low, const igsVec3& high, double tolerance) {
  expect_near(figures.box.low, low, tolerance);
  expect_near(figures.box.high, high, tolerance);
}

/// A bilinear patch from (x, 0, 0) to (x + 1, 1, 0); `turned`: u runs along y.
std::string patch(double x, bool turned) {
  std::ostringstream text;
  const auto point = [&](int i) {
    text << ',' << x + (i & (turned ? 2 : 1) ? 1 : 0) << ',' << (i & (turned ? 1 : 2) ? 1 : 0) << ",0.";
  };
  text << "128:0 1,1,1,1,0,0,1,0,0,0.,0.,1.,1.,0.,0.,1.,1.,1.,1.,1.,1.";
  for (int i = 0; i < 4; ++i) point(i);
  text << ",0.,1.,0.,1. ";
  return text.str();
}

TEST(ShapeFigures, ofASolidAndItsVoids) {
  const ShapedFile box("186:0 3,1,0 " + box_shell(3, {1, 2, 3}, {3, 5, 7}));
  const igsShapeFigures figures = igs_measure(box.file);
  EXPECT_EQ(counts(figures), "6 12 0 0");
  EXPECT_NEAR(figures.area, 52, 1e-10);
  EXPECT_NEAR(figures.volume.value_or(0), 24, 1e-10);
  EXPECT_NEAR(figures.edge_length, 36, 1e-10);
  expect_box(figures, {1, 2, 3}, {3, 5, 7}, 1e-12);
  ASSERT_EQ(figures.by_face.size(), 6U);
  EXPECT_EQ(figures.by_face[1].de, 7);
  EXPECT_NEAR(figures.by_face[1].area, 6, 1e-12);
  EXPECT_NEAR(figures.by_face[1].box.low.z, 7, 1e-12);

  const ShapedFile hollow("186:0 3,1,1,69,0 " + box_shell(3, {0, 0, 0}, {9, 9, 9}) +
                          box_shell(69, {1, 1, 1}, {2, 3, 4}));
  EXPECT_NEAR(igs_measure(hollow.file).volume.value_or(0), 729 - 6, 1e-9);
  EXPECT_EQ(counts(igs_measure(hollow.file, 3)), "12 24 0 0");

  const ShapedFile open("186:0 3,1,0 " + box_shell(3, {0, 0, 0}, {2, 3, 4}, 5));
  open.file.entity(15)->directory_entry().set_status_flags({1, 0, 0, 0});  // the face that is not in the shell
  EXPECT_EQ(counts(igs_measure(open.file)), "5 12 4 0");
  EXPECT_FALSE(igs_measure(open.file).volume);
}

TEST(ShapeFigures, instancesCountAsTheyArePlaced) {
  const ShapedFile placed("408:0 5,10.,0.,0.,-2. 408:0 5,0.,0.,0.,1. 308:0 0,1HA,1,7 186:0 9,1,0 " +
                          box_shell(9, {0, 0, 0}, {1, 1, 1}));
  const igsShapeFigures figures = igs_measure(placed.file);
  EXPECT_EQ(counts(figures), "12 24 0 0");
  EXPECT_NEAR(figures.area, 30, 1e-10);
  EXPECT_NEAR(figures.volume.value_or(0), 9, 1e-10);
  EXPECT_NEAR(figures.edge_length, 36, 1e-10);
  expect_box(figures, {0, -2, -2}, {10, 1, 1}, 1e-12);
}

TEST(ShapeFigures, looseFacesHaveEdgesOfTheirOwn) {
  for (const bool turned : {false, true}) {
    const ShapedFile two(patch(0, false) + patch(1, turned));
    const igsShapeFigures figures = igs_measure(two.file);
    EXPECT_EQ(counts(figures), "2 8 6 0") << turned;
    EXPECT_NEAR(figures.area, 2, 1e-12);
  }
  EXPECT_EQ(counts(igs_measure(ShapedFile(patch(0, false) + patch(1.1, false)).file)), "2 8 8 0");
  // Discs in a plane and on a cylinder's end, their circles begun at other places.
  const std::string disc = "108:1 0.,0.,1.,2.,";
  const ShapedFile discs(disc + "5,0.,0.,0.,0. " + disc +
                         "7,0.,0.,0.,0. 100:0 2.,1.,1.,4.,1.,4.,1. 100:0 2.,1.,1.,1.,4.,1.,4.");
  EXPECT_EQ(counts(igs_measure(discs.file)), "2 2 0 0");
  EXPECT_NEAR(igs_measure(discs.file).area, 18 * pi, 1e-6);
}

TEST(ShapeFigures, closedSurfacesHaveSeamsAndPoles) {
  const ShapedFile sphere("196:0 3,5. 116:0 1.,2.,3.,0");
  const igsShapeFigures figures = igs_measure(sphere.file);
  EXPECT_EQ(counts(figures), "1 1 0 0");
  EXPECT_NEAR(figures.area, 100 * pi, 1e-6);
  EXPECT_NEAR(figures.edge_length, 5 * pi, 1e-8);
  expect_box(figures, {-4, -3, -2}, {6, 7, 8}, 1e-7);
  const ShapedFile torus("198:0 3,5,4.,1. " + at_origin + "123:0 0.,.6,.8");
  EXPECT_EQ(counts(igs_measure(torus.file)), "1 2 0 0");
  EXPECT_NEAR(igs_measure(torus.file).area, 16 * pi * pi, 1e-5);
  const double y = 4 * .8 + 1, z = 4 * .6 + 1;
  expect_box(igs_measure(torus.file), {-5, -y, -z}, {5, y, z}, 1e-7);
}

TEST(ShapeFigures, curvesThatStandAlone) {
  const ShapedFile curves("100:0 1.,0.,0.,2.,0.,-2.,0. 110:0 0.,0.,0.,3.,0.,0. 116:0 9.,9.,9.,0");
  const igsShapeFigures figures = igs_measure(curves.file);
  EXPECT_EQ(counts(figures), "0 2 0 0");
  EXPECT_NEAR(figures.edge_length, 3 + 2 * pi, 1e-9);
  EXPECT_FALSE(figures.volume);
  expect_box(figures, {-2, 0, 0}, {3, 2, 1}, 1e-9);
  EXPECT_TRUE(igs_measure(ShapedFile(at_origin).file).box.is_empty());
}

TEST(ShapeFigures, facesWithoutASurfaceOrCurvesAreNamed) {
  const ShapedFile broken("144:0 0,1,0,5 144:0 0,1,0,0 142:0 0,0,0,7,2 110:0 0.,0.,0.,3.,4.,0.");
  const igsShapeFigures figures = igs_measure(broken.file);
  EXPECT_THAT(figures.unmeshed, testing::ElementsAre(1, 3));
  EXPECT_EQ(counts(figures), "2 1 1 2");
  EXPECT_EQ(figures.area, 0);
  expect_box(figures, {0, 0, 0}, {3, 4, 0}, 1e-12);
}
}  // namespace
