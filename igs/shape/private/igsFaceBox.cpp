#include "igs/shape/private/igsFaceBox.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace {
constexpr std::size_t most_box_candidates = 4;
constexpr int most_box_steps = 12;

/// A vertex from which a face may reach farther in a direction.
struct Candidate {
  igsVec3 direction;
  int vertex = 0;
};

/// The outermost vertices in a direction, as near to the very outermost as the triangles are to the surface.
void find_candidates(const igsShapeMesh& mesh, const igsVec3& direction, double chord, std::vector<Candidate>& found) {
  std::vector<std::pair<double, int>> outermost;
  for (std::size_t i = 0; i < mesh.points.size(); ++i) {
    const double reach = direction.dot(mesh.points[i]);
    if (outermost.size() == most_box_candidates && !(reach > outermost.back().first)) continue;
    if (outermost.size() == most_box_candidates) outermost.pop_back();
    outermost.emplace_back(reach, static_cast<int>(i));
    std::sort(outermost.rbegin(), outermost.rend());
  }
  for (const auto& [reach, vertex] : outermost) {
    if (reach >= outermost.front().first - 2 * chord) found.push_back({direction, vertex});
  }
}

/// Where the surface turns back in a direction, from about `uv`; `uv` itself where it does not.
igsVec2 turning_point(const igsShapeFace& face, const igsVec3& direction, igsVec2 uv) {
  const igsVec2 begin = uv;
  const auto of = [&](const igsVec3& vector) { return direction.dot(face.placement.vector(vector)); };
  for (int i = 0; i < most_box_steps; ++i) {
    const igsSurfacePoint at = face.surface->at(uv);
    const igsVec2 slope{of(at.u), of(at.v)};
    const double uu = of(at.uu), bend = of(at.uv), vv = of(at.vv), determinant = uu * vv - bend * bend;
    if (!(uu < 0) || !(determinant > 0)) return begin;
    const igsVec2 step{(bend * slope.y - vv * slope.x) / determinant, (bend * slope.x - uu * slope.y) / determinant};
    if (!step.is_finite()) return begin;
    uv = uv + step;
    if (step.length() <= 1e-14 * uv.length()) break;
  }
  return uv;
}

bool is_in_triangle(const igsVec2& uv, const igsVec2& a, const igsVec2& b, const igsVec2& c) {
  const double sides[] = {(b - a).cross(uv - a), (c - b).cross(uv - b), (a - c).cross(uv - c)};
  return std::all_of(sides, sides + 3, [](double side) { return side >= 0; }) ||
         std::all_of(sides, sides + 3, [](double side) { return side <= 0; });
}
}  // namespace

igsBox igs_face_box(const igsShapeFace& face, const igsShapeMesh& mesh, const igsBox& boundary, double chord) {
  igsBox box = boundary;
  for (const igsVec3& point : mesh.points) box.add(point);
  if (!mesh.is_complete) return box;
  std::vector<Candidate> candidates;
  for (const igsVec3& axis : {igsVec3{1, 0, 0}, igsVec3{0, 1, 0}, igsVec3{0, 0, 1}}) {
    for (const double sign : {1.0, -1.0}) find_candidates(mesh, axis * sign, chord, candidates);
  }
  const auto parameters = [&](int vertex) { return mesh.parameters[static_cast<std::size_t>(vertex)]; };
  std::vector<igsVec2> turning;
  turning.reserve(candidates.size());
  for (const Candidate& candidate : candidates) {
    turning.push_back(turning_point(face, candidate.direction, parameters(candidate.vertex)));
  }
  for (const std::array<int, 3>& corners : mesh.triangles) {
    for (std::size_t i = 0; i < candidates.size(); ++i) {
      if (std::find(corners.begin(), corners.end(), candidates[i].vertex) == corners.end()) continue;
      if (!is_in_triangle(turning[i], parameters(corners[0]), parameters(corners[1]), parameters(corners[2]))) continue;
      box.add(face.placement.point(face.surface->point(turning[i])));
    }
  }
  return box;
}

igsBox igs_rough_box_of_surface(const igsShapeFace& face, int num_parts) {
  igsBox box;
  if (face.surface == nullptr || !face.surface->is_finite()) return box;
  const igsRange &u = face.surface->u().range, &v = face.surface->v().range;
  for (int i = 0; i <= num_parts; ++i) {
    for (int j = 0; j <= num_parts; ++j) {
      const igsVec2 uv{u.at(static_cast<double>(i) / num_parts), v.at(static_cast<double>(j) / num_parts)};
      box.add(face.placement.point(face.surface->point(uv)));
    }
  }
  return box;
}
