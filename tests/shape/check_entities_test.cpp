#include <algorithm>
#include <cmath>

#include "shape/shape_fixture.h"

using namespace igs_test;

namespace {
using Points = std::vector<igsVec3>;

std::string text_of(double number) {
  std::ostringstream text;
  text << std::showpoint << std::setprecision(15) << number;
  return text.str();
}

std::string list_of(const std::vector<double>& numbers) {
  std::string text;
  for (const double number : numbers) text += text_of(number) + ',';
  return text;
}

std::string list_of(const Points& points) {
  std::string text;
  for (const igsVec3& point : points) text += list_of({point.x, point.y, point.z});
  return text;
}

std::string line(const igsVec3& from, const igsVec3& to) {
  return "110:0 " + list_of({from.x, from.y, from.z, to.x, to.y}) + text_of(to.z) + ' ';
}

/// All weights are 1.
std::string curve(std::size_t degree, const std::vector<double>& knots, const Points& points) {
  return "126:0 " + std::to_string(points.size() - 1) + ',' + std::to_string(degree) + ",0,0,1,0," + list_of(knots) +
         list_of(std::vector<double>(points.size(), 1)) + list_of(points) + list_of({knots.front(), knots.back()}) +
         "0.,0.,1. ";
}

/// Knots that stand at both ends as often as the order says, and once at 1, 2, ... between them.
std::vector<double> even_knots(int degree, int count) {
  std::vector<double> knots;
  for (int i = 0; i <= count + degree; ++i) knots.push_back(std::clamp(i - degree, 0, count - degree));
  return knots;
}

/// u is x and v is y, times 10, unless the points are moved.
struct Surface {
  Surface(int degree, int count) : u(even_knots(degree, count)), v(u), m_degree(degree), m_count(count) {
    for (int j = 0; j < count; ++j) {
      for (int i = 0; i < count; ++i) points.push_back({10.0 * i, 10.0 * j, 0});
    }
  }
  igsVec3& point(int i, int j) { return points[static_cast<std::size_t>(j * m_count + i)]; }
  std::string text() const {
    const std::string count = std::to_string(m_count - 1) + ',', degree = std::to_string(m_degree) + ',';
    return "128:0 " + count + count + degree + degree + "0,0,1,0,0," + list_of(u) + list_of(v) +
           list_of(std::vector<double>(points.size(), 1)) + list_of(points) +
           list_of({u.front(), u.back(), v.front()}) + text_of(v.back()) + ' ';
  }

  std::vector<double> u, v;
  Points points;

 private:
  int m_degree, m_count;
};

/// What is found, but that loose faces have no neighbours.
std::vector<std::string> found(const std::string& entities, const igsShapeCheckOptions& options = {}) {
  ShapedFile shaped(entities);
  const int number = igsShapeCheck(shaped.file, options);
  std::vector<std::string> found = active_errors(shaped.file);
  EXPECT_EQ(static_cast<std::size_t>(number), found.size());
  std::erase_if(found, [](const std::string& error) { return error.starts_with("igsShapeFreeBoundary"); });
  return found;
}

/// A line far from everything else, which makes the model 1000 in size and the tolerance 0.01.
const std::string far_line = line({0, 0, 500}, {0, 900, 500});

struct Case {
  const char* name;
  std::string entities;
  std::vector<std::string> expected;
};

void expect_all(const std::vector<Case>& cases) {
  for (const Case& one : cases) {
    SCOPED_TRACE(one.name);
    EXPECT_EQ(found(one.entities + far_line), one.expected);
  }
}

TEST(EntityChecks, splinesThatTurnOrBreakAreReported) {
  const Points arch{{0, 0, 0}, {10, 10, 0}, {20, 10, 0}, {30, 0, 0}, {40, 0, 0}, {50, 5, 0}};
  const std::vector<double> broken{0, 0, 0, 1, 1, 1, 2, 2, 2}, bent{0, 0, 0, 1, 1, 2, 2, 2};
  const Points straight{{0, 0, 0}, {10, 0, 0}, {20, 0, 0}, {20, 0, 0}, {30, 0, 0}, {40, 0, 0}};
  const Points gaping{{0, 0, 0}, {10, 0, 0}, {20, 0, 0}, {20.5, 0, 0}, {30, 0, 0}, {40, 0, 0}};
  const Points corner{{0, 0, 0}, {10, 0, 0}, {20, 0, 0}, {20, 10, 0}, {20, 20, 0}};
  const Points still{{0, 0, 0}, {10, 0, 0}, {20, 0, 0}, {20, 0, 0}, {20, 0, 0}, {40, 0, 0}};
  const Points ten{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0},
                   {5, 0, 0}, {6, 0, 0}, {7, 0, 0}, {8, 0, 0}, {9, 1, 0}};
  const std::string segments = "112:0 3,0,3,2,0.,1.,2.,";
  const std::string along = "0.,10.,0.,0.,0.,0.,1.,0.,0.,0.,0.,0.,", onward = "10.,10.,0.,0.,1.,2.,1.,0.,0.,0.,0.,0.,",
                    aside = "10.,0.,0.,0.,1.25,10.,1.,0.,0.,0.,0.,0.,", end = "0.,0.,0.,0.,0.,0.,0.,0.,0.,0.,0.,0. ";
  expect_all({
      {"sound", curve(3, even_knots(3, 6), arch), {}},
      {"three knots of a parabola", curve(2, broken, straight), {"igsShapeKnotMultiplicity 1 0,1,3,2"}},
      {"gap", curve(2, broken, gaping), {"igsShapeKnotMultiplicity 1 0,1,3,2", "igsShapeSplineGap 1 0.5,0.01,0,1"}},
      {"kink", curve(2, bent, corner), {"igsShapeKink 1 0,1.5707963267949,0.0523598775598299,1"}},
      {"polyline", curve(1, even_knots(1, 6), arch), {}},
      {"high degree", curve(9, even_knots(9, 10), ten), {"igsShapeHighDegree 1 0,9,8"}},
      {"close knots",
       curve(2, {0, 0, 0, 1, 1 + 1e-9, 2, 2, 2}, {{0, 0, 0}, {10, 0, 0}, {20, 5, 0}, {30, 10, 0}, {40, 0, 0}}),
       {"igsShapeShortSpan 1 0,3,1.00000008274037e-09,2"}},
      {"span that stands still", curve(2, even_knots(2, 6), still), {"igsShapeCoincidentPoles 1 0,2,0"}},
      {"segments that follow each other", segments + along + onward + end, {}},
      {"segments with a gap and a corner", segments + along + aside + end, {"igsShapeSplineGap 1 0.25,0.01,0,1"}},
  });
}

