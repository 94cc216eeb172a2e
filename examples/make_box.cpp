// Builds the file box.igs with the library: a block of 60 x 40 x 25 as a solid, by its faces, edges and corners.
//   make_box > box.igs
#include <array>
#include <utility>

#include "sample.h"

namespace {

constexpr double length = 60, width = 40, height = 25;

/// Corner i: 0 to 3 around the bottom, 4 to 7 above them.
giPoint3 corner(int i) {
  const bool far_x = i % 4 == 1 || i % 4 == 2, far_y = i % 4 >= 2;
  return {far_x ? length : 0, far_y ? width : 0, i >= 4 ? height : 0};
}

/// The corners that an edge joins: around the bottom, around the top, upright.
constexpr std::array<std::pair<int, int>, 12> edge_corners = {
    {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6}, {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6}, {3, 7}}};

/// The edges around a face, counterclockwise as seen from outside, each along its direction or against it.
struct Step {
  int edge;
  bool along;
};
struct Side {
  giVector3 normal;
  int corner;  ///< one of its corners, to place the plane
  std::array<Step, 4> steps;
};
const std::array<Side, 6> sides = {{
    {{0, 0, -1}, 0, {{{3, false}, {2, false}, {1, false}, {0, false}}}},
    {{0, 0, 1}, 4, {{{4, true}, {5, true}, {6, true}, {7, true}}}},
    {{0, -1, 0}, 0, {{{0, true}, {9, true}, {4, false}, {8, false}}}},
    {{1, 0, 0}, 1, {{{1, true}, {10, true}, {5, false}, {9, false}}}},
    {{0, 1, 0}, 2, {{{2, true}, {11, true}, {6, false}, {10, false}}}},
    {{-1, 0, 0}, 3, {{{3, true}, {8, true}, {7, false}, {11, false}}}},
}};

igs502* add_vertices() {
  auto* vertices = sample::part(new igs502);
  vertices->set_size(8);
  for (int i = 0; i < 8; ++i) vertices->set_vertex(i, corner(i));
  return vertices;
}

igs504* add_edges(igs502* vertices) {
  auto* edges = sample::part(new igs504);
  edges->set_size(static_cast<int>(edge_corners.size()));
  for (int i = 0; const auto& [first, second] : edge_corners) {
    igsEdge edge;
    edge.set_curve(igsObjectPtr(sample::part(sample::line(corner(first), corner(second)))));
    edge.set_first_vertex(igsObjectPtr(vertices), first);
    edge.set_second_vertex(igsObjectPtr(vertices), second);
    edges->set_edge(i++, edge);
  }
  return edges;
}

igs508* add_loop(igs504* edges, const std::array<Step, 4>& steps) {
  auto* loop = sample::part(new igs508);
  loop->set_size(static_cast<int>(steps.size()));
  for (int i = 0; const Step& step : steps) {
    igsOrientedEdge edge;
    edge.set_edge(igsObjectPtr(edges), step.edge);
    edge.set_orientation(step.along ? 1 : 0);
    loop->set_oriented_edge(i++, edge);
  }
  return loop;
}

igs510* add_face(igs504* edges, const Side& side) {
  auto* plane = sample::part(new igs190_0);
  plane->set_location(igsObjectPtr(sample::part(sample::point(corner(side.corner)))));
  plane->set_normal(igsObjectPtr(sample::part(sample::direction(side.normal))));
  auto* face = sample::part(new igs510);
  face->set_surface(igsObjectPtr(plane));
  face->set_outer_loop_flag(1);
  face->set_size(1);
  face->set_loop(igsObjectPtr(add_loop(edges, side.steps)), 0);
  return face;
}

}  // namespace

int main() {
  igsFile file;
  sample::describe(file, "box", {"A block of 60 x 40 x 25 as a manifold solid with six plane faces."}, length);
  igs504* edges = add_edges(add_vertices());
  auto* shell = sample::part(new igs514);
  shell->set_size(static_cast<int>(sides.size()));
  for (int i = 0; const Side& side : sides) {
    shell->set_face(i++, igsOrientedFace(igsObjectPtr(add_face(edges, side)), 1));  // 1: the normal points outwards
  }
  auto* solid = new igs186;
  solid->set_outer_shell(igsOrientedShell(igsObjectPtr(shell), 1));
  return sample::print(file);
}
