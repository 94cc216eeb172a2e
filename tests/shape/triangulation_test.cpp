#include "igs/shape/private/igsTriangulation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <set>

namespace {
// Bounds of this size make coordinates and grid the same.
constexpr double size = 1 << 30;
using Points = std::vector<igsVec2>;

igsGridPoint grid_point(const igsVec2& p) {
  return {static_cast<int>(std::lround(p.x)), static_cast<int>(std::lround(p.y))};
}

igsTriangulation triangulated(const Points& points, std::vector<int>* vertices = nullptr) {
  igsTriangulation triangulation({0, 0}, {size, size});
  const std::vector<int> numbers = triangulation.add_points(points);
  if (vertices != nullptr) *vertices = numbers;
  return triangulation;
}

double area(const Points& loop) {
  double sum = 0;
  for (std::size_t i = 0; i < loop.size(); ++i) sum += loop[i].cross(loop[(i + 1) % loop.size()]) / 2;
  return sum;
}

double area_inside(igsTriangulation& triangulation) {
  double sum = 0;
  for (const auto& [a, b, c] : triangulation.inside()) {
    sum += area({triangulation.point(a), triangulation.point(b), triangulation.point(c)});
  }
  return sum;
}

/// Triangles fit together, run counterclockwise, are as many as Euler says, and no side should be flipped.
void expect_sound(const igsTriangulation& triangulation) {
  const auto at = [&](int vertex) { return grid_point(triangulation.point(vertex)); };
  ASSERT_EQ(triangulation.num_triangles(), 2 * (triangulation.num_vertices() - 4) + 2);
  for (int t = 0; t < triangulation.num_triangles(); ++t) {
    const auto& [a, b, c] = triangulation.triangle(t);
    ASSERT_GT(igs_turn(at(a), at(b), at(c)), 0);
    for (int side = 0; side < 3; ++side) {
      const int beyond = triangulation.neighbour(t, side);
      if (beyond < 0) continue;
      int back = 0;
      while (back < 2 && triangulation.neighbour(beyond, back) != t) ++back;
      ASSERT_EQ(triangulation.neighbour(beyond, back), t);
      ASSERT_EQ(triangulation.is_constraint(beyond, back), triangulation.is_constraint(t, side));
      const int opposite = triangulation.triangle(beyond)[static_cast<std::size_t>(back)];
      ASSERT_TRUE(triangulation.is_constraint(t, side) || !igs_in_circle(at(a), at(b), at(c), at(opposite)));
    }
  }
}

/// The constrained sides, each as two vertices in ascending order.
std::set<std::pair<int, int>> constraints(const igsTriangulation& triangulation) {
  std::set<std::pair<int, int>> found;
  for (int t = 0; t < triangulation.num_triangles(); ++t) {
    for (std::size_t side = 0; side < 3; ++side) {
      if (!triangulation.is_constraint(t, static_cast<int>(side))) continue;
      const std::array<int, 3>& corners = triangulation.triangle(t);
      found.insert(std::minmax(corners[(side + 1) % 3], corners[(side + 2) % 3]));
    }
  }
  return found;
}

bool add_loop(igsTriangulation& triangulation, const Points& loop) {
  const std::vector<int> vertices = triangulation.add_points(loop);
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    if (!triangulation.add_constraint(vertices[i], vertices[(i + 1) % vertices.size()])) return false;
  }
  return true;
}

Points random_points(std::mt19937& random, int count, int lattice) {
  Points points;
  const auto coordinate = [&] {
    return static_cast<double>(random() % static_cast<unsigned>(lattice)) * (size / lattice);
  };
  for (int i = 0; i < count; ++i) {
    const double x = coordinate();
    points.push_back({x, coordinate()});
  }
  return points;
}

Points along(int count, const std::function<igsVec2(double)>& curve) {
  Points points;
  for (int i = 0; i < count; ++i) points.push_back(curve((i + 0.5) / count) * size);
  return points;
}

const std::function<igsVec2(double)> circle = [](double t) {
  return igsVec2{0.5 + 0.4 * std::cos(6.2831853 * t), 0.5 + 0.4 * std::sin(6.2831853 * t)};
};
const std::function<igsVec2(double)> parabola = [](double t) { return igsVec2{1 - t, (1 - t) * (1 - t)}; };
const std::function<igsVec2(double)> to_and_fro = [](double t) {
  const double s = std::fmod(t * 1e5, 2) < 1 ? t / 2 : 1 - t / 2;
  return igsVec2{s, 1 - s};
};

