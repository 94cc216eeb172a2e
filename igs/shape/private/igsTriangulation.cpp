#include "igs/shape/private/igsTriangulation.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr std::int32_t grid_size = 1 << 30, corner_distance = 1 << 28;
constexpr int num_corners = 4;
constexpr std::int64_t work_always = 1'000'000, work_per_vertex = 256;
constexpr std::uint8_t is_edge = 1, is_odd = 2;

constexpr std::size_t index(int number) { return static_cast<std::size_t>(number); }
constexpr std::size_t after(int corner) { return index(corner == 2 ? 0 : corner + 1); }
constexpr std::size_t before(int corner) { return index(corner == 0 ? 2 : corner - 1); }

double number_or_0(double x) { return std::isfinite(x) ? x : 0; }

std::int32_t grid_coordinate(double x, double low, double step) {
  if (!(step > 0)) return 0;
  const double steps = 2 * ((0.5 * x - 0.5 * low) / step);
  return static_cast<std::int32_t>(std::lround(std::clamp(steps, 0.0, double{grid_size})));
}

/// The bits of x and y in turns, which brings together what is close together.
std::uint64_t place_on_z_curve(const igsGridPoint& point) {
  std::uint64_t place = 0;
  for (int bit = 30; bit > 0; --bit) {
    place = place << 2 | static_cast<unsigned>(point.x >> bit & 1) << 1 | static_cast<unsigned>(point.y >> bit & 1);
  }
  return place;
}

/// About half of all numbers have round 15, half of the rest 14, and so on.
std::uint64_t round_of(std::size_t number) {
  std::uint32_t bits = static_cast<std::uint32_t>(number) * 0x9e3779b9U;
  bits = (bits ^ bits >> 15) * 0x85ebca6bU;
  bits ^= bits >> 13;
  std::uint64_t round = 15;
  for (; round > 0 && (bits & 1) == 0; bits >>= 1) --round;
  return round;
}

bool is_ahead(const igsGridPoint& from, const igsGridPoint& to, const igsGridPoint& point) {
  return (std::int64_t{to.x} - from.x) * (std::int64_t{point.x} - from.x) +
             (std::int64_t{to.y} - from.y) * (std::int64_t{point.y} - from.y) >
         0;
}

/// The point of the grid next to where ab crosses cd; it lies in the boxes of both.
igsGridPoint crossing_of(const igsGridPoint& a, const igsGridPoint& b, const igsGridPoint& c, const igsGridPoint& d) {
  const double before = static_cast<double>(igs_turn(c, d, a)), after = static_cast<double>(igs_turn(c, d, b));
  const double t = before / (before - after);
  return {static_cast<std::int32_t>(std::lround(a.x + t * static_cast<double>(std::int64_t{b.x} - a.x))),
          static_cast<std::int32_t>(std::lround(a.y + t * static_cast<double>(std::int64_t{b.y} - a.y)))};
}

/// The corner that is neither of the two.
int corner_opposite(const std::array<int, 3>& vertices, int a, int b) {
  int corner = 0;
  while (corner < 2 && (vertices[index(corner)] == a || vertices[index(corner)] == b)) ++corner;
  return corner;
}
}  // namespace

/// A side of a triangle, by its vertices.
struct igsTriangulation::Border {
  std::pair<int, int> vertices;
  Side side;
  int beyond;  ///< neighbour
  std::uint8_t edge;

  bool operator<(const Border& other) const { return vertices < other.vertices; }
  static const Border* find(const std::vector<Border>& borders, int from, int to) {
    const auto found = std::lower_bound(borders.begin(), borders.end(), Border{{from, to}, {}, 0, 0});
    return found != borders.end() && found->vertices == std::pair(from, to) ? &*found : nullptr;
  }
};

