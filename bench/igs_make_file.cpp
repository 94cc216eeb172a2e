// Makes a sound file of generated entities with the library:
//
//   igs_make_file MIX MEGABYTES FILE
//
//   wire     lines, arcs under matrices, points, polylines and B-spline curves
//   nurbs    B-spline curves and surfaces of degrees 1 to 7, some rational
//   trimmed  trimmed surfaces, with curves in parameter and model space around them and around holes
//   brep     solids: prisms and cylinders, edges and faces of several kinds
//   mixed    all of these
//
// and groups of them, under colours. Numbers have 15 or more digits. The same arguments give the same file.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <numbers>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "bench.h"
#include "igs/igs.h"

namespace {

const igsStatusFlags independent(0, 0, 0, 0), dependent(0, 1, 0, 0), grouped(0, 2, 0, 0), definition(0, 1, 2, 0),
    parametric(0, 1, 5, 0);

using Points = std::vector<giPoint3>;
using Reals = std::vector<double>;

/// Numbers that do not depend on the standard library.
class Random {
 public:
  double between(double low, double high) {
    return low + (high - low) * static_cast<double>(m_engine() >> 11U) * 0x1p-53;
  }
  int below(int count) { return static_cast<int>(m_engine() % static_cast<unsigned>(count)); }
  bool chance(double p) { return between(0, 1) < p; }
  /// Mostly small, now and then large.
  int spread(double mean) { return static_cast<int>(-mean * std::log(1 - between(0, 1))); }
  template <std::size_t size>
  int one_of(const int (&choices)[size]) {
    return choices[below(static_cast<int>(size))];
  }

 private:
  std::mt19937_64 m_engine{20261121};
};

/// A right-handed frame, turned and moved anyhow.
class Frame {
 public:
  explicit Frame(Random& random) {
    double q[4], norm = 0;
    for (double& c : q) {
      c = random.between(-1, 1);
      norm += c * c;
    }
    const double s = 2 / norm;
    const auto [w, i, j, k] = q;
    const double rows[3][3] = {{1 - s * (j * j + k * k), s * (i * j - k * w), s * (i * k + j * w)},
                               {s * (i * j + k * w), 1 - s * (i * i + k * k), s * (j * k - i * w)},
                               {s * (i * k - j * w), s * (j * k + i * w), 1 - s * (i * i + j * j)}};
    for (int row = 0; row < 3; ++row) {
      std::copy_n(rows[row], 3, m_rows[row]);
      m_rows[row][3] = random.between(-1500, 1500);
    }
  }
  giPoint3 place(double u, double v, double w = 0) const {
    double p[3];
    for (int i = 0; i < 3; ++i) p[i] = m_rows[i][0] * u + m_rows[i][1] * v + m_rows[i][2] * w + m_rows[i][3];
    return {p[0], p[1], p[2]};
  }
  /// A column: where the axis goes.
  giVector3 axis(int i, double sign = 1) const {
    return {sign * m_rows[0][i], sign * m_rows[1][i], sign * m_rows[2][i]};
  }
  const double (&rows() const)[4][4] { return m_rows; }