TEST(Triangulation, decidesExactlyWhatLiesInACircle) {
  constexpr int unit = 1 << 24;
  const auto on_circle = [&](int x, int y) { return igsGridPoint{(x + 30) * unit, (y + 30) * unit}; };
  const igsGridPoint a = on_circle(25, 0), b = on_circle(7, 24), c = on_circle(-20, -15);
  for (const igsGridPoint& d : {on_circle(15, -20), on_circle(-24, 7), on_circle(24, -7)}) {
    const int centre = 30 * unit;
    const int step_x = d.x < centre ? 1 : -1, step_y = d.y < centre ? 1 : -1;
    EXPECT_FALSE(igs_in_circle(a, b, c, d));
    EXPECT_TRUE(igs_in_circle(a, b, c, {d.x + step_x, d.y}));
    EXPECT_TRUE(igs_in_circle(a, b, c, {d.x, d.y + step_y}));
    EXPECT_FALSE(igs_in_circle(a, b, c, {d.x - step_x, d.y}));
  }
}

TEST(Triangulation, noPointLiesInTheCircleOfATriangle) {
  std::mt19937 random(1);
  constexpr int lattice = 1024;
  for (const Points& points : {random_points(random, 300, lattice), random_points(random, 400, 16), along(200, circle),
                               along(100, to_and_fro), Points(5, igsVec2{3, 4})}) {
    Points rounded = points;
    for (igsVec2& p : rounded) p = {std::floor(p.x / size * lattice), std::floor(p.y / size * lattice)};
    igsTriangulation triangulation({0, 0}, {lattice, lattice});
    for (const igsVec2& p : rounded) EXPECT_EQ(triangulation.point(triangulation.add_point(p)), p);
    igsTriangulation in_rounds({0, 0}, {lattice, lattice});
    in_rounds.add_points(rounded);
    EXPECT_EQ(in_rounds.num_vertices(), triangulation.num_vertices());
    expect_sound(triangulated(points));
    for (const igsTriangulation* each : {&triangulation, &in_rounds}) {
      for (int t = 0; t < each->num_triangles(); ++t) {
        const auto& [a, b, c] = each->triangle(t);
        for (int v = 0; v < each->num_vertices(); ++v) {
          const igsVec2 d = each->point(v), p = each->point(a) - d, q = each->point(b) - d, r = each->point(c) - d;
          ASSERT_LE(p.dot(p) * q.cross(r) + q.dot(q) * r.cross(p) + r.dot(r) * p.cross(q), 0);
        }
      }
    }
  }
}
TEST(Triangulation, stepsAreInProportionToThePointsInAnyOrder) {
  for (const int count : {1'000, 10'000}) {
    Points rows;
    for (int i = 0; i < count; ++i) rows.push_back({i / 100 * size / 300, i % 100 * size / 300});
    for (const Points& points :
         {rows, along(count, circle), along(count, parabola), Points(rows.rbegin(), rows.rend())}) {
      std::vector<int> vertices;
      igsTriangulation triangulation = triangulated(points, &vertices);
      for (std::size_t i = 1; i < vertices.size(); ++i)
        ASSERT_TRUE(triangulation.add_constraint(vertices[i - 1], vertices[i]));
      EXPECT_LT(triangulation.work(), 200 * count);
      expect_sound(triangulation);
    }
  }
}

/// True when constrained sides lead straight from one vertex to the other.
bool is_laid(const igsTriangulation& triangulation, const std::set<std::pair<int, int>>& sides, int from, int to) {
  const auto at = [&](int vertex) { return triangulation.point(vertex); };
  while (from != to) {
    const igsVec2 way = at(to) - at(from);
    int next = -1;
    for (const auto& [a, b] : sides) {
      if (a != from && b != from) continue;
      const igsVec2 step = at(a == from ? b : a) - at(from);
      if (way.cross(step) == 0 && way.dot(step) > 0) next = a == from ? b : a;
    }
    if (next < 0) return false;
    from = next;
  }
  return true;
}

