#include "view/packed_geometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>

void Column::add(long long number) {
  // The sign in the lowest bit, then seven bits a byte from the lowest on.
  auto rest = static_cast<std::uint32_t>(number < 0 ? -2 * number - 1 : 2 * number);
  constexpr std::uint32_t more = 128;
  for (; rest >= more; rest /= more) m_bytes += static_cast<char>(rest % more + more);
  m_bytes += static_cast<char>(rest);
}

namespace {

template <class Visit>
void for_each_point_packed(const Scene& scene, const Visit& visit) {
  for (const SceneItem& item : scene.items) {
    for (const igsVec3& point : item.points) visit(point);
    for (const std::vector<igsVec3>& line : item.lines) {
      for (const igsVec3& point : line) visit(point);
    }
  }
}

/// The finer, the fewer points there are: distances are measured on what is left of them.
int bits_for(long long num_points) {
  constexpr int fewest = 16, most = 22;
  constexpr long long many = 50'000;
  int bits = fewest;
  for (; bits < most && num_points < many; num_points *= 2) ++bits;
  return bits;
}

/// The point in which a direction meets the octahedron.
GridNormal on_octahedron(const igsVec3& normal) {
  const double sum = std::abs(normal.x) + std::abs(normal.y) + std::abs(normal.z);
  double u = normal.x / sum, v = normal.y / sum;
  if (normal.z < 0) {
    const double folded = (1 - std::abs(v)) * (u < 0 ? -1 : 1);
    v = (1 - std::abs(u)) * (v < 0 ? -1 : 1);
    u = folded;
  }
  constexpr double most = 127;
  return {static_cast<int>(std::lround(most * u)), static_cast<int>(std::lround(most * v))};
}

}  // namespace

PointGrid::PointGrid(const Scene& scene) {
  igsBox box;
  long long count = 0;
  for_each_point_packed(scene, [&](const igsVec3& point) {
    box.add(point);
    ++count;
  });
  if (box.is_empty()) return;
  m_origin = box.low;
  m_most = (1 << bits_for(count)) - 1;
  const igsVec3 size = box.high - box.low;
  const double step = std::max({size.x, size.y, size.z}) / m_most;
  if (step > 0 && std::isfinite(step)) m_step = step;
}

GridPoint PointGrid::on_grid(const igsVec3& point) const {
  const auto place = [this](double value, double low) {
    const double steps = (value - low) / m_step;
    return steps > 0 ? static_cast<int>(std::lround(std::min<double>(steps, m_most))) : 0;  // NaN is not above 0
  };
  return {place(point.x, m_origin.x), place(point.y, m_origin.y), place(point.z, m_origin.z)};
}

/// Walks over the triangles from neighbour to neighbour, so that most of them are told by one small number and most
/// corners lie near where the triangle next to them lets one expect them.
class PackedGeometry::MeshPacker {
 public:
  MeshPacker(PackedGeometry& packed, const SceneItem& item) : m_packed(packed), m_item(item) {
    m_triangle_at.reserve(3 * item.triangles.size());
    for (std::size_t i = 0; i < item.triangles.size(); ++i) {
      for (std::size_t k = 0; k < 3; ++k) m_triangle_at.try_emplace(key(corner(i, k), corner(i, k + 1)), i);
    }
    m_is_done.resize(item.triangles.size());
    m_numbers.resize(item.points.size(), -1);
  }

  /// Returns how many points were written; those of no triangle are not, where there are any triangles.
  int run() {
    for (std::size_t i = 0; i < m_item.triangles.size(); ++i) {
      if (!m_is_done[i]) begin(i);
      while (!m_edges.empty() && m_num_done < m_item.triangles.size()) pass_edge();
    }
    for (std::size_t i = 0; m_item.triangles.empty() && i < m_item.points.size(); ++i) {
      add_point(static_cast<int>(i), m_packed.m_last_point, m_packed.m_last_normal);
    }
    return m_num_points;
  }

 private:
  struct Edge {
    int from, to, opposite;  ///< positions in the item's points
  };

  int corner(std::size_t triangle, std::size_t k) const { return m_item.triangles[triangle][k % 3]; }
  static std::uint64_t key(int from, int to) {
    constexpr unsigned half = 32;
    return (static_cast<std::uint64_t>(from) << half) + static_cast<std::uint64_t>(to);
  }
  GridPoint grid_point(int point) const {
    return m_packed.m_grid.on_grid(m_item.points[static_cast<std::size_t>(point)]);
  }