 private:
  double m_rows[4][4] = {{}, {}, {}, {0, 0, 0, 1}};
};

// Clamped knots of [0, end], the inner ones apart.
Reals clamped_knots(Random& random, int degree, int count, double end) {
  Reals knots(static_cast<std::size_t>(degree) + 1, 0.);
  const int spans = count - degree;
  for (int i = 1; i < spans; ++i) knots.push_back(end * (i + random.between(-.2, .2)) / spans);
  knots.resize(knots.size() + static_cast<std::size_t>(degree) + 1, end);
  return knots;
}

// The values at t of all `count` basis functions, by their definition; t is inside the clamped knots.
Reals basis(const Reals& knots, int degree, int count, double t) {
  Reals values(knots.size() - 1, 0.);
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = knots[i] <= t && t < knots[i + 1] ? 1 : 0;
  for (std::size_t d = 1; d <= static_cast<std::size_t>(degree); ++d) {
    for (std::size_t i = 0; i + d + 1 < knots.size(); ++i) {
      const double left = knots[i + d] - knots[i], right = knots[i + d + 1] - knots[i + 1];
      values[i] = (left > 0 ? (t - knots[i]) / left * values[i] : 0) +
                  (right > 0 ? (knots[i + d + 1] - t) / right * values[i + 1] : 0);
    }
  }
  values.resize(static_cast<std::size_t>(count));
  return values;
}

/// One parametric direction of a surface.
struct Direction {
  int degree = 1, count = 2;
  Reals knots;
};

/// A surface as its numbers.
struct Sheet {
  Direction u, v;
  Points points;  ///< u runs fastest
  Reals weights;
  igs128* surface = nullptr;
};

class Maker {
 public:
  Maker() {
    for (int i = 0; i < 8; ++i) {
      auto* colour = new igs314;
      colour->set_red(i * 37 % 101);
      colour->set_green(i * 61 % 101);
      colour->set_blue(i * 17 % 101);
      colour->set_colour_name("shade " + std::to_string(i));
      colour->directory_entry().set_status_flags(definition);
      m_colours.push_back(colour);
    }
  }

  /// Makes one unit of a mix, or a group of some.
  void make(const std::string& mix) {
    if (!m_random.chance(.02)) {
      unit(mix, independent);
      return;
    }
    std::vector<igsObjectPtr> members;
    for (int i = 2 + m_random.below(28); i > 0; --i) members.emplace_back(unit(mix, grouped));
    auto* group = new igs402_7;
    group->set_entities(std::move(members));
  }

 private:
  igsObject* unit(const std::string& mix, const igsStatusFlags& status) {
    const int part = mix == "mixed" ? m_random.below(58) : -1;
    igsObject* made = nullptr;
    if (mix == "wire" || (part >= 0 && part < 40)) {
      made = wire();
    } else if (mix == "nurbs" || (part >= 0 && part < 52)) {
      made = m_random.chance(.6) ? static_cast<igsObject*>(free_curve())
                                 : free_sheet(m_random.spread(5), m_random.spread(5), true).surface;
    } else if (mix == "trimmed" || (part >= 0 && part < 56)) {
      made = trimmed();
    } else {
      made = solid();
    }
    igsDirectoryEntry& entry = made->directory_entry();
    entry.set_status_flags(status);
    entry.set_level(igsLevel(m_random.below(40)));
    entry.set_line_font(igsLineFont(m_random.one_of({0, 1, 1, 2, 3})));
    igsColour colour(m_random.below(9));
    if (m_random.chance(.6)) colour.set_definition(m_colours[static_cast<std::size_t>(m_random.below(8))]);
    entry.set_colour(colour);
    entry.set_entity_label("PART");
    entry.set_entity_subscript(++m_number % 10000000);
    return made;
  }

  giPoint3 near(const giPoint3& p, double reach) {
    const double x = m_random.between(-reach, reach), y = m_random.between(-reach, reach);
    return {p.x() + x, p.y() + y, p.z() + m_random.between(-reach, reach)};
  }
  igs124* matrix(const Frame& frame) {
    auto* made = new igs124;
    made->set_matrix(frame.rows());
    return made;
  }

  igsObject* wire() {
    const giPoint3 at = near(giPoint3(0, 0, 0), 1500);
    const int kind = m_random.below(100);
    if (kind < 58) return line(at, near(at, 90));
    if (kind < 78) {
      igs100* made = arc({at.x(), at.y()}, m_random.between(.5, 120), m_random.between(-50, 50));
      if (m_random.chance(.5)) made->directory_entry().set_matrix(igsObjectPtr(matrix(Frame(m_random))));
      return made;
    }
    if (kind < 90) return point(at);
    if (kind < 96) return polyline(at);
    return free_curve();
  }
  static igs110* line(const giPoint3& start, const giPoint3& end) {
    auto* made = new igs110;
    made->set_start_point(start);
    made->set_end_point(end);
    return made;
  }
  igs100* arc(const giPoint2& centre, double radius, double z) {
    const double a = m_random.between(0, 6), b = m_random.between(0, 6);
    return arc(centre, {centre.x() + radius * std::cos(a), centre.y() + radius * std::sin(a)},
               {centre.x() + radius * std::cos(b), centre.y() + radius * std::sin(b)}, z);
  }
  static igs100* arc(const giPoint2& centre, const giPoint2& start, const giPoint2& end, double z) {
    auto* made = new igs100;
    made->set_z_level(z);
    made->set_centre(centre);
    made->set_start_point(start);
    made->set_end_point(end);
    return made;
  }
  static igs116* point(const giPoint3& at) {
    auto* made = new igs116;
    made->set_point(at);
    return made;
  }
  igsPolyline* polyline(giPoint3 at) {
    auto* made = new igsPolyline;
    const int count = 3 + m_random.below(37);
    made->set_size(2, count);
    for (int i = 0; i < count; ++i) made->set_point(i, at = near(at, 12));
    return made;
  }

