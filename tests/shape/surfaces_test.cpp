#include <algorithm>
#include <numbers>
#include <ostream>
#include <random>

#include "shape/shape_fixture.h"

using namespace igs_test;

namespace {
constexpr double half_turn = std::numbers::pi;
// The location (1, 2, 3), the axis along y, a reference direction that is not square to it: x is that of space.
const std::string placed = "116:0 1.,2.,3. 123:0 0.,2.,0. 123:0 3.,1.,0. ";
const std::string two_lines = "110:0 0.,0.,0.,4.,0.,0. 110:0 4.,1.,2.,0.,1.,0. ";

/// A surface of two patches by one, and those without a meaning.
std::string patches() {
  std::string data = "114:0 3,1,2,1,0.,1.,3.,2.,4.";
  for (int k = 0; k < 6 * 48; ++k) data += ',' + std::to_string(k * k % 17 * 0.25);
  return data;
}

struct Case {
  const char* name;
  std::string entities;
  int de;
};
std::ostream& operator<<(std::ostream& os, const Case& surface) { return os << surface.name; }
std::string name_of(const testing::TestParamInfo<Case>& info) { return info.param.name; }

const Case surfaces[] = {
    {"plane", "108:0 1.,2.,2.,9.,0,0.,0.,0.,0.", 1},
    {"plane_surface", placed + "190:1 1,3,5", 7},
    {"cylinder", placed + "192:1 1,3,2.,5", 7},
    {"cone", placed + "194:1 1,3,2.,30.,5", 7},
    {"sphere", placed + "196:1 1,2.,3,5", 7},
    {"torus", placed + "198:1 1,3,5.,2.,5", 7},
    {"ruled", two_lines + "118:1 1,3,0,0", 5},
    {"ruled_from_arc_by_length", "100:0 0.,0.,0.,2.,0.,0.,2. 116:0 0.,0.,5. 118:0 1,3,0,0", 5},
    {"revolved_line", "110:0 0.,0.,0.,0.,0.,1. 110:0 1.,0.,0.,2.,3.,4. 120:0 1,3,0.5,4.", 5},
    {"revolved_arc", "110:0 3.,0.,0.,3.,1.,0. 100:0 0.,0.,0.,2.,0.,0.,2. 120:0 1,3,0.,6.283185307", 5},
    {"tabulated", "100:0 1.,0.,0.,2.,0.,0.,2. 122:0 1,2.,1.,5.", 3},
    {"bicubic_patches", patches(), 1},
    {"spline",
     "128:0 2,2,2,1,0,0,0,0,0,0.,0.,0.,1.,1.,1.,0.,0.,2.,3.,3.,1.,2.,1.,3.,1.,1.,1.,2.,1.,"
     "0.,0.,0.,1.,0.,2.,2.,0.,0.,0.,1.,1.,1.,1.,3.,2.,2.,1.,0.,4.,1.,1.,3.,0.,2.,3.,3.,0.,1.,0.,3.",
     1},
    {"offset_of_sphere", placed + "196:1 1,2.,3,5 140:0 1.,0.,0.,0.5,7", 9},
    {"offset_of_spline",
     "128:0 2,1,2,1,0,0,0,0,0,0.,0.,0.,1.,1.,1.,0.,0.,1.,1.,1.,2.,1.,1.,1.,1.,"
     "0.,0.,0.,1.,0.,2.,2.,0.,0.,0.,3.,0.,1.,3.,3.,2.,3.,0.,0.,1.,0.,1. 140:0 0.,0.,1.,0.5,1",
     3},
};

class SurfaceCase : public testing::TestWithParam<Case> {
 protected:
  ShapedFile file{GetParam().entities};
  igsShapeSurfacePtr shape = file.surface(GetParam().de);
};
INSTANTIATE_TEST_SUITE_P(SurfaceShapes, SurfaceCase, testing::ValuesIn(surfaces), name_of);

igsVec2 within(const igsShapeSurface& shape, double a, double b) {
  const auto at = [](const igsSurfaceDirection& direction, double fraction) {
    const double low = direction.range.clamp(-2);
    return (direction.range.is_finite() ? direction.range : igsRange{low, low + 4}).at(fraction);
  };
  return {at(shape.u(), a), at(shape.v(), b)};
}

TEST_P(SurfaceCase, partialsAreWhatDifferencesTendTo) {
  ASSERT_NE(shape, nullptr);
  constexpr double h = 1e-4;
  for (const auto& [a, b] : {std::pair{0.13, 0.21}, {0.47, 0.71}, {0.83, 0.38}}) {
    const igsVec2 uv = within(*shape, a, b);
    const igsSurfacePoint at = shape->at(uv);
    const auto near = [&](double i, double j) { return shape->at(uv.x + i * h, uv.y + j * h); };
    const auto slope = [&](const igsVec3& before, const igsVec3& after) { return (after - before) * (0.5 / h); };
    EXPECT_TRUE(at.normal().is_finite() && at.normal() != igsVec3());
    expect_near(shape->point(uv), at.point, 1e-13);
    expect_near(at.u, slope(near(-1, 0).point, near(1, 0).point), 1e-5);
    expect_near(at.v, slope(near(0, -1).point, near(0, 1).point), 1e-5);
    expect_near(at.uu, slope(near(-1, 0).u, near(1, 0).u), 1e-4);
    expect_near(at.uv, slope(near(0, -1).u, near(0, 1).u), 1e-4);
    expect_near(at.vv, slope(near(0, -1).v, near(0, 1).v), 1e-4);
  }
}

// The plain way: all points of a fine grid, and those around the nearest ones again.
double least_distance(const igsShapeSurface& shape, const igsVec3& point) {
  double least = 1e300;
  double low_a = 0, low_b = 0, width = 1;
  for (int round = 0; round < 8; ++round) {
    double best_a = 0, best_b = 0;
    for (int i = 0; i <= 60; ++i) {
      for (int j = 0; j <= 60; ++j) {
        const double a = low_a + width * i / 60, b = low_b + width * j / 60;
        const double distance = (shape.point(within(shape, a, b)) - point).length();
        if (distance > least) continue;
        least = distance, best_a = a, best_b = b;
      }
    }
    width /= 10;
    low_a = std::clamp(best_a - width / 2, 0.0, 1 - width);
    low_b = std::clamp(best_b - width / 2, 0.0, 1 - width);
  }
  return least;
}

TEST_P(SurfaceCase, theNearestPointIsAsNearAsAnyOnAGrid) {
  ASSERT_NE(shape, nullptr);
  const igsNearestPointOnSurface nearest(*shape);
  for (const auto& [a, b, away] : {std::tuple{0.1, 0.3, 0.3}, {0.5, 0.6, -0.2}, {0.97, 0.9, 0.1}}) {
    const igsVec2 uv = within(*shape, a, b);
    const igsSurfacePoint at = shape->at(uv);
    const igsVec3 point = at.point + at.normal() * away + at.u * 0.02;
    const igsNearestOnSurface found = nearest(point);
    EXPECT_NEAR(found.distance, least_distance(*shape, point), 1e-6);
    EXPECT_NEAR((found.point - point).length(), found.distance, 1e-12);
    expect_near(shape->point(found.uv), found.point, 1e-12);
    EXPECT_LE(nearest.near(point, uv, found.distance).distance, found.distance + 1e-7);
    EXPECT_NEAR(nearest(at.point).distance, 0, 1e-9);
  }
}

TEST(SurfaceShapes, analyticSurfacesAreWhereTheirParametersSay) {
  const struct {
    std::string entities;
    igsVec2 uv;
    igsVec3 point;
  } cases[] = {
      {"190:1 1,3,5", {2, 5}, {3, 2, -2}},
      {"192:1 1,3,2.,5", {90, 7}, {1, 9, 1}},
      {"194:1 1,3,2.,45.,5", {180, 3}, {-4, 5, 3}},
      {"194:1 1,3,2.,45.,5", {1, -2}, {1, 0, 3}},
      {"196:1 1,2.,3,5", {0, 30}, {1 + std::sqrt(3), 3, 3}},
      {"196:1 1,2.,3,5", {3, -90}, {1, 0, 3}},
      {"198:1 1,3,5.,2.,5", {90, 90}, {1, 4, -2}},
      {"198:1 1,3,5.,2.,5", {0, 180}, {4, 2, 3}},
  };
  for (const auto& [entities, uv, point] : cases) {
    SCOPED_TRACE(entities);
    ShapedFile file(placed + entities);
    expect_near(file.surface(7)->point(uv), point, 1e-12);
  }
  // Without a reference direction the parameters begin anywhere, but the surface is the same.
  ShapedFile cylinder(placed + "192:0 1,3,2.");
  const igsVec3 away = cylinder.surface(7)->point({1, 7}) - igsVec3{1, 9, 3};
  EXPECT_NEAR(away.length(), 2, 1e-12);
  EXPECT_NEAR(away.y, 0, 1e-12);
  expect_near(ShapedFile("108:0 0.,0.,-2.,6.,0,0.,0.,0.,0.").surface(1)->at(4, 5).normal(), {0, 0, -1}, 1e-15);
}

TEST(SurfaceShapes, sweptSurfacesAreWhereTheirParametersSay) {
  const std::string arc = "100:0 0.,0.,0.,2.,0.,0.,2. ";  // a quarter
  const double c = std::sqrt(2);
  const struct {
    std::string entities;
    int de;
    igsVec2 uv;
    igsVec3 point;
  } cases[] = {
      {two_lines + "118:1 1,3,0,0", 5, {0.25, 0.5}, {2, 0.5, 0.75}},
      {two_lines + "118:1 1,3,1,0", 5, {0.25, 0.5}, {1, 0.5, 0.25}},
      {arc + "116:0 0.,0.,5. 118:0 1,3,0,0", 5, {0.5, 0}, {c, c, 0}},
      {arc + "116:0 0.,0.,5. 118:0 1,3,0,0", 5, {0.5, 1}, {0, 0, 5}},
      {"110:0 0.,0.,0.,0.,0.,9. 110:0 2.,0.,0.,2.,0.,4. 120:0 1,3,-1.,2.", 5, {0.25, half_turn / 2}, {0, 2, 1}},
      {"110:0 0.,0.,9.,0.,0.,0. 110:0 2.,0.,0.,2.,0.,4. 120:0 1,3,-1.,2.", 5, {0.25, half_turn / 2}, {0, -2, 1}},
      {arc + "122:0 1,2.,1.,5.", 3, {0.5, 0.4}, {c, c + 0.4, 2}},
      {placed + "196:1 1,2.,3,5 140:0 -1.,0.,0.,0.5,7", 9, {0, 0}, {3.5, 2, 3}},
      {placed + "196:1 1,2.,3,5 140:0 1.,0.,0.,0.5,7", 9, {0, 0}, {2.5, 2, 3}},
  };
  for (const auto& [entities, de, uv, point] : cases) {
    SCOPED_TRACE(entities);
    ShapedFile file(entities);
    expect_near(file.surface(de)->point(uv), point, 1e-9);
  }
}

TEST(SurfaceShapes, closedDirectionsAndPolesAreKnown) {
  const std::string axis = "110:0 0.,0.,0.,0.,1.,0. ";
  const struct {
    std::string entities;
    int de;
    const char* expected;
  } cases[] = {
      {placed + "192:1 1,3,2.,5", 7, "u:closed v:"},
      {placed + "194:1 1,3,2.,30.,5", 7, "u:closed v:low"},
      {placed + "196:1 1,2.,3,5", 7, "u:closed v:low,high"},
      {placed + "198:1 1,3,5.,2.,5", 7, "u:closed v:closed"},
      {two_lines + "118:1 1,3,0,0", 5, "u: v:"},
      {axis + "110:0 0.,0.,0.,2.,3.,0. 120:0 1,3,1.,7.2831853", 5, "u:low v:closed"},
      {axis + "110:0 0.,0.,0.,2.,3.,0. 120:0 1,3,1.,7.", 5, "u:low v:"},
      {axis + "100:0 0.,5.,0.,6.,0.,6.,0. 120:0 1,3,1.,7.5", 5, "u:closed v:closed"},
      {"100:0 0.,5.,0.,6.,0.,6.,0. 116:0 5.,0.,3. 118:1 1,3,0,0", 5, "u:closed v:high"},
      {placed + "196:1 1,2.,3,5 140:0 1.,0.,0.,0.5,7", 9, "u:closed v:low,high"},
  };
  for (const auto& [entities, de, expected] : cases) {
    SCOPED_TRACE(entities);
    ShapedFile file(entities);
    const igsShapeSurfacePtr shape = file.surface(de);
    const auto described = [](const igsSurfaceDirection& direction) {
      const std::string both = direction.has_pole_low && direction.has_pole_high ? "," : "";
      return std::string(direction.is_closed ? "closed" : "") + (direction.has_pole_low ? "low" : "") + both +
             (direction.has_pole_high ? "high" : "");
    };
    EXPECT_EQ("u:" + described(shape->u()) + " v:" + described(shape->v()), expected);
  }
}

TEST(SurfaceShapes, aClosedSurfaceGoesOnBeyondItsSeam) {
  ShapedFile file(placed + "192:1 1,3,2.,5");
  const igsShapeSurfacePtr shape = file.surface(7);
  const igsNearestPointOnSurface nearest(*shape);
  const igsVec3 point = shape->point({0.1, 5});
  const double whole = 360;
  EXPECT_NEAR(nearest(point).uv.x, 0.1, 1e-9);
  EXPECT_NEAR(nearest.near(point, {whole - 0.1, 5}, 1e-6).uv.x, whole + 0.1, 1e-9);
  EXPECT_NEAR(nearest.near(point, {172 + 5 * whole, -100}, 1e-6).uv.x, 5 * whole + 0.1, 1e-9);
  expect_near(shape->point({0.1 - 3 * whole, 5}), point, 1e-12);
}

TEST(SurfaceShapes, theNearestPointIsFollowedRoundACornerWherePartialsAreParallel) {
  ShapedFile file(
      "128:0 1,1,1,1,0,0,1,0,0,0.,0.,1.,1.,0.,0.,1.,1.,1.,1.,1.,1.,"
      "-1.,0.,0.,0.,0.,0.,0.,1.,0.,1.,0.,0.,0.,1.,0.,1.");
  const igsNearestOnSurface found = igsNearestPointOnSurface(*file.surface(1)).near({0.5, 0, 0}, {1, 0}, 10);
  EXPECT_NEAR(found.distance, 0, 1e-12);
  EXPECT_NEAR(found.uv.y, 0.5, 1e-9);
}

TEST(SurfaceShapes, theNearestPointMayLieOnAnEdge) {
  ShapedFile roof(
      "128:0 2,1,1,1,0,0,1,0,0,0.,0.,1.,2.,2.,0.,0.,1.,1.,1.,1.,1.,1.,1.,1.,"
      "-1.,0.,0.,0.,0.,2.,1.,0.,0.,-1.,1.,0.,0.,1.,2.,1.,1.,0.,0.,2.,0.,1.");
  const igsShapeSurfacePtr shape = roof.surface(1);
  const igsNearestPointOnSurface nearest(*shape);
  for (const igsVec2& start : {igsVec2{0.2, 0.9}, {1.1, 0.1}, {1, 1}}) {
    const igsNearestOnSurface found = nearest.near({0.05, 0.3, 4}, start, 3);
    expect_near(found.point, {0, 0.3, 2}, 1e-9);
    EXPECT_EQ(found.uv.x, 1);
  }
}

/// A B-spline function straight from its definition; in the span that ends at `t` where `before`.
double basis(const std::vector<double>& knots, std::size_t i, int degree, double t, bool before) {
  if (degree == 0) return before ? knots[i] < t && t <= knots[i + 1] : knots[i] <= t && t < knots[i + 1];
  const auto p = static_cast<std::size_t>(degree);
  const double low = knots[i + p] - knots[i], high = knots[i + p + 1] - knots[i + 1];
  return (low > 0 ? (t - knots[i]) / low * basis(knots, i, degree - 1, t, before) : 0) +
         (high > 0 ? (knots[i + p + 1] - t) / high * basis(knots, i + 1, degree - 1, t, before) : 0);
}

/// Pseudo-random, with several at one place.
std::vector<double> random_knots(std::mt19937& random, int degree, int count) {
  std::vector<double> knots;
  double knot = -2;
  for (int i = 0; i <= count + degree; ++i) {
    if (random() % 3 != 0) knot += static_cast<double>(random() % 1000 + 1) / 500;
    knots.push_back(knot);
  }
  return knots;
}

struct RandomSpline {
  std::vector<double> knots_u, knots_v;
  igs128* entity = new igs128;

