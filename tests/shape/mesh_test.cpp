#include <array>
#include <map>
#include <numbers>
#include <ostream>

#include "igs/curves/igs124.h"
#include "shape/box_shell.h"
#include "shape/shape_fixture.h"

using namespace igs_test;

namespace {
constexpr double one_pi = std::numbers::pi;
constexpr igsShapeTolerance coarse{0.05, 0.5}, fine{0.005, 0.1};

/// The sum of the faces of a file.
struct Meshed {
  Meshed(const igsFile& file, const igsShapeTolerance& tolerance) : meshes(igs_meshes(igsShapeModel(file), tolerance)) {
    for (const igsShapeMesh& mesh : meshes) {
      EXPECT_TRUE(mesh.is_complete);
      area += mesh.area;
      volume += mesh.volume;
      for (const std::array<int, 3>& corners : mesh.triangles) add(mesh, corners);
    }
  }

  void add(const igsShapeMesh& mesh, const std::array<int, 3>& corners) {
    const auto at = [&](std::size_t i) { return static_cast<std::size_t>(corners[i % 3]); };
    const igsVec3 a = mesh.points[at(0)];
    const igsVec3 across = (mesh.points[at(1)] - a).cross(mesh.points[at(2)] - a);
    area_of_triangles += across.length() / 2;
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_NEAR(mesh.normals[at(i)].length(), 1, 1e-9);
      if (across.dot(mesh.normals[at(i)]) < 0) area_turned += across.length() / 2;
      const igsVec3 from = mesh.points[at(i)], to = mesh.points[at(i + 1)];
      ++sides[{from.x, from.y, from.z, to.x, to.y, to.z}];
    }
  }

  /// True when every side of a triangle is that of one other in the other direction.
  bool is_closed() const {
    for (const auto& [side, count] : sides) {
      const auto back = sides.find({side[3], side[4], side[5], side[0], side[1], side[2]});
      if (count != 1 || back == sides.end()) return false;
    }
    return !sides.empty();
  }

  std::vector<igsShapeMesh> meshes;
  double area = 0, volume = 0, area_of_triangles = 0, area_turned = 0;
  std::map<std::array<double, 6>, int> sides;
};

const std::string origin_and_z = "116:0 0.,0.,0.,0 123:0 0.,0.,1. ";
const std::string circle_and_square =
    "106:12 2,5,0.,0.,0.,4.,0.,0.,4.,4.,0.,0.,4.,0.,0.,0.,0. 100:0 0.,2.,2.,3.,2.,3.,2. ";
const std::string plane_with_hole = "190:0 11,13 142:0 0,3,0,7,2 ";
const std::string saddle =
    "128:0 1,1,1,1,0,0,1,0,0,0.,0.,1.,1.,0.,0.,1.,1.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1.,0.,1.,1.,1.,0.,1.,0.,1. ";
const std::string two_rings = "141:0 0,1,3,1,9,1,0 141:0 0,1,3,1,11,1,0 ";

/// The area of z = xy over a circle about (0.5, 0.5), summed up in rings.
double saddle_in_circle(double radius) {
  constexpr int rings = 400, parts = 400;
  double sum = 0;
  for (int i = 0; i < rings; ++i) {
    const double r = radius * (i + 0.5) / rings;
    for (int k = 0; k < parts; ++k) {
      const double x = 0.5 + r * std::cos(2 * one_pi * k / parts), y = 0.5 + r * std::sin(2 * one_pi * k / parts);
      sum += std::sqrt(1 + x * x + y * y) * r;
    }
  }
  return sum * radius / rings * 2 * one_pi / parts;
}

/// Holes around a tube so close to each other that no straight line goes from end to end between them.
std::string tube_with_holes() {
  constexpr int count = 30;
  std::string face = "144:0 3,0," + std::to_string(count) + ",0", holes;
  for (int i = 0; i < count; ++i) {
    const int de = 9 + 4 * i;
    const std::string angle = std::to_string(2 * one_pi * i / count);
    face += ',' + std::to_string(de);
    holes +=
        "142:0 0,3," + std::to_string(de + 2) + ",0,1 100:0 0.,0.5," + angle + ",0.6," + angle + ",0.6," + angle + ' ';
  }
  return face + " 120:0 5,7,0.,6.283185307179586 110:0 0.,0.,0.,0.,0.,1. 110:0 1.,0.,0.,1.,0.,4. " + holes;
}

struct MeshCase {
  const char* name;
  std::string entities;
  double area;
};
std::ostream& operator<<(std::ostream& os, const MeshCase& face) { return os << face.name; }