  static igs126* curve(const Direction& direction, const Points& points, const Reals& weights, double start,
                       double end) {
    auto* made = new igs126;
    made->set_order_size(direction.degree + 1, direction.count);
    for (int i = 0; i < made->number_of_knots(); ++i) made->set_knot(i, direction.knots[static_cast<std::size_t>(i)]);
    for (int i = 0; i < direction.count; ++i) {
      made->set_control_point(i, points[static_cast<std::size_t>(i)]);
      made->set_weight(i, weights.empty() ? 1 : weights[static_cast<std::size_t>(i)]);
    }
    made->set_rational_flag(weights.empty() ? 1 : 0);
    made->set_parametric_limits(start, end);
    made->set_unit_normal(giVector3(0, 0, 0));
    return made;
  }
  /// A straight piece of a curve.
  static igs126* straight(const giPoint3& start, const giPoint3& end) {
    return curve({1, 2, {0, 0, 1, 1}}, {start, end}, {}, 0, 1);
  }
  igs126* free_curve() {
    const int degree = m_random.one_of({1, 2, 3, 3, 3, 3, 4, 5, 5, 7});
    const int count = degree + 1 + m_random.spread(12);
    const double step = m_random.between(2, 40), end = m_random.chance(.5) ? 1 : step * count;
    const Frame frame(m_random);
    Points points;
    Reals weights;
    const bool rational = m_random.chance(.25);
    for (int i = 0; i < count; ++i) {
      const double v = m_random.between(-step, step);
      points.push_back(frame.place(step * (i + m_random.between(0, .5)), v, m_random.between(-step, step)));
      if (rational) weights.push_back(m_random.between(.4, 2.5));
    }
    igs126* made = curve({degree, count, clamped_knots(m_random, degree, count, end)}, points, weights, 0, end);
    if (m_random.chance(.1)) made->directory_entry().set_matrix(igsObjectPtr(matrix(Frame(m_random))));
    return made;
  }