TEST(EntityChecks, surfacesThatFoldOrDegenerateAreReported) {
  Surface folded(2, 4), collapsed(1, 2), bent(2, 5), gaping(1, 4), short_side(1, 2), pole(1, 2), still(2, 4),
      wavy(3, 8);
  std::swap(folded.point(1, 1), folded.point(2, 1));
  folded.point(1, 1).x += 25;
  collapsed.points = {{0, 0, 0}, {10, 0, 0}, {20, 0, 0}, {30, 0, 0}};
  bent.u = {0, 0, 0, 1, 1, 2, 2, 2};
  gaping.u = {0, 0, 1, 1, 2, 2};
  short_side.point(1, 1) = {0.004, 10, 0};
  pole.point(1, 1) = pole.point(0, 1);
  for (int j = 0; j < 5; ++j) {
    for (int i = 3; i < 5; ++i) bent.point(i, j).z = 10.0 * (i - 2);
  }
  still.point(1, 1) = still.point(2, 1) = still.point(0, 1);
  for (igsVec3& point : wavy.points) point.z = 5 * std::sin(point.x) * std::cos(point.y);
  expect_all({
      {"sound", Surface(3, 6).text(), {}},
      {"wavy", wavy.text(), {}},
      {"pole", pole.text(), {}},
      {"no area",
       collapsed.text(),
       {"igsShapeTinyFace 1 0,0.0001", "igsShapeVanishingNormal 1 0.166666666666667,0.166666666666667"}},
      {"folded", folded.text(), {"igsShapeTurningNormal 1 0.778564453125,0.5"}},
      {"bent", bent.text(), {"igsShapeKink 1 0,0.785398163397448,0.0523598775598299,1"}},
      {"gaping", gaping.text(), {"igsShapeKnotMultiplicity 1 0,1,2,1", "igsShapeSplineGap 1 10,0.01,0,1"}},
      {"short side", short_side.text(), {"igsShapeShortSide 1 0.004,0.01,3"}},
      {"points that coincide", still.text(), {"igsShapeCoincidentPoles 1 0,0,1"}},
  });
}

TEST(EntityChecks, curvesInParameterSpaceHaveNoLengths) {
  const Surface plane(1, 2);
  const std::string square = "142:0 1,1,9,0,1 ", face = "144:0 1,1,0,3 ";
  const std::string border =
      curve(2, {0, 0, 0, 1, 1, 1, 2, 2, 2}, {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 0}});
  const std::string far_face = plane.text() + square + face + far_line + border;
  EXPECT_EQ(found(far_face), (std::vector<std::string>{"igsShapeKnotMultiplicity 9 0,1,3,2"}));
}