const MeshCase faces[] = {
    {"plane_with_hole", "144:0 3,1,1,5,15 " + plane_with_hole + circle_and_square + origin_and_z + "142:0 0,3,0,9,2",
     16 - one_pi},
    {"inner_and_outer_confused",
     "144:0 3,1,1,15,5 " + plane_with_hole + circle_and_square + origin_and_z + "142:0 0,3,0,9,2", 16 - one_pi},
    {"members_run_backwards",
     "144:0 3,1,0,5 190:0 17,19 142:0 0,3,0,7,2 102:0 4,9,11,13,15 110:0 0.,0.,0.,4.,0.,0. 110:0 4.,3.,0.,4.,0.,0. "
     "110:0 0.,3.,0.,4.,3.,0. 110:0 0.,3.,0.,0.,0.,0. " +
         origin_and_z,
     12},
    {"band_of_a_cylinder",
     "143:0 0,3,2,5,7 192:0 13,15,2. " + two_rings + "100:0 0.,0.,0.,2.,0.,2.,0. 100:0 3.,0.,0.,0.,2.,0.,2. " +
         origin_and_z,
     12 * one_pi},
    {"cap_of_a_sphere", "143:0 0,3,1,5 196:0 9,5. 141:0 0,1,3,1,7,1,0 100:0 4.,0.,0.,3.,0.,3.,0. " + origin_and_z,
     10 * one_pi},
    {"rest_of_a_sphere", "143:0 0,3,1,5 196:0 9,5. 141:0 0,1,3,1,7,2,0 100:0 4.,0.,0.,3.,0.,3.,0. " + origin_and_z,
     90 * one_pi},
    {"cone_to_its_apex",
     "143:0 0,3,1,5 194:0 9,11,3.,45. 141:0 0,1,3,1,7,1,0 100:0 0.,0.,0.,3.,0.,3.,0. " + origin_and_z,
     9 * std::numbers::sqrt2* one_pi},
    {"torus", "198:0 3,5,5.,2. " + origin_and_z, 40 * one_pi* one_pi},
    {"spline_in_parameter_space", "144:0 3,1,0,5 " + saddle + "142:0 0,3,7,0,1 100:0 0.,0.5,0.5,0.9,0.5,0.9,0.5",
     saddle_in_circle(0.4)},
    {"both_spaces_the_other_way_round",
     "144:0 3,1,0,5 " + saddle +
         "142:0 0,3,7,9,2 110:0 0.,0.,0.,1.,0.,0. 102:0 4,17,15,13,11 "
         "110:0 0.,0.,0.,1.,0.,0. 110:0 1.,0.,0.,1.,1.,1. 110:0 1.,1.,1.,0.,1.,0. 110:0 0.,1.,0.,0.,0.,0.",
     1.280789271},
    {"tube_with_holes_over_its_seam", tube_with_holes(), 8 * one_pi - 30 * 4 * 0.01 * one_pi},
};

class Faces : public testing::TestWithParam<MeshCase> {};
INSTANTIATE_TEST_SUITE_P(Mesh, Faces, testing::ValuesIn(faces),
                         [](const testing::TestParamInfo<MeshCase>& info) { return std::string(info.param.name); });

TEST_P(Faces, haveTheirAreaHoweverFineTheTriangles) {
  const ShapedFile shape(GetParam().entities);
  for (const igsShapeTolerance& tolerance : {coarse, fine}) {
    const Meshed all(shape.file, tolerance);
    ASSERT_EQ(all.meshes.size(), 1U);
    EXPECT_NEAR(all.area, GetParam().area, 2e-6 * GetParam().area);
    EXPECT_NEAR(all.area_of_triangles, all.area, (tolerance.chord == coarse.chord ? 0.06 : 0.006) * all.area);
    EXPECT_LE(all.area_turned, 2e-4 * all.area);  // beside poles
  }
}

TEST(Mesh, facesOfASolidMeetWithoutCracks) {
  const std::string cylinder =
      "514:1 3,3,1,5,1,7,0 510:1 9,1,1,15 510:1 11,1,1,17 510:1 13,1,1,19 192:0 21,23,2. 190:0 25,23 190:0 21,23 "
      "508:1 4,0,27,1,1,0,0,27,3,1,0,0,27,2,0,0,0,27,3,0,0 508:1 1,0,27,2,1,0 508:1 1,0,27,1,0,0 "
      "116:0 0.,0.,0.,0 123:0 0.,0.,1. 116:0 0.,0.,3.,0 504:1 3,29,35,1,35,1,31,35,2,35,2,33,35,1,35,2 "
      "100:0 0.,0.,0.,2.,0.,2.,0. 100:0 3.,0.,0.,2.,0.,2.,0. 110:0 2.,0.,0.,2.,0.,3. 502:1 2,2.,0.,0.,2.,0.,3.";
  const std::string sphere =
      "514:1 1,3,1 510:1 5,1,1,7 196:1 9,5.,11,13 508:1 2,0,15,1,1,0,0,15,1,0,0 116:0 0.,0.,0.,0 123:0 1.,0.,0. "
      "123:0 0.,1.,0. 504:1 1,17,19,1,19,2 100:0 0.,0.,0.,-5.,0.,5.,0. 502:1 2,-5.,0.,0.,5.,0.,0.";
  const struct {
    const std::string entities;
    double area, volume;
  } solids[] = {{"186:0 3,1,0 " + box_shell(3, {1, 2, 3}, {2, 4, 6}), 22, 6},
                {cylinder, 20 * one_pi, 12 * one_pi},
                {sphere, 100 * one_pi, 500 * one_pi / 3}};
  for (const auto& solid : solids) {
    const ShapedFile shape(solid.entities);
    for (const igsShapeTolerance& tolerance : {coarse, fine}) {
      const Meshed all(shape.file, tolerance);
      EXPECT_NEAR(all.area, solid.area, 1e-6 * solid.area);
      EXPECT_NEAR(all.volume, solid.volume, 1e-6 * solid.volume);
      EXPECT_TRUE(all.is_closed()) << solid.entities;
      EXPECT_EQ(all.area_turned, 0);
    }
  }
}