TEST(Triangulation, constraintsAreSides) {
  std::mt19937 random(3);
  for (int round = 0; round < 40; ++round) {
    const Points points = random_points(random, 60, round % 2 == 0 ? 1024 : 16);
    std::vector<int> vertices;
    igsTriangulation triangulation = triangulated(points, &vertices);
    // Lines from one point meet nowhere else; the second half runs along sides that are there.
    for (std::size_t i = 1; i < points.size(); ++i) ASSERT_TRUE(triangulation.add_constraint(vertices[0], vertices[i]));
    EXPECT_TRUE(triangulation.crossings().empty());
    expect_sound(triangulation);
    const auto sides = constraints(triangulation);
    for (const int vertex : vertices) EXPECT_TRUE(is_laid(triangulation, sides, vertices[0], vertex));
    EXPECT_TRUE(triangulation.inside().empty());
  }
}

TEST(Triangulation, constraintsThatCrossAreCut) {
  igsTriangulation triangulation({0, 0}, {size, size});
  ASSERT_TRUE(add_loop(triangulation, {{0, 0}, {1024, 1024}, {1024, 0}, {0, 1024}}));
  ASSERT_EQ(triangulation.crossings().size(), 1U);
  EXPECT_EQ(triangulation.point(triangulation.crossings()[0]), igsVec2({512, 512}));
  EXPECT_EQ(constraints(triangulation).size(), 6U);
  EXPECT_EQ(area_inside(triangulation), 1024.0 * 1024 / 2);
  const int on_edge = triangulation.add_point({256, 256});
  const auto sides = constraints(triangulation);
  EXPECT_EQ(std::count_if(sides.begin(), sides.end(), [&](const auto& side) { return side.second == on_edge; }), 2);
  EXPECT_EQ(area_inside(triangulation), 1024.0 * 1024 / 2);
  EXPECT_FALSE(triangulation.add_constraint(3, on_edge));
}