igsTriangulation::igsTriangulation(const igsVec2& low, const igsVec2& high, std::size_t most_crossings)
    : m_low{number_or_0(std::min(low.x, high.x)), number_or_0(std::min(low.y, high.y))},
      m_high{std::max(m_low.x, number_or_0(high.x)), std::max(m_low.y, number_or_0(high.y))},
      m_step(std::max(0.5 * m_high.x - 0.5 * m_low.x, 0.5 * m_high.y - 0.5 * m_low.y) / (0.5 * grid_size)),
      m_cuts_left(most_crossings) {
  constexpr std::int32_t first = -corner_distance, last = grid_size + corner_distance;
  for (const igsGridPoint& corner :
       {igsGridPoint{first, first}, igsGridPoint{last, first}, igsGridPoint{last, last}, igsGridPoint{first, last}}) {
    m_vertices.push_back({corner, 0, {m_low.x + m_step * corner.x, m_low.y + m_step * corner.y}});
  }
  m_vertices[3].triangle = 1;
  m_triangles = {{{0, 1, 2}, {-1, 1, -1}}, {{0, 2, 3}, {-1, -1, 0}}};
}

void igsTriangulation::reserve(std::size_t num_vertices) {
  m_vertices.reserve(num_vertices + num_corners);
  m_triangles.reserve(2 * num_vertices + 2);
}

// Points are added in rounds, each about twice as large as all before and random among the points: no order of theirs
// makes the flips many. Within a round they follow a curve that makes the ways short.
std::vector<int> igsTriangulation::add_points(const std::vector<igsVec2>& points) {
  std::vector<std::pair<std::uint64_t, std::size_t>> order(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    order[i] = {round_of(i) << 60 | place_on_z_curve(node_at(points[i])), i};
  }
  std::sort(order.begin(), order.end());
  reserve(m_vertices.size() + points.size());
  std::vector<int> numbers(points.size());
  for (const auto& [key, i] : order) numbers[i] = add_point(points[i]);
  return numbers;
}

int igsTriangulation::add_point(const igsVec2& point, int near) {
  const igsGridPoint node = node_at(point);
  const Place place = locate(node, near);
  return place.vertex >= 0 ? place.vertex : add(place, node, within_bounds(point));
}

int igsTriangulation::add_inner_point(const igsVec2& point, int near) {
  find_inside();
  const igsGridPoint node = node_at(point);
  const Place place = locate(node, near);
  if (place.vertex >= 0 || !at(place.triangle).is_inside) return -1;
  if (place.side >= 0 && is_constraint(place.triangle, place.side)) return -1;
  return add(place, node, within_bounds(point));
}

bool igsTriangulation::add_constraint(int from, int to) {
  if (std::min(from, to) < num_corners || std::max(from, to) >= num_vertices()) return false;
  m_is_inside_known = false;
  m_pieces = {{from, to, is_edge | is_odd}};
  while (!m_pieces.empty()) {
    const Piece piece = m_pieces.back();
    m_pieces.pop_back();
    if (!lay(piece)) return false;
  }
  return true;
}

int igsTriangulation::triangle_at(const igsVec2& point, int near) { return locate(node_at(point), near).triangle; }

bool igsTriangulation::is_inside(int triangle) {
  find_inside();
  return at(triangle).is_inside;
}

std::vector<std::array<int, 3>> igsTriangulation::inside() {
  find_inside();
  std::vector<std::array<int, 3>> triangles;
  for (const Triangle& triangle : m_triangles) {
    if (triangle.is_inside) triangles.push_back(triangle.vertices);
  }
  return triangles;
}

std::vector<int> igsTriangulation::take_changed() {
  find_inside();
  for (const int triangle : m_changed) at(triangle).is_changed = false;
  return std::exchange(m_changed, {});
}

igsGridPoint igsTriangulation::node_at(const igsVec2& point) const {
  const igsVec2 p = within_bounds(point);
  return {grid_coordinate(p.x, m_low.x, m_step), grid_coordinate(p.y, m_low.y, m_step)};
}

igsVec2 igsTriangulation::within_bounds(const igsVec2& point) const {
  if (std::isnan(point.x) || std::isnan(point.y)) return m_low;
  return {std::clamp(point.x, m_low.x, m_high.x), std::clamp(point.y, m_low.y, m_high.y)};
}

