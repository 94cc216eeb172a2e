#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "view/scene.h"

// The geometry of a scene in columns of small numbers, which deflate well: web/viewer/unpack.ts reads them again.

/// Integers, each as its difference from what was to be expected, in as few bytes as it needs.
class Column {
 public:
  /// From -2^31 to 2^31 - 1.
  void add(long long number);
  const std::string& bytes() const { return m_bytes; }

 private:
  std::string m_bytes;
};

using GridPoint = std::array<int, 3>;
using GridNormal = std::array<int, 2>;  ///< on an octahedron that is unfolded to a square, from -127 to 127

/// The grid on which all points are put, so that faces and edges still meet.
class PointGrid {
 public:
  explicit PointGrid(const Scene& scene);

  GridPoint on_grid(const igsVec3& point) const;
  const igsVec3& origin() const { return m_origin; }
  double step() const { return m_step; }

 private:
  igsVec3 m_origin;
  double m_step = 1;
  int m_most = 0;
};

class PackedGeometry {
 public:
  explicit PackedGeometry(const PointGrid& grid) : m_grid(grid) {}

  /// Adds the points, triangles and polylines of an item.
  void add(const SceneItem& item);
  /// In the order in which they are read.
  std::vector<const Column*> columns() const;

 private:
  class MeshPacker;

  static void add_difference(std::array<Column, 3>& to, const GridPoint& point, const GridPoint& expected);
  void add_line(const std::vector<igsVec3>& line);

  const PointGrid& m_grid;
  Column m_counts, m_links, m_line_counts;
  std::array<Column, 3> m_points, m_line_points;
  std::array<Column, 2> m_normals;
  GridPoint m_last_point{}, m_last_line_end{};
  GridNormal m_last_normal{};
};