  static std::size_t index(const Sheet& sheet, int i, int j) {
    return static_cast<std::size_t>(j) * static_cast<std::size_t>(sheet.u.count) + static_cast<std::size_t>(i);
  }
  static igs128* surface(const Sheet& sheet) {
    auto* made = new igs128;
    made->set_order_size(sheet.u.degree + 1, sheet.v.degree + 1, sheet.u.count, sheet.v.count);
    for (int i = 0; i < made->number_of_knots_u(); ++i) made->set_knot_u(i, sheet.u.knots[static_cast<std::size_t>(i)]);
    for (int i = 0; i < made->number_of_knots_v(); ++i) made->set_knot_v(i, sheet.v.knots[static_cast<std::size_t>(i)]);
    for (int j = 0; j < sheet.v.count; ++j) {
      for (int i = 0; i < sheet.u.count; ++i) {
        const std::size_t at = index(sheet, i, j);
        made->set_control_point(i, j, sheet.points[at]);
        made->set_weight(i, j, sheet.weights.empty() ? 1 : sheet.weights[at]);
      }
    }
    made->set_rational_flag(sheet.weights.empty() ? 1 : 0);
    made->set_parametric_limits_u(sheet.u.knots.front(), sheet.u.knots.back());
    made->set_parametric_limits_v(sheet.v.knots.front(), sheet.v.knots.back());
    return made;
  }
  Sheet free_sheet(int more_u, int more_v, bool rational) {
    Sheet sheet;
    const double size_u = m_random.between(20, 300), size_v = m_random.between(20, 300);
    sheet.u.degree = m_random.one_of({1, 2, 3, 3, 3, 5});
    sheet.v.degree = m_random.one_of({1, 2, 3, 3, 4, 5});
    for (auto [direction, more, end] : {std::tuple(&sheet.u, more_u, 1.), {&sheet.v, more_v, size_v}}) {
      direction->count = direction->degree + 1 + more;
      direction->knots = clamped_knots(m_random, direction->degree, direction->count, end);
    }
    const Frame frame(m_random);
    const double bump = m_random.between(0, 15);
    rational = rational && m_random.chance(.25);
    for (int j = 0; j < sheet.v.count; ++j) {
      for (int i = 0; i < sheet.u.count; ++i) {
        sheet.points.push_back(frame.place(size_u * i / (sheet.u.count - 1), size_v * j / (sheet.v.count - 1),
                                           bump * (std::sin(i) * std::cos(.7 * j) + m_random.between(0, .1))));
        if (rational) sheet.weights.push_back(m_random.between(.5, 2));
      }
    }
    sheet.surface = surface(sheet);
    return sheet;
  }

  /// The isoparametric curve of a sheet that is not rational, between two parameters in either order.
  static igs126* iso_curve(const Sheet& sheet, bool along_u, double at, double start, double end) {
    Direction along = along_u ? sheet.u : sheet.v;
    const Direction& across = along_u ? sheet.v : sheet.u;
    const Reals values = basis(across.knots, across.degree, across.count, at);
    Points points;
    for (int k = 0; k < along.count; ++k) {
      double sum[3] = {};
      for (int m = 0; m < across.count; ++m) {
        const double share = values[static_cast<std::size_t>(m)];
        const giPoint3& p = sheet.points[along_u ? index(sheet, k, m) : index(sheet, m, k)];
        sum[0] += share * p.x(), sum[1] += share * p.y(), sum[2] += share * p.z();
      }
      points.emplace_back(sum[0], sum[1], sum[2]);
    }
    if (start > end) {
      const double last = along.knots.back();
      std::reverse(points.begin(), points.end());
      std::reverse(along.knots.begin(), along.knots.end());
      for (double& knot : along.knots) knot = last - knot;
      start = last - start, end = last - end;
    }
    return curve(along, points, {}, start, end);
  }
  static igs102* composite(const std::array<igsObject*, 4>& parts, const igsStatusFlags& status) {
    auto* made = new igs102;
    made->set_size(4);
    for (int i = 0; i < 4; ++i) {
      parts[static_cast<std::size_t>(i)]->directory_entry().set_status_flags(status);
      made->set_sub_curve(i, parts[static_cast<std::size_t>(i)]);
    }
    made->directory_entry().set_status_flags(status);
    return made;
  }
  /// Around a rectangle of parameters; a hole has u0 > u1.
  igs142* boundary(const Sheet& sheet, double u0, double v0, double u1, double v1) {
    const std::array<giPoint3, 5> ring = {giPoint3(u0, v0, 0), {u1, v0, 0}, {u1, v1, 0}, {u0, v1, 0}, {u0, v0, 0}};
    std::array<igsObject*, 4> flat{}, sides{};
    for (std::size_t k = 0; k < 4; ++k) {
      const giPoint3 &a = ring[k], &b = ring[k + 1];
      flat[k] = m_random.chance(.3) ? static_cast<igsObject*>(line(a, b)) : straight(a, b);
      sides[k] =
          k % 2 == 0 ? iso_curve(sheet, true, a.y(), a.x(), b.x()) : iso_curve(sheet, false, a.x(), a.y(), b.y());
    }
    auto* made = new igs142;
    made->set_curve_creation(3);
    made->set_surface(sheet.surface);
    made->set_curve_2d(composite(flat, parametric));
    made->set_curve_3d(composite(sides, dependent));
    made->set_preferred_representation(m_random.one_of({1, 2, 2, 3}));
    made->directory_entry().set_status_flags(dependent);
    return made;
  }
  igs144* trimmed() {
    const Sheet sheet = free_sheet(m_random.spread(3), m_random.spread(3), false);
    sheet.surface->directory_entry().set_status_flags(dependent);
    const double w = sheet.v.knots.back();
    auto* made = new igs144;
    made->set_surface(sheet.surface);
    made->set_outer_boundary_flag(1);
    const double left = m_random.between(.02, .2), low = w * m_random.between(.02, .2);
    made->set_outer_boundary(boundary(sheet, left, low, m_random.between(.8, .98), w * m_random.between(.8, .98)));
    const int count = m_random.one_of({0, 0, 0, 1, 1, 2, 3});
    std::vector<igsObjectPtr> holes;
    for (int i = 0; i < count; ++i) {
      const double from = .25 + .5 * i / count, to = from + .4 / count * m_random.between(.3, .9);
      const double bottom = w * m_random.between(.25, .45);
      holes.emplace_back(boundary(sheet, to, bottom, from, w * m_random.between(.55, .75)));
    }
    made->set_inner_boundaries(std::move(holes));
    return made;
  }