// The way from a triangle to the point goes over sides that have it beyond them, chosen at random where there are two,
// so that it ends. Where it gets long, it goes on from a triangle near by.
igsTriangulation::Place igsTriangulation::locate(const igsGridPoint& node, int near) {
  constexpr int long_way = 32;
  int triangle = near >= 0 && near < num_triangles() ? near : m_last;
  const int most = long_way + 2 * num_triangles();
  int steps = 0;
  for (; steps < most; ++steps) {
    if (steps == long_way) triangle = nearer_start(node, triangle);
    const int side = side_before(triangle, node);
    if (side < 0) break;
    triangle = at(triangle).neighbours[index(side)];
  }
  m_searched += steps;
  if (steps == most) {
    for (triangle = 0; side_before(triangle, node) >= 0;) ++triangle;
  }
  m_last = triangle;
  return place_in(triangle, node);
}

int igsTriangulation::nearer_start(const igsGridPoint& node, int start) {
  const auto distance = [&](int triangle) {
    const igsGridPoint& corner = this->node(at(triangle).vertices[0]);
    const std::int64_t x = std::int64_t{node.x} - corner.x, y = std::int64_t{node.y} - corner.y;
    return x * x + y * y;
  };
  std::int64_t least = distance(start);
  const int samples = static_cast<int>(std::cbrt(m_vertices.size()));
  for (int i = 0; i < samples; ++i) {
    const int triangle = m_vertices[random(m_vertices.size())].triangle;
    const std::int64_t found = distance(triangle);
    if (found >= least) continue;
    least = found;
    start = triangle;
  }
  m_searched += samples;
  return start;
}

/// A side that has the point beyond it; -1 when there is none.
int igsTriangulation::side_before(int triangle, const igsGridPoint& node) {
  const std::array<int, 3>& vertices = at(triangle).vertices;
  int side = static_cast<int>(random(3));
  for (int i = 0; i < 3; ++i) {
    side = static_cast<int>(after(side));
    if (igs_turn(this->node(vertices[after(side)]), this->node(vertices[before(side)]), node) < 0) return side;
  }
  return -1;
}

igsTriangulation::Place igsTriangulation::place_in(int triangle, const igsGridPoint& node) const {
  Place place{triangle};
  const std::array<int, 3>& vertices = at(triangle).vertices;
  for (int i = 0; i < 3; ++i) {
    if (this->node(vertices[index(i)]) == node) place.vertex = vertices[index(i)];
    if (igs_turn(this->node(vertices[after(i)]), this->node(vertices[before(i)]), node) == 0) place.side = i;
  }
  return place;
}

std::uint32_t igsTriangulation::random(std::size_t below) {
  m_random = m_random * 1664525U + 1013904223U;
  return static_cast<std::uint32_t>(std::uint64_t{m_random} * below >> 32);
}

int igsTriangulation::add(const Place& place, const igsGridPoint& node, const igsVec2& point) {
  const int vertex = num_vertices();
  m_vertices.push_back({node, place.triangle, point});
  split(place.triangle, std::max(place.side, 0), vertex);
  if (place.side >= 0) split_edge(place.triangle);
  restore(false);
  m_last = m_vertices.back().triangle;
  return vertex;
}

/// Makes three triangles of one, all of them with the vertex as their first corner. The triangle itself keeps the side.
void igsTriangulation::split(int triangle, int side, int vertex) {
  const Triangle old = at(triangle);
  const int second = num_triangles(), third = second + 1;
  const std::size_t ab = index(side), bc = after(side), ca = before(side);
  const int c = old.vertices[ab], a = old.vertices[bc], b = old.vertices[ca];
  m_triangles.resize(m_triangles.size() + 2);
  const bool is_inside = old.is_inside;
  put(triangle, {{vertex, a, b}, {old.neighbours[ab], second, third}, {old.edges[ab], 0, 0}, is_inside});
  put(second, {{vertex, b, c}, {old.neighbours[bc], third, triangle}, {old.edges[bc], 0, 0}, is_inside});
  put(third, {{vertex, c, a}, {old.neighbours[ca], triangle, second}, {old.edges[ca], 0, 0}, is_inside});
  for (const int part : {second, third}) {
    const int beyond = at(part).neighbours[0];
    if (beyond >= 0) at(beyond).neighbours[index(side_towards(beyond, triangle))] = part;
  }
  m_sides.insert(m_sides.end(), {{triangle, 0}, {second, 0}, {third, 0}});
}