TEST(Triangulation, insideAreOddNumbersOfLoops) {
  const Points outer = {{0, 0}, {100, 0}, {100, 100}, {0, 100}}, hole = {{20, 20}, {20, 60}, {60, 60}, {60, 20}},
               island = {{30, 30}, {40, 30}, {40, 40}, {30, 40}}, beside = {{60, 20}, {100, 20}, {100, 60}, {60, 60}};
  igsTriangulation triangulation({0, 0}, {100, 100});
  double expected = 0;
  for (const auto& [loop, change] : {std::pair(outer, 10'000), std::pair(hole, -1'600), std::pair(island, 100),
                                     std::pair(beside, -1'600), std::pair(island, -100)}) {
    ASSERT_TRUE(add_loop(triangulation, loop));
    expected += change;
    EXPECT_NEAR(area_inside(triangulation), expected, 1e-9);
  }
  // A seam there and back.
  const std::vector<int> corners = triangulation.add_points(outer);
  EXPECT_TRUE(triangulation.add_constraint(corners[1], corners[3]));
  EXPECT_TRUE(triangulation.add_constraint(corners[3], corners[1]));
  EXPECT_NEAR(area_inside(triangulation), expected, 1e-5);
}

/// The area within a loop that may cross itself, by strips between the heights where anything happens.
double even_odd_area(const Points& loop) {
  std::vector<double> heights;
  const auto next = [&](std::size_t i) { return loop[(i + 1) % loop.size()]; };
  for (std::size_t i = 0; i < loop.size(); ++i) {
    heights.push_back(loop[i].y);
    for (std::size_t j = 0; j < i; ++j) {
      const igsVec2 a = next(i) - loop[i], b = next(j) - loop[j];
      const double t = (loop[j] - loop[i]).cross(b) / a.cross(b);
      if (t > 0 && t < 1) heights.push_back(loop[i].y + t * a.y);
    }
  }
  std::sort(heights.begin(), heights.end());
  double sum = 0;
  for (std::size_t k = 1; k < heights.size(); ++k) {
    const double y = (heights[k - 1] + heights[k]) / 2;
    std::vector<double> crossed;
    for (std::size_t i = 0; i < loop.size(); ++i) {
      const igsVec2 a = loop[i], b = next(i);
      if ((a.y < y) != (b.y < y)) crossed.push_back(a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x));
    }
    std::sort(crossed.begin(), crossed.end());
    for (std::size_t i = 1; i < crossed.size(); i += 2)
      sum += (crossed[i] - crossed[i - 1]) * (heights[k] - heights[k - 1]);
  }
  return sum;
}

TEST(Triangulation, theInsideOfLoopsThatCrossThemselvesHasTheirArea) {
  std::mt19937 random(4);
  for (int round = 0; round < 60; ++round) {
    Points loop = random_points(random, 3 + round, round % 3 == 0 ? 10 : 1 << 20);
    if (round % 3 == 1) {
      loop = along(3 + round, circle);
      for (igsVec2& p : loop) p = p * (0.1 + static_cast<double>(random() % 1000) / 1200) + igsVec2{0.3, 0.3};
    }
    for (igsVec2& p : loop) p = {std::round(p.x), std::round(p.y)};
    igsTriangulation triangulation({0, 0}, {size, size});
    ASSERT_TRUE(add_loop(triangulation, loop));
    expect_sound(triangulation);
    EXPECT_NEAR(area_inside(triangulation) / size / size, even_odd_area(loop) / size / size, 1e-6);
  }
}

TEST(Triangulation, innerPointsAreAddedAndTheirTrianglesTold) {
  std::mt19937 random(5);
  igsTriangulation triangulation({0, 0}, {size, size});
  ASSERT_TRUE(add_loop(triangulation, along(50, circle)));
  ASSERT_TRUE(add_loop(triangulation, {{0.4 * size, 0.4 * size}, {0.6 * size, 0.4 * size}, {0.5 * size, 0.6 * size}}));
  const auto sides = constraints(triangulation);
  const double expected = area_inside(triangulation);
  const std::size_t at_first = triangulation.inside().size();
  EXPECT_EQ(triangulation.take_changed().size(), at_first);
  std::vector<std::array<int, 3>> known;
  for (int t = 0; t < triangulation.num_triangles(); ++t) known.push_back(triangulation.triangle(t));
  for (const igsVec2& point : random_points(random, 2'000, 256)) {
    const int near = static_cast<int>(random() % static_cast<unsigned>(triangulation.num_triangles()));
    const bool is_in = triangulation.is_inside(triangulation.triangle_at(point, near));
    const int vertices = triangulation.num_vertices(), added = triangulation.add_inner_point(point, near);
    EXPECT_EQ(added >= 0, triangulation.num_vertices() > vertices);
    EXPECT_TRUE(added < 0 || is_in);
    known.resize(static_cast<std::size_t>(triangulation.num_triangles()));
    std::set<int> told;
    for (const int t : triangulation.take_changed()) EXPECT_TRUE(triangulation.is_inside(t) && told.insert(t).second);
    for (int t = 0; t < triangulation.num_triangles(); ++t) {
      const std::array<int, 3> is = triangulation.triangle(t),
                               was = std::exchange(known[static_cast<std::size_t>(t)], is);
      ASSERT_EQ(is != was, told.contains(t));
    }
  }
  EXPECT_GT(triangulation.num_vertices(), 700);
  EXPECT_EQ(constraints(triangulation), sides);
  EXPECT_NEAR(area_inside(triangulation), expected, 1e-9 * expected);
  expect_sound(triangulation);
}

TEST(Triangulation, anyInputEnds) {
  constexpr double infinity = std::numeric_limits<double>::infinity(), most = std::numeric_limits<double>::max();
  const double odd[] = {0, 1, 0.5, -1, 1e300, -most, most, infinity, -infinity, std::nan(""), 5e-324, 1e-310};
  std::mt19937 random(6);
  const auto any = [&] { return igsVec2{odd[random() % std::size(odd)], odd[random() % std::size(odd)]}; };
  for (int round = 0; round < 120; ++round) {
    const bool is_odd = round % 3 == 0;
    igsTriangulation triangulation(is_odd ? any() : igsVec2{0, 0}, is_odd ? any() : igsVec2{size, size}, 2'000);
    Points points = random_points(random, 30, round % 3 == 1 ? 5 : 1 << 30);
    if (is_odd) std::generate(points.begin(), points.end(), any);
    // So narrow that parts of constraints, rounded, cross again and again.
    const bool is_narrow = round % 6 == 4;
    for (igsVec2& p : points) p.x = is_narrow ? std::floor(p.x / size * 9) : p.x;
    const std::vector<int> vertices = triangulation.add_points(points);
    for (std::size_t i = 0; i < vertices.size(); ++i) {
      EXPECT_TRUE(triangulation.add_constraint(vertices[i], vertices[random() % vertices.size()]) || is_narrow);
    }
    if (!is_odd) expect_sound(triangulation);
    triangulation.inside();
  }
  igsTriangulation limited({0, 0}, {size, size}, 100);
  EXPECT_FALSE(add_loop(limited, random_points(random, 100, 1 << 30)));
  EXPECT_EQ(limited.crossings().size(), 100U);
  EXPECT_FALSE(add_loop(limited, along(20'000, to_and_fro)));
}
}  // namespace
