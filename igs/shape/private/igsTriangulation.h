#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "igs/shape/igsVec.h"
#include "igs/shape/private/igsGridPoint.h"

/// A constrained Delaunay triangulation of points in a plane. Coordinates are rounded to 2^30 steps over the larger
/// side of the bounds, the same in x and y, so that what decides is exact; points that round to one are one vertex.
///
/// It is used in three steps: the points of the boundary (add_points), the boundary (add_constraint), then any number
/// of points within it (add_inner_point), for which the triangles that have changed are told (take_changed).
///
/// Vertices and triangles are numbered and keep their numbers. Vertices 0 to 3 are the corners of a square about the
/// bounds, so that triangles fill this square; those that have to do with a corner are never inside. Triangles are
/// counterclockwise; side i of a triangle is the one opposite to its corner i. A triangle is altered in its place.
///
/// The work for flips and constraints is bounded, to 256 steps for each vertex and a million more. When that is used
/// up, as input made for it may do, add_constraint() fails and triangles need not be Delaunay any more.
class igsTriangulation {
 public:
  /// For points within these bounds; what lies outside counts as lying on their border, what is not a number as their
  /// low corner. `most_crossings` is how often constraints may be cut where they cross, in the triangulation's life.
  igsTriangulation(const igsVec2& low, const igsVec2& high, std::size_t most_crossings = 10'000);

  /// For so many vertices, when that is known beforehand.
  void reserve(std::size_t num_vertices);
  /// The numbers of the points' vertices, in their order. Takes expected time n log n whatever the points' order, which
  /// add_point() does not: with many points along a curve it may come to the square.
  std::vector<int> add_points(const std::vector<igsVec2>& points);
  /// The number of the vertex: that of an earlier one where the point rounds to the same. A point on a constraint
  /// splits it. The search starts at the triangle `near`, or where the last one ended.
  int add_point(const igsVec2& point, int near = -1);
  /// As above, but for a point within an inside triangle or on a side between two: -1, and nothing has changed, when
  /// it lies outside, on a constraint or on a vertex. What is inside stays so.
  int add_inner_point(const igsVec2& point, int near = -1);
  /// Makes the straight line between two vertices, neither of them a corner of the square, an edge. Where it meets
  /// vertices it is cut there; where it crosses another constraint both are, at a vertex rounded to the grid. An edge
  /// that is a constraint an even number of times is none for is_inside(). False when there are too many crossings or
  /// too much work: then constraints may be missing, this one and those that it crosses.
  bool add_constraint(int from, int to);
  /// The vertices that crossing constraints have made, ascending.
  const std::vector<int>& crossings() const { return m_crossings; }

  int num_vertices() const { return static_cast<int>(m_vertices.size()); }
  /// As it was given when the vertex was made, but within the bounds; on the grid for crossings.
  igsVec2 point(int vertex) const { return m_vertices[static_cast<std::size_t>(vertex)].point; }

  int num_triangles() const { return static_cast<int>(m_triangles.size()); }
  const std::array<int, 3>& triangle(int number) const { return at(number).vertices; }
  /// The triangle beyond a side; -1 for the border of the square.
  int neighbour(int triangle, int side) const { return at(triangle).neighbours[static_cast<std::size_t>(side)]; }
  /// True where the side is a constraint, no matter how many times.
  bool is_constraint(int triangle, int side) const { return at(triangle).edges[static_cast<std::size_t>(side)] != 0; }
  /// The triangle that the point lies in, or one of those on whose border it does.
  int triangle_at(const igsVec2& point, int near = -1);

  /// True when an odd number of constraints parts the triangle from the corners of the square, or, where constraints
  /// are not closed and it depends on the way, when the fewest do.
  bool is_inside(int triangle);
  /// The triangles that are inside, in no order.
  std::vector<std::array<int, 3>> inside();
  /// The numbers of the inside triangles that have been made or altered since the last call, each once: all of them at
  /// first, and again after add_constraint().
  std::vector<int> take_changed();

  /// The steps that searching, flips and constraints have taken until now.
  std::int64_t work() const { return m_searched + m_work; }

 private:
  struct Vertex {
    igsGridPoint node;
    int triangle;  ///< one of those around it
    igsVec2 point;
  };
  struct Triangle {
    std::array<int, 3> vertices;
    std::array<int, 3> neighbours;
    std::array<std::uint8_t, 3> edges = {0, 0, 0};  ///< 0, or bits that say what constraint a side is
    bool is_inside = false, is_changed = false;
  };
  /// A side of a triangle.
  struct Side {
    int triangle, side;
  };
  /// Where a point lies: in a triangle; on a side of it or at a vertex where these are not -1.
  struct Place {
    int triangle, side = -1, vertex = -1;
  };
  /// A part of a constraint that is still to be laid.
  struct Piece {
    int from, to;
    std::uint8_t edge;
  };
  /// The triangles that a piece crosses, and the vertices on either hand, both ends of the piece among them.
  struct Sleeve {
    std::vector<int> triangles, left, right;
  };
  struct Border;

  const Triangle& at(int triangle) const { return m_triangles[static_cast<std::size_t>(triangle)]; }
  Triangle& at(int triangle) { return m_triangles[static_cast<std::size_t>(triangle)]; }
  const igsGridPoint& node(int vertex) const { return m_vertices[static_cast<std::size_t>(vertex)].node; }
  igsGridPoint node_at(const igsVec2& point) const;
  igsVec2 within_bounds(const igsVec2& point) const;

  Place locate(const igsGridPoint& node, int near);
  int nearer_start(const igsGridPoint& node, int start);
  int side_before(int triangle, const igsGridPoint& node);
  Place place_in(int triangle, const igsGridPoint& node) const;
  std::uint32_t random(std::size_t below);

  int add(const Place& place, const igsGridPoint& node, const igsVec2& point);
  void split(int triangle, int side, int vertex);
  void split_edge(int triangle);
  void put(int number, const Triangle& triangle);
  int side_towards(int triangle, int neighbour) const;
  void set_edge(const Side& side, std::uint8_t edge);
  void flip(const Side& side);
  bool has_work_left() const;
  bool should_flip(const Side& side) const;
  void restore(bool everywhere);
  void note_change(int triangle);
  void find_inside();

  bool lay(const Piece& piece);
  void lay_edge(const Side& side, std::uint8_t edge);
  bool lay_across(const Piece& piece, Side side);
  bool cut(const Piece& piece, const Side& side);
  void clear(Sleeve& sleeve);
  void add_borders(int triangle, std::vector<Border>& borders) const;
  void fill(const std::vector<int>& chain, std::vector<std::array<int, 3>>& triangles) const;

  igsVec2 m_low, m_high;
  double m_step;  ///< of the grid; 0 where the bounds are one point
  std::vector<Vertex> m_vertices;
  std::vector<Triangle> m_triangles;
  std::vector<int> m_crossings, m_changed;
  std::vector<Side> m_sides;    ///< that are still to be looked at for a flip
  std::vector<Piece> m_pieces;  ///< that are still to be laid
  std::size_t m_cuts_left;
  std::int64_t m_work = 0;      ///< in flips and constraints
  std::int64_t m_searched = 0;  ///< triangles
  int m_last = 0;               ///< the triangle where the last search ended
  std::uint32_t m_random = 1;
  bool m_is_inside_known = false;
};