/// After split() by a vertex on the side that the triangle keeps.
void igsTriangulation::split_edge(int triangle) {
  const std::uint8_t edge = at(triangle).edges[0];
  const int beyond = at(triangle).neighbours[0];
  flip({triangle, 0});
  m_sides.push_back({beyond, 0});
  set_edge({triangle, 2}, edge);
  set_edge({beyond, 1}, edge);
}

void igsTriangulation::put(int number, const Triangle& triangle) {
  const bool is_changed = at(number).is_changed;
  at(number) = triangle;
  at(number).is_changed = is_changed;
  for (const int vertex : triangle.vertices) m_vertices[index(vertex)].triangle = number;
  note_change(number);
}

int igsTriangulation::side_towards(int triangle, int neighbour) const {
  const std::array<int, 3>& neighbours = at(triangle).neighbours;
  return neighbours[0] == neighbour ? 0 : neighbours[1] == neighbour ? 1 : 2;
}

void igsTriangulation::set_edge(const Side& side, std::uint8_t edge) {
  at(side.triangle).edges[index(side.side)] = edge;
  const int beyond = at(side.triangle).neighbours[index(side.side)];
  at(beyond).edges[index(side_towards(beyond, side.triangle))] = edge;
}

/// Replaces the side by the other diagonal. Both triangles then have the corner opposite to the side as their first,
/// and are inside where the one beyond was.
void igsTriangulation::flip(const Side& side) {
  const int triangle = side.triangle, beyond = at(triangle).neighbours[index(side.side)];
  const Triangle near = at(triangle), far = at(beyond);
  const int j = side_towards(beyond, triangle);
  const std::size_t pa = before(side.side), bp = after(side.side), aq = after(j), qb = before(j);
  const int p = near.vertices[index(side.side)], q = far.vertices[index(j)];
  const int a = near.vertices[bp], b = near.vertices[pa];
  put(triangle, {{p, a, q},
                 {far.neighbours[aq], beyond, near.neighbours[pa]},
                 {far.edges[aq], 0, near.edges[pa]},
                 far.is_inside});
  put(beyond, {{p, q, b},
               {far.neighbours[qb], near.neighbours[bp], triangle},
               {far.edges[qb], near.edges[bp], 0},
               far.is_inside});
  if (const int moved = far.neighbours[aq]; moved >= 0) {
    at(moved).neighbours[index(side_towards(moved, beyond))] = triangle;
  }
  if (const int moved = near.neighbours[bp]; moved >= 0) {
    at(moved).neighbours[index(side_towards(moved, triangle))] = beyond;
  }
}

bool igsTriangulation::has_work_left() const { return m_work < work_always + work_per_vertex * num_vertices(); }

bool igsTriangulation::should_flip(const Side& side) const {
  const Triangle& triangle = at(side.triangle);
  const int beyond = triangle.neighbours[index(side.side)];
  if (beyond < 0 || triangle.edges[index(side.side)] != 0) return false;
  const int opposite = at(beyond).vertices[index(side_towards(beyond, side.triangle))];
  return igs_in_circle(node(triangle.vertices[0]), node(triangle.vertices[1]), node(triangle.vertices[2]),
                       node(opposite));
}

/// Flips until the triangles are Delaunay again, where they are not because of the sides at hand. After a new vertex
/// these are opposite to it, and so are all others that may follow; after anything else they may be anywhere.
void igsTriangulation::restore(bool everywhere) {
  while (!m_sides.empty()) {
    const Side side = m_sides.back();
    m_sides.pop_back();
    if (!has_work_left() || !should_flip(side)) continue;
    ++m_work;
    const int beyond = at(side.triangle).neighbours[index(side.side)];
    flip(side);
    m_sides.insert(m_sides.end(), {{side.triangle, 0}, {beyond, 0}});
    if (everywhere) m_sides.insert(m_sides.end(), {{side.triangle, 2}, {beyond, 1}});
  }
}