  void begin(std::size_t triangle) {
    mark_done(triangle);
    const auto [a, b, c] = m_item.triangles[triangle];
    for (const int point : {a, b, c}) add_corner(point, m_packed.m_last_point, m_packed.m_last_normal);
    push(b, c, a);
    push(c, a, b);
    push(a, b, c);
  }
  void mark_done(std::size_t triangle) {
    m_is_done[triangle] = true;
    ++m_num_done;
  }
  void push(int from, int to, int opposite) { m_edges.push_back({from, to, opposite}); }

  void pass_edge() {
    const auto [from, to, opposite] = m_edges.back();
    m_edges.pop_back();
    const auto found = m_triangle_at.find(key(to, from));
    if (found == m_triangle_at.end() || m_is_done[found->second]) return m_packed.m_links.add(no_neighbour);
    const std::size_t triangle = found->second;
    mark_done(triangle);
    std::size_t k = 0;
    while (corner(triangle, k) != to || corner(triangle, k + 1) != from) ++k;
    const int point = corner(triangle, k + 2);
    GridPoint expected = grid_point(from);
    const GridPoint other = grid_point(to), behind = grid_point(opposite);
    for (std::size_t axis = 0; axis < 3; ++axis) expected[axis] += other[axis] - behind[axis];
    add_corner(point, expected, normal(from));
    push(point, to, from);
    push(from, point, to);
  }

  GridNormal normal(int point) const {
    const auto at = static_cast<std::size_t>(point);
    return at < m_item.normals.size() ? on_octahedron(m_item.normals[at]) : GridNormal{};
  }

  void add_corner(int point, const GridPoint& expected, const GridNormal& expected_normal) {
    int& number = m_numbers[static_cast<std::size_t>(point)];
    if (number >= 0) {
      const int difference = number - m_last_known;
      m_packed.m_links.add(difference < 0 ? difference : difference + first_known);
      m_last_known = number;
      return;
    }
    number = m_num_points;
    m_packed.m_links.add(new_point);
    add_point(point, expected, expected_normal);
  }

  void add_point(int point, const GridPoint& expected, const GridNormal& expected_normal) {
    ++m_num_points;
    const GridPoint place = grid_point(point);
    m_packed.add_difference(m_packed.m_points, place, expected);
    m_packed.m_last_point = place;
    const GridNormal own_normal = normal(point);
    for (std::size_t i = 0; i < 2; ++i) m_packed.m_normals[i].add(own_normal[i] - expected_normal[i]);
    m_packed.m_last_normal = own_normal;
  }

  static constexpr int no_neighbour = 0, new_point = 1, first_known = 2;

  PackedGeometry& m_packed;
  const SceneItem& m_item;
  std::unordered_map<std::uint64_t, std::size_t> m_triangle_at;  ///< by directed edge
  std::vector<bool> m_is_done;
  std::size_t m_num_done = 0;
  std::vector<int> m_numbers;  ///< of points, in the order in which they are written; -1 for those that are not yet
  int m_num_points = 0;
  int m_last_known = 0;
  std::vector<Edge> m_edges;
};

void PackedGeometry::add(const SceneItem& item) {
  const int num_points = MeshPacker(*this, item).run();
  m_counts.add(num_points);
  m_counts.add(std::ssize(item.triangles));
  m_counts.add(std::ssize(item.lines));
  m_counts.add(item.normals.empty() ? 0 : 1);
  for (const std::vector<igsVec3>& line : item.lines) add_line(line);
}

void PackedGeometry::add_line(const std::vector<igsVec3>& line) {
  m_line_counts.add(std::ssize(line));
  GridPoint before = m_last_line_end, last = before;
  for (std::size_t i = 0; i < line.size(); ++i) {
    // Curves go on as they came.
    GridPoint expected = last;
    for (std::size_t axis = 0; i > 1 && axis < 3; ++axis) expected[axis] += last[axis] - before[axis];
    before = last;
    last = m_grid.on_grid(line[i]);
    add_difference(m_line_points, last, expected);
  }
  m_last_line_end = last;
}

void PackedGeometry::add_difference(std::array<Column, 3>& to, const GridPoint& point, const GridPoint& expected) {
  for (std::size_t axis = 0; axis < 3; ++axis) to[axis].add(point[axis] - expected[axis]);
}

std::vector<const Column*> PackedGeometry::columns() const {
  return {&m_counts,     &m_links,       &m_points[0],      &m_points[1],      &m_points[2],     &m_normals[0],
          &m_normals[1], &m_line_counts, &m_line_points[0], &m_line_points[1], &m_line_points[2]};
}