  template <class E>
  static E* depending(E* entity) {
    entity->directory_entry().set_status_flags(dependent);
    return entity;
  }
  static igs123* direction(const giVector3& v) {
    auto* made = new igs123;
    made->set_direction(v);
    made->directory_entry().set_status_flags(definition);
    return made;
  }
  /// A step of a loop: an edge of the list, followed or gone against.
  struct Step {
    int edge = 0, orientation = 1;
  };
  static igsOrientedFace face(igsObject* surface, igs504* edges, const std::vector<Step>& steps,
                              const std::vector<igsObject*>& flat = {}) {
    auto* loop = depending(new igs508);
    loop->set_size(static_cast<int>(steps.size()));
    for (std::size_t i = 0; i < steps.size(); ++i) {
      igsOrientedEdge& edge = *loop->oriented_edge_at(static_cast<int>(i));
      edge.set_edge(edges, steps[i].edge);
      edge.set_orientation(steps[i].orientation);
      if (flat.empty()) continue;
      edge.set_num_half_edges(1);
      edge.set_half_edge(0, igsHalfEdge(flat[i], 0));
    }
    auto* made = depending(new igs510);
    made->set_surface(depending(surface));
    made->set_outer_loop_flag(1);
    made->set_size(1);
    made->set_loop(loop, 0);
    return {made, 1};
  }
  static igs502* vertices(const Points& points) {
    auto* made = depending(new igs502);
    made->set_size(static_cast<int>(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i) made->set_vertex(static_cast<int>(i), points[i]);
    return made;
  }
  static void set_edge(igs504* list, int i, igsObject* curve, igs502* ends, int first, int second) {
    igsEdge edge;
    edge.set_curve(depending(curve));
    edge.set_first_vertex(ends, first);
    edge.set_second_vertex(ends, second);
    list->set_edge(i, edge);
  }
  static igs514* shell(const std::vector<igsOrientedFace>& faces) {
    auto* made = depending(new igs514);
    made->set_size(static_cast<int>(faces.size()));
    for (std::size_t i = 0; i < faces.size(); ++i) made->set_face(static_cast<int>(i), faces[i]);
    return made;
  }

  igs190_1* plane(igs116* location, igs123* normal, igs123* reference) {
    auto* made = new igs190_1;
    made->set_location(location);
    made->set_normal(normal);
    made->set_ref_direction(reference);
    return made;
  }
  /// A rectangle of a prism, given by its corners: a plane, or a bilinear surface with the curves in its parameters.
  igsOrientedFace side(const Points& corners, igs504* edges, const std::vector<Step>& steps, bool patches) {
    const auto along = [](const giPoint3& a, const giPoint3& b) {
      const double length = a.distance(b);
      return giVector3((b.x() - a.x()) / length, (b.y() - a.y()) / length, (b.z() - a.z()) / length);
    };
    const giVector3 x = along(corners[0], corners[1]), y = along(corners[0], corners[3]);
    if (!patches) {
      const giVector3 z(x.y() * y.z() - x.z() * y.y(), x.z() * y.x() - x.x() * y.z(), x.x() * y.y() - x.y() * y.x());
      return face(plane(depending(point(corners[0])), direction(z), direction(x)), edges, steps);
    }
    const double width = corners[0].distance(corners[1]), height = corners[0].distance(corners[3]);
    Sheet sheet;
    sheet.u.knots = {0, 0, width, width};
    sheet.v.knots = {0, 0, height, height};
    sheet.points = {corners[0], corners[1], corners[3], corners[2]};
    const Points flat = {{0, 0, 0}, {width, 0, 0}, {width, height, 0}, {0, height, 0}, {0, 0, 0}};
    std::vector<igsObject*> curves;
    for (std::size_t i = 0; i < 4; ++i) {
      curves.push_back(straight(flat[i], flat[i + 1]));
      curves.back()->directory_entry().set_status_flags(parametric);
    }
    return face(surface(sheet), edges, steps, curves);
  }
  /// A prism of n sides; bottom edges come first, then top edges, then upright ones.
  igs514* prism(const Frame& frame, int n, double radius, double low, double high) {
    Points points;
    for (const double z : {low, high}) {
      for (int k = 0; k < n; ++k) {
        const double a = 2 * std::numbers::pi * k / n;
        points.push_back(frame.place(radius * std::cos(a), radius * std::sin(a), z));
      }
    }
    igs502* const ends = vertices(points);
    auto* edges = depending(new igs504);
    edges->set_size(3 * n);
    const bool splines = m_random.chance(.4), patches = m_random.chance(.5);
    const auto add = [&](int i, int a, int b) {
      const giPoint3 &p = points[static_cast<std::size_t>(a)], &q = points[static_cast<std::size_t>(b)];
      set_edge(edges, i, splines ? static_cast<igsObject*>(straight(p, q)) : line(p, q), ends, a, b);
    };
    for (int k = 0; k < n; ++k) {
      const int next = (k + 1) % n;
      add(k, k, next);
      add(n + k, n + k, n + next);
      add(2 * n + k, k, n + k);
    }
    std::vector<igsOrientedFace> faces;
    std::vector<Step> bottom, top;
    for (int k = 0; k < n; ++k) {
      const int next = (k + 1) % n;
      const auto at = [&](int i) { return points[static_cast<std::size_t>(i)]; };
      faces.push_back(side({at(k), at(next), at(n + next), at(n + k)}, edges,
                           {{k, 1}, {2 * n + next, 1}, {n + k, 0}, {2 * n + k, 0}}, patches));
      bottom.push_back({n - 1 - k, 0});
      top.push_back({n + k, 1});
    }
    igs123* const x = direction(frame.axis(0));
    faces.push_back(face(plane(depending(point(points.front())), direction(frame.axis(2, -1)), x), edges, bottom));
    faces.push_back(face(plane(depending(point(points.back())), direction(frame.axis(2)), x), edges, top));
    return shell(faces);
  }
  /// Two half cylinders and two caps.
  igs514* cylinder(const Frame& frame, double r, double h) {
    igs124* const to_place = matrix(frame);
    const Points points = {frame.place(r, 0), frame.place(-r, 0), frame.place(r, 0, h), frame.place(-r, 0, h)};
    igs502* const ends = vertices(points);
    auto* edges = depending(new igs504);
    edges->set_size(6);
    for (int i = 0; i < 4; ++i) {
      const double start = i % 2 == 0 ? r : -r;
      igs100* half = arc({0, 0}, {start, 0}, {-start, 0}, i < 2 ? 0 : h);
      half->directory_entry().set_matrix(igsObjectPtr(to_place));
      const int first = i / 2 * 2 + i % 2;
      set_edge(edges, i, half, ends, first, i / 2 * 2 + 1 - i % 2);
    }
    for (int i = 0; i < 2; ++i) {
      set_edge(edges, 4 + i, line(points[static_cast<std::size_t>(i)], points[static_cast<std::size_t>(i) + 2]), ends,
               i, i + 2);
    }
    igs116* const base = depending(point(frame.place(0, 0)));
    igs123 *const up = direction(frame.axis(2)), *const x = direction(frame.axis(0));
    const auto hull = [&] {
      auto* made = new igs192_1;
      made->set_location(base);
      made->set_axis(up);
      made->set_radius(r);
      made->set_ref_direction(x);
      return made;
    };
    return shell({face(hull(), edges, {{0, 1}, {5, 1}, {2, 0}, {4, 0}}),
                  face(hull(), edges, {{1, 1}, {4, 1}, {3, 0}, {5, 0}}),
                  face(plane(depending(point(frame.place(0, 0, h))), up, x), edges, {{2, 1}, {3, 1}}),
                  face(plane(base, direction(frame.axis(2, -1)), x), edges, {{1, 0}, {0, 0}})});
  }
  igs186* solid() {
    const Frame frame(m_random);
    const double radius = m_random.between(5, 60), height = m_random.between(3, 90);
    const int n = m_random.chance(.5) ? 4 : 3 + m_random.below(8);
    auto* made = new igs186;
    if (m_random.chance(.15)) {
      made->set_outer_shell({cylinder(frame, radius, height), 1});
    } else {
      made->set_outer_shell({prism(frame, n, radius, 0, height), 1});
      if (m_random.chance(.1)) {
        made->set_size(1);
        made->set_void_shell(0, {prism(frame, n, radius * .5, height * .25, height * .75), 0});
      }
    }
    return made;
  }

  Random m_random;
  std::vector<igsObject*> m_colours;
  int m_number = 0;
};

void describe(igsFile& file, const std::string& mix) {
  igsStartSection start;
  start.set_line(0, "Generated entities for measurements, no real product: " + mix + ".");
  file.set_start_section(start);
  igsGlobalSection global;
  global.set_product_id_from_sending_system("generated part");
  global.set_file_name(mix + ".igs");
  global.set_system_id("igs");
  global.set_preprocessor_version("igs_make_file");
  global.set_binary_bits_for_int(32);
  global.set_sp_max_pow10(38);
  global.set_sp_sig_digs(6);
  global.set_dp_max_pow10(308);
  global.set_dp_sig_digs(15);
  global.set_max_number_of_line_weights(8);
  global.set_width_of_max_line_weight(.8);
  global.set_file_creation_date(igsDate("20240229.120000"));
  global.set_minimum_resolution(1e-6);
  global.set_max_coord_value(20000);
  global.set_iges_version(11);
  global.set_file_modification_date(igsDate("20240229.120000"));
  file.set_global_section(global);
}

double size_as_written(igsFile& file) {
  igs_bench::NullBuffer buffer;
  std::ostream out(&buffer);
  utOstream messages(std::cerr);
  file.write(out, messages);
  return static_cast<double>(buffer.size());
}

// Samples, a small one and a larger one, tell how many entities make up the size.
void fill(igsFile& file, const std::string& mix, double size) {
  Maker maker;
  const double empty = size_as_written(file);
  double wanted = 100;
  for (const double target : {std::min(size, 2e6) / 2, size, 0.}) {
    while (file.num_entities() < wanted) maker.make(mix);
    if (target > 0) wanted = (target - empty) / (size_as_written(file) - empty) * file.num_entities();
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::string mix = argc == 4 ? argv[1] : "";
  const double size = argc == 4 ? std::strtod(argv[2], nullptr) * 1e6 : 0;
  constexpr std::array mixes = {"wire", "nurbs", "trimmed", "brep", "mixed"};
  if (std::find(mixes.begin(), mixes.end(), mix) == mixes.end() || !(size > 0)) {
    std::fprintf(stderr, "usage: igs_make_file wire|nurbs|trimmed|brep|mixed MEGABYTES FILE\n");
    return 2;
  }
  igsFile file;
  describe(file, mix);
  fill(file, mix, size);
  std::ofstream out(argv[3], std::ios::binary);
  utOstream messages(std::cerr);
  return file.write(out, messages) != 0 && out.flush() ? 0 : 1;
}