void igsTriangulation::note_change(int triangle) {
  Triangle& changed = at(triangle);
  if (!m_is_inside_known || !changed.is_inside || changed.is_changed) return;
  changed.is_changed = true;
  m_changed.push_back(triangle);
}

/// Goes from the border inwards, all that can be reached without crossing another odd constraint before the rest.
void igsTriangulation::find_inside() {
  if (m_is_inside_known) return;
  m_is_inside_known = true;
  m_changed.clear();
  std::vector<bool> is_known(m_triangles.size());
  std::vector<int> reached = {m_vertices[0].triangle}, beyond;
  for (bool is_inside = false; !reached.empty(); is_inside = !is_inside, std::swap(reached, beyond)) {
    while (!reached.empty()) {
      const int number = reached.back();
      reached.pop_back();
      if (is_known[index(number)]) continue;
      is_known[index(number)] = true;
      Triangle& triangle = at(number);
      triangle.is_inside = is_inside;
      triangle.is_changed = false;
      note_change(number);
      for (std::size_t i = 0; i < 3; ++i) {
        const int next = triangle.neighbours[i];
        if (next < 0 || is_known[index(next)]) continue;
        ((triangle.edges[i] & is_odd) != 0 ? beyond : reached).push_back(next);
      }
    }
  }
}

/// Lays the first part of a piece, as far as the next vertex on it; the rest is added to what is still to be laid.
bool igsTriangulation::lay(const Piece& piece) {
  if (piece.from == piece.to) return true;
  const igsGridPoint &from = node(piece.from), &to = node(piece.to);
  for (int triangle = m_vertices[index(piece.from)].triangle; has_work_left(); ++m_work) {
    const Triangle& around = at(triangle);
    const int corner = around.vertices[0] == piece.from ? 0 : around.vertices[1] == piece.from ? 1 : 2;
    const int right = around.vertices[after(corner)], left = around.vertices[before(corner)];
    const std::int64_t turn = igs_turn(from, to, node(right));
    if (turn == 0 && is_ahead(from, to, node(right))) {
      lay_edge({triangle, static_cast<int>(before(corner))}, piece.edge);
      m_pieces.push_back({right, piece.to, piece.edge});
      return true;
    }
    if (turn < 0 && igs_turn(from, to, node(left)) > 0) return lay_across(piece, {triangle, corner});
    triangle = around.neighbours[after(corner)];
  }
  return false;
}

void igsTriangulation::lay_edge(const Side& side, std::uint8_t edge) {
  const unsigned before = at(side.triangle).edges[index(side.side)];
  set_edge(side, static_cast<std::uint8_t>((before | is_edge) ^ (edge & is_odd)));
}

/// The same where it begins by crossing the side.
bool igsTriangulation::lay_across(const Piece& piece, Side side) {
  const igsGridPoint &from = node(piece.from), &to = node(piece.to);
  Sleeve sleeve{{side.triangle},
                {piece.from, at(side.triangle).vertices[before(side.side)]},
                {piece.from, at(side.triangle).vertices[after(side.side)]}};
  int end = -1;
  while (end < 0) {
    ++m_work;
    if (!has_work_left()) return false;
    if (is_constraint(side.triangle, side.side)) return cut(piece, side);
    const int next = at(side.triangle).neighbours[index(side.side)];
    const int corner = side_towards(next, side.triangle);
    const int vertex = at(next).vertices[index(corner)];
    sleeve.triangles.push_back(next);
    const std::int64_t turn = vertex == piece.to ? 0 : igs_turn(from, to, node(vertex));
    if (turn == 0) end = vertex;
    if (turn >= 0) sleeve.left.push_back(vertex);
    if (turn <= 0) sleeve.right.push_back(vertex);
    side = {next, static_cast<int>(turn > 0 ? after(corner) : before(corner))};
  }
  clear(sleeve);
  m_pieces.push_back({end, piece.to, piece.edge});
  const bool is_laid = lay({piece.from, end, piece.edge});
  restore(true);
  return is_laid;
}