  RandomSpline(std::mt19937& random, int degree_u, int degree_v) {
    const int count_u = degree_u + 5, count_v = degree_v + 4;
    knots_u = random_knots(random, degree_u, count_u);
    knots_v = random_knots(random, degree_v, count_v);
    entity->set_order_size(degree_u + 1, degree_v + 1, count_u, count_v);
    for (int i = 0; const double knot : knots_u) entity->set_knot_u(i++, knot);
    for (int i = 0; const double knot : knots_v) entity->set_knot_v(i++, knot);
    const auto coordinate = [&] { return static_cast<double>(random() % 10000) / 1000; };
    for (int i = 0; i < count_u; ++i) {
      for (int j = 0; j < count_v; ++j) {
        entity->set_control_point(i, j, {coordinate(), coordinate(), coordinate()});
        entity->set_weight(i, j, 0.5 + coordinate());
      }
    }
  }

  igsVec3 point(double u, double v, bool before) const {
    igsVec3 sum;
    double weights = 0;
    for (int i = 0; i < entity->number_of_control_points_u(); ++i) {
      for (int j = 0; j < entity->number_of_control_points_v(); ++j) {
        giPoint3 p;
        double w = 0;
        entity->control_point(i, j, p);
        entity->weight(i, j, w);
        w *= basis(knots_u, static_cast<std::size_t>(i), entity->order_u() - 1, u, before) *
             basis(knots_v, static_cast<std::size_t>(j), entity->order_v() - 1, v, before);
        sum += igsVec3{p.x(), p.y(), p.z()} * w;
        weights += w;
      }
    }
    return sum * (1 / weights);
  }
};

TEST(SurfaceShapes, splinesAreTheSumOfTheirFunctions) {
  igsFile file;
  std::mt19937 random(5);
  int num_shapes = 0;
  for (int k = 0; k < 40; ++k) {
    const RandomSpline spline(random, 1 + k % 7, 1 + k % 4);
    const igsShapeSurfacePtr shape = igsShapes(file).surface(spline.entity);
    if (shape == nullptr) continue;  // all knots of the range are one
    ++num_shapes;
    for (const double u : shape->u().breaks) {
      for (const double v : shape->v().breaks) {
        const igsVec2 to{u * 0.7 + shape->u().range.high * 0.3, v * 0.7 + shape->v().range.high * 0.3};
        if (u < shape->u().range.high && v < shape->v().range.high) {
          expect_near(shape->point({u, v}), spline.point(u, v, false), 1e-9);
          expect_near(shape->point(to), spline.point(to.x, to.y, false), 1e-9);
        }
        if (u == shape->u().range.low || v == shape->v().range.low) continue;
        expect_near(shape->at(u, v, igsSide::before, igsSide::before).point, spline.point(u, v, true), 1e-9);
      }
    }
  }
  EXPECT_GT(num_shapes, 30);
}

// A quarter of a circle turned by a quarter, as exact as a rational spline is.
TEST(SurfaceShapes, aSplineCanBeASphere) {
  const std::string w = "0.70710678118654752";
  ShapedFile file("128:0 2,2,2,2,0,0,0,0,0,0.,0.,0.,1.,1.,1.,0.,0.,0.,1.,1.,1.,1.," + w + ",1.," + w + ",0.5," + w +
                  ",1.," + w +
                  ",1.,1.,0.,0.,1.,0.,1.,0.,0.,1.,1.,1.,0.,1.,1.,1.,0.,0.,1.,0.,1.,0.,0.,1.,1.,0.,0.,1.,0.,1.,0.,1.");
  const igsShapeSurfacePtr shape = file.surface(1);
  ASSERT_NE(shape, nullptr);
  for (const double u : {0.0, 0.17, 0.5, 0.99}) {
    for (const double v : {0.0, 0.33, 0.8}) {
      const igsSurfacePoint at = shape->at(u, v);
      EXPECT_NEAR(at.point.length(), 1, 1e-15);
      expect_near(at.normal(), at.point * (at.normal().dot(at.point) > 0 ? 1 : -1), 1e-13);
    }
  }
  EXPECT_TRUE(shape->u().has_pole_high);
  expect_near(igsNearestPointOnSurface(*shape)({0, 0, 3}).point, {0, 0, 1}, 1e-9);
}

TEST(SurfaceShapes, dataThatMakeNoSurfaceMakeNone) {
  const std::string plane = "128:0 1,1,1,1,0,0,1,0,0,";
  const std::string points = "0.,0.,0.,1.,0.,0.,0.,1.,0.,1.,1.,0.,0.,1.,0.,1.";
  const struct {
    std::string entities;
    int de;
  } cases[] = {
      {"108:0 0.,0.,0.,1.,0,0.,0.,0.,0.", 1},
      {"116:0 1.,2.,3. 123:0 0.,0.,0. 190:0 1,3", 5},
      {placed + "192:1 1,3,2.,3", 7},
      {placed + "192:1 1,3,0.,5", 7},
      {placed + "192:1 1,3,2.,0", 7},
      {placed + "194:1 1,3,2.,90.,5", 7},
      {placed + "196:1 1,,3,5", 7},
      {placed + "198:1 1,3,-5.,2.,5", 7},
      {two_lines + "118:1 1,0,0,0", 5},
      {"110:0 0.,0.,0.,0.,0.,0. 110:0 1.,0.,0.,2.,3.,4. 120:0 1,3,0.,4.", 5},
      {"110:0 0.,0.,0.,0.,1.,0. 110:0 1.,0.,0.,2.,3.,4. 120:0 1,3,4.,4.", 5},
      {"140:0 1.,0.,0.,1.,1", 1},
      {placed + "196:1 1,2.,3,5 140:0 0.,0.,0.,0.5,7", 9},
      {"144:0 1,0,0,0", 1},
      {"114:0 3,1,1,1,1.,0.,0.,1.,48*0.", 1},
      {plane + "0.,0.,1.,1.,0.,1.,0.,1.,1.,1.,1.,1.," + points, 1},
      {plane + "0.,0.,1.,1.,0.,0.,1.,1.,1.,0.,1.,1.," + points, 1},
      {plane + "0.,0.,0.,0.,0.,0.,1.,1.,1.,1.,1.,1.," + points, 1},
      {plane + "0.,0.,1.,1.,0.,0.,1.,1.,1.,1.,1.,1.,0.,0.,0.", 1},
  };
  for (const auto& [entities, de] : cases) EXPECT_EQ(ShapedFile(entities).surface(de), nullptr) << entities;
  igsFile unset;
  for (const igsObject* const entity : std::initializer_list<igsObject*>{
           new igs108, new igs114, new igs118, new igs120, new igs122, new igs128, new igs140, new igs143, new igs144,
           new igs190_0, new igs190_1, new igs192_1, new igs194_1, new igs196_0, new igs198_0, new igs510}) {
    EXPECT_EQ(igsShapes(unset).surface(entity), nullptr) << entity->name();
  }
  // Limits that leave nothing are those of the knots; those beyond the knots end with them.
  ShapedFile file(plane + "0.,0.,1.,1.,0.,0.,2.,2.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1.,0.,1.,1.,0.,3.,3.,-1.,1.5");
  const igsShapeSurfacePtr shape = file.surface(1);
  ASSERT_NE(shape, nullptr);
  EXPECT_EQ(shape->u().breaks, (std::vector<double>{0, 1}));
  EXPECT_EQ(shape->v().breaks, (std::vector<double>{0, 1.5}));
}
}  // namespace