TEST(Mesh, aMirroredSolidKeepsItsVolume) {
  ShapedFile shape("186:0 3,1,0 " + box_shell(3, {1, 2, 3}, {2, 4, 6}) + "124:0 -2.,0.,0.,10.,0.,1.,0.,0.,0.,0.,1.,0.");
  shape.file.entity(1)->directory_entry().set_matrix(igsObjectPtr(shape.file.entity(3 + box_shell_size)));
  const Meshed all(shape.file, coarse);
  EXPECT_NEAR(all.volume, 12, 1e-9);
  EXPECT_TRUE(all.is_closed());
  EXPECT_EQ(all.area_turned, 0);
}

TEST(Mesh, threadsMakeNoDifference) {
  const ShapedFile shape("186:0 3,1,0 " + box_shell(3, {1, 2, 3}, {2, 4, 6}));
  const igsShapeModel model(shape.file);
  const auto one = igs_meshes(model, fine, 1), three = igs_meshes(model, fine, 3);
  ASSERT_EQ(one.size(), three.size());
  for (std::size_t i = 0; i < one.size(); ++i) EXPECT_EQ(one[i].points, three[i].points);
  constexpr std::size_t of_a_box = 12;
  EXPECT_EQ(igs_meshes(model, fine, 2, false, of_a_box).size(), one.size());
  EXPECT_TRUE(igs_meshes(model, fine, 2, false, of_a_box - 1).empty());
}

TEST(Mesh, brokenLoopsDoNoHarm) {
  const std::string head = "144:0 3,1,0,5 190:0 9,11 142:0 0,3,0,7,2 ", tail = " " + origin_and_z;
  const std::string loops[] = {
      "106:12 2,2,1.,1.,0.,1.,1.,0.",
      "106:12 2,3,0.,0.,0.,4.,0.,0.,0.,0.,0.",
      "106:12 2,5,0.,0.,0.,4.,4.,0.,4.,0.,0.,0.,4.,0.,0.,0.,0.",
      "106:12 2,4,0.,0.,0.,1D300,0.,0.,1D300,1D300,0.,0.,0.,0.",
      "106:12 2,4,0.,0.,0.,1D-300,0.,0.,0.,1D-300,0.,0.,0.,0.",
      "106:12 2,4,0.,0.,9.,4.,0.,-7.,4.,4.,80.,0.,0.,9.",
      "110:0 0.,0.,0.,1.,1.,0.",
      "100:0 0.,0.,0.,0.,0.,0.,0.",
      "116:0 0.,0.,0.,0",
  };
  for (const std::string& loop : loops) {
    const ShapedFile shape(head + loop + tail);
    for (const igsShapeMesh& mesh : igs_meshes(igsShapeModel(shape.file), coarse)) {
      EXPECT_TRUE(std::isfinite(mesh.area) || !mesh.is_complete) << loop;
      EXPECT_EQ(mesh.is_complete, !mesh.triangles.empty()) << loop;
      EXPECT_LT(mesh.triangles.size(), coarse.most) << loop;
    }
  }
  const ShapedFile figure_eight(head + loops[2] + tail);
  EXPECT_NEAR(Meshed(figure_eight.file, coarse).area, 8, 1e-6);
}

TEST(Mesh, aNarrowFaceHasItsAreaThoughItsLinesCross) {
  // Between two arcs of 200 by 0.2, which lines of a chord tolerance of 1 do not keep apart.
  const ShapedFile shape(
      "144:0 3,1,0,5 190:0 15,17 142:0 0,3,0,7,2 102:0 3,9,11,13 100:0 0.,0.,0.,100.,0.,28.,96. "
      "100:0 0.,0.,0.,28.,96.,-100.,0. 104:1 1.,0.,1.004,0.,0.,-10000.,0.,100.,0.,-100.,0. " +
      origin_and_z);
  const Meshed all(shape.file, {1, 0.35});
  EXPECT_NEAR(all.area, one_pi / 2 * 100 * (100 - 100 / std::sqrt(1.004)), 0.05);
}
}  // namespace