/// Cuts the piece and the constraint that it crosses. All four parts are to be laid, for none of them need run quite
/// where it did; taken together along x and y they are as long as before, so that this ends.
bool igsTriangulation::cut(const Piece& piece, const Side& side) {
  if (m_cuts_left == 0) return false;
  --m_cuts_left;
  const Triangle& triangle = at(side.triangle);
  const int first = triangle.vertices[after(side.side)], second = triangle.vertices[before(side.side)];
  const std::uint8_t edge = triangle.edges[index(side.side)];
  set_edge(side, 0);
  m_sides.push_back(side);
  restore(true);
  const igsGridPoint crossing = crossing_of(node(piece.from), node(piece.to), node(first), node(second));
  const Place place = locate(crossing, side.triangle);
  int vertex = place.vertex;
  if (vertex < 0) {
    vertex = add(place, crossing, {m_low.x + m_step * crossing.x, m_low.y + m_step * crossing.y});
    m_crossings.push_back(vertex);
  }
  m_pieces.insert(m_pieces.end(), {{vertex, piece.to, piece.edge},
                                   {piece.from, vertex, piece.edge},
                                   {first, vertex, edge},
                                   {vertex, second, edge}});
  return true;
}

/// Triangulates both halves of a sleeve anew, in place of its triangles.
void igsTriangulation::clear(Sleeve& sleeve) {
  const auto borders = [this](const std::vector<int>& numbers) {
    std::vector<Border> found;
    for (const int number : numbers) add_borders(number, found);
    std::sort(found.begin(), found.end());
    return found;
  };
  const std::vector<Border> kept = borders(sleeve.triangles);
  std::vector<std::array<int, 3>> triangles;
  fill(sleeve.left, triangles);
  std::reverse(sleeve.right.begin(), sleeve.right.end());
  fill(sleeve.right, triangles);
  for (std::size_t i = 0; i < triangles.size(); ++i) {
    put(sleeve.triangles[i], {triangles[i], {-1, -1, -1}});
  }
  const std::vector<Border> made = borders(sleeve.triangles);
  for (const Border& border : made) {
    Triangle& triangle = at(border.side.triangle);
    const auto [from, to] = border.vertices;
    const Border* const old = Border::find(kept, from, to);
    const Border* const twin = Border::find(made, to, from);
    int& neighbour = triangle.neighbours[index(border.side.side)];
    if (old != nullptr) triangle.edges[index(border.side.side)] = old->edge;
    if (twin != nullptr) {
      neighbour = twin->side.triangle;
    } else if (old != nullptr && old->beyond >= 0) {
      neighbour = old->beyond;
      at(neighbour).neighbours[index(corner_opposite(at(neighbour).vertices, from, to))] = border.side.triangle;
    }
    m_sides.push_back(border.side);
  }
}

void igsTriangulation::add_borders(int triangle, std::vector<Border>& borders) const {
  const Triangle& added = at(triangle);
  for (int i = 0; i < 3; ++i) {
    borders.push_back({{added.vertices[after(i)], added.vertices[before(i)]},
                       {triangle, i},
                       added.neighbours[index(i)],
                       added.edges[index(i)]});
  }
}

/// Triangulates what lies between a straight line and the vertices to its left, all of which see the line: corners that
/// stick out are cut off as they come. The chain begins and ends as the line does.
void igsTriangulation::fill(const std::vector<int>& chain, std::vector<std::array<int, 3>>& triangles) const {
  std::vector<int> rest;
  for (const int vertex : chain) {
    while (rest.size() >= 2) {
      const int corner = rest.back(), first = rest[rest.size() - 2];
      if (igs_turn(node(first), node(corner), node(vertex)) >= 0) break;
      triangles.push_back({first, vertex, corner});
      rest.pop_back();
    }
    rest.push_back(vertex);
  }
}