TEST(EntityChecks, sizesBelowTheTolerance) {
  const auto rectangle = [](double width, double height) {
    const std::string edges = line({0, 0, 0}, {width, 0, 0}) + line({width, 0, 0}, {width, height, 0}) +
                              line({width, height, 0}, {0, height, 0}) + line({0, height, 0}, {0, 0, 0});
    return Surface(1, 2).text() + edges + "102:0 4,3,5,7,9 142:0 1,1,0,11,2 144:0 1,1,0,13 ";
  };
  expect_all({
      {"large", rectangle(1, 1), {}},
      {"a long way round a pole",
       "120:0 3,5,0.,6.283185307179586 " + line({0, 0, 0}, {0, 0, 1}) + line({0, 0, 0}, {1, 0, 1}),
       {}},
  });
  using Found = std::vector<std::string>;
  Found narrow = found(rectangle(1, 0.0078125) + far_line);
  ASSERT_EQ(narrow.size(), 3U);
  EXPECT_TRUE(narrow.back().starts_with("igsShapeNarrowFace 15 0.0077519"));
  narrow.pop_back();
  EXPECT_EQ(narrow, (Found{"igsShapeShortEdge 13 0.0078125,0.01,1,5", "igsShapeShortEdge 13 0.0078125,0.01,3,9"}));
  EXPECT_EQ(found(rectangle(1, 0.5) + far_line, {.tiny = 0.4}).size(), 1U);  // it is a third wide
  EXPECT_EQ(found(rectangle(1, 0.5) + far_line, {.tiny = 0.6}).size(), 3U);
}

TEST(EntityChecks, whatIsThereTwiceNamesTheFirst) {
  const std::string there = line({1, 2, 3}, {4, 5, 6}), back = line({4, 5, 6.004}, {1, 2, 3}),
                    beside = line({1, 2, 3}, {4, 5, 6.02});
  const std::string arc = "100:0 0.,0.,0.,1.,0.,0.,1. ";
  const std::string surface = Surface(2, 3).text();
  expect_all({
      {"the same line", there + there, {"igsShapeDuplicateCurve 3 1"}},
      {"three, one of them turned round",
       there + there + back,
       {"igsShapeDuplicateCurve 3 1", "igsShapeDuplicateCurve 5 1"}},
      {"beside", there + beside, {}},
      {"another class", arc + line({1, 0, 0}, {0, 1, 0}), {}},
      {"arcs", arc + arc, {"igsShapeDuplicateCurve 3 1"}},
      {"surfaces", surface + surface, {"igsShapeDuplicateFace 3 1"}},
  });
}

/// Neighbouring cells of the search are looked at, too, and no more things are compared than there are near ones.
TEST(EntityChecks, oneOfManyIsFound) {
  std::string many;
  for (int i = 0; i < 400; ++i) many += line({i * 0.37, 0, 0}, {i * 0.37, 10, 0});
  for (int i = 0; i < 400; ++i) many += line({i * 0.37 + 0.005, 0.003, 0}, {i * 0.37 + 0.005, 10, 0.005});
  EXPECT_EQ(found(many + far_line).size(), 400U);
}

TEST(EntityChecks, theGlobalSectionIsHeldAgainstTheModel) {
  const auto found_with = [](const std::string& resolution, const std::string& largest, const std::string& entities) {
    igsFile file;
    IgesBuilder builder;
    builder.global(19, resolution).global(20, largest);
    builder.entity(110, 0, entities);
    read_text(file, builder.text());
    igsShapeCheck(file);
    const std::size_t once = active_errors(file).size();
    igsShapeCheck(file);
    EXPECT_EQ(active_errors(file).size(), once);  // those of the first call have gone
    return active_errors(file);
  };
  using Found = std::vector<std::string>;
  const std::string hundred = "0.,0.,0.,100.,0.,0.";
  EXPECT_EQ(found_with("1.D-6", "100.", hundred), Found());
  EXPECT_EQ(found_with("1.D-6", "0.", hundred), Found());
  EXPECT_EQ(found_with("1.D-9", "100.", hundred), Found{"igsShapeImplausibleResolution 1e-09,100"});
  EXPECT_EQ(found_with("1.", "100.", hundred), Found{"igsShapeImplausibleResolution 1,100"});
  EXPECT_EQ(found_with("1.D-6", "99.", hundred), Found{"igsShapeBeyondLargestCoordinate 100,99"});
  EXPECT_EQ(found_with("1.D-6", "2.D6", "1.D6,0.,0.,1000002.,0.,0."), Found{"igsShapeFarFromOrigin 1000001,2"});
}
}  // namespace
