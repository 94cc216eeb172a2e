#include "igs/shape/igsShapeMesh.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <utility>

#include "igs/shape/private/igsEachNumber.h"
#include "igs/shape/private/igsFaceIntegral.h"
#include "igs/shape/private/igsLoopChain.h"

namespace {
/// Makes the mesh of one face.
class FaceMesher {
 public:
  FaceMesher(const igsShapeFace& face, const igsShapeEdgePoints& edges, const igsShapeTolerance& tolerance,
             bool is_measured)
      : m_face(face),
        m_edges(edges),
        m_tolerance(tolerance),
        m_is_measured(is_measured),
        // A mirrored surface is seen from its other side.
        m_is_turned(face.is_reversed != (face.placement.determinant() < 0)) {}

  igsShapeMesh mesh() {
    Attempt first;
    if (m_face.surface == nullptr || !igs_find_borders(m_face, &m_edges, m_tolerance, first.loops)) {
      add_curves();
    } else if (!triangulate(first)) {
      add_loops(first.loops);
    } else {
      if (first.triangles.num_crossings > 0) try_closer(first);
      m_mesh.area = first.integral.area;
      m_mesh.volume = m_is_turned ? -first.integral.volume : first.integral.volume;
      m_mesh.is_complete = true;
      take(first.triangles, first.domain);
    }
    return std::move(m_mesh);
  }

 private:
  struct Attempt {
    std::vector<igsBorderLoop> loops;
    igsFaceDomain domain;
    igsFaceTriangles triangles;
    igsFaceIntegral integral;
  };

  bool triangulate(Attempt& attempt) const {
    const igsShapeSurface& surface = *m_face.surface;
    if (!igs_find_domain(m_face, attempt.loops, m_tolerance, attempt.domain)) return false;
    if (!igs_triangulate(surface, attempt.domain, m_tolerance, attempt.triangles)) return false;
    if (m_is_measured) attempt.integral = igs_integrate(surface, m_face.placement, attempt.domain, attempt.triangles);
    return !attempt.triangles.triangles.empty() && std::isfinite(attempt.integral.area) &&
           std::isfinite(attempt.integral.volume);
  }

  // Lines that follow the curves of a narrow face too loosely may cross. Points of shared edges stay all the same.
  void try_closer(Attempt& first) const {
    constexpr int most_tries = 3;
    constexpr double closer = 1.0 / 8;
    igsShapeTolerance tolerance = m_tolerance;
    std::size_t crossings = first.triangles.num_crossings;
    const bool shares_edges = std::any_of(m_face.loops.begin(), m_face.loops.end(), [](const igsShapeLoop& loop) {
      return std::any_of(loop.model.begin(), loop.model.end(),
                         [](const igsShapePiece& piece) { return piece.edge >= 0; });
    });
    for (int i = 0; i < most_tries; ++i) {
      tolerance.chord *= closer;
      Attempt next;
      if (!igs_find_borders(m_face, nullptr, tolerance, next.loops) || !triangulate(next)) return;
      if (next.triangles.num_crossings == crossings) return;  // they are in the curves
      crossings = next.triangles.num_crossings;
      first.integral = next.integral;
      if (crossings > 0) continue;
      if (!shares_edges) first = std::move(next);
      return;
    }
  }

  // The vertices in use alone; triangles along a pole, which have no area, go.
  void take(const igsFaceTriangles& triangles, const igsFaceDomain& domain) {
    m_numbers.assign(triangles.vertices.size(), -1);
    for (const std::array<int, 3>& corners : triangles.triangles) {
      const auto point = [&](int i) {
        return triangles.vertices[static_cast<std::size_t>(corners[static_cast<std::size_t>(i)])].point;
      };
      if (point(0) == point(1) || point(1) == point(2) || point(2) == point(0)) continue;
      std::array<int, 3> triangle{};
      for (std::size_t i = 0; i < 3; ++i) triangle[i] = number_of(corners[i], triangles);
      if (m_is_turned) std::swap(triangle[1], triangle[2]);
      m_mesh.triangles.push_back(triangle);
    }
    for (const std::vector<int>& boundary : domain.boundaries) {
      std::vector<int> points;
      points.reserve(boundary.size());
      for (const int point : boundary) {
        points.push_back(number_of(triangles.vertex_of[static_cast<std::size_t>(point)], triangles));
      }
      m_mesh.boundaries.push_back(std::move(points));
    }
  }

  int number_of(int vertex, const igsFaceTriangles& triangles) {
    int& number = m_numbers[static_cast<std::size_t>(vertex)];
    if (number < 0) {
      const igsFaceVertex& at = triangles.vertices[static_cast<std::size_t>(vertex)];
      number = add_point(at.point, at.uv);
      m_mesh.normals.back() = placed(at.normal);
    }
    return number;
  }

  // A placement may shear: what it makes of the tangents counts.
  igsVec3 placed(igsVec3 normal) const {
    if (!m_face.placement.is_identity()) {
      const igsVec3 axis = std::abs(normal.x) < 0.6 ? igsVec3{1, 0, 0} : igsVec3{0, 1, 0};
      const igsVec3 first = normal.cross(axis).unit(), second = normal.cross(first);
      normal = m_face.placement.vector(first).cross(m_face.placement.vector(second)).unit();
    }
    return m_is_turned ? normal * -1 : normal;
  }

  int add_point(const igsVec3& point, const igsVec2& uv) {
    m_mesh.points.push_back(m_face.placement.point(point));
    m_mesh.normals.emplace_back();
    m_mesh.parameters.push_back(uv);
    return static_cast<int>(m_mesh.points.size()) - 1;
  }

  void add_loops(const std::vector<igsBorderLoop>& loops) {
    for (const igsBorderLoop& loop : loops) {
      std::vector<int> boundary;
      for (const igsBorderPoint& point : loop.points) boundary.push_back(add_point(point.point, point.uv));
      m_mesh.boundaries.push_back(std::move(boundary));
    }
  }

  void add_curves() {
    for (const igsShapeLoop& loop : m_face.loops) {
      std::vector<int> boundary;
      for (const igsChainLink& link : igs_chain(loop.model, nullptr)) {
        std::vector<igsPolylinePoint> line =
            link.piece->edge >= 0 ? m_edges.of(link.piece->edge) : igs_polyline(*link.piece->curve, m_tolerance);
        if (link.is_reversed) std::reverse(line.begin(), line.end());
        for (const igsPolylinePoint& point : line) boundary.push_back(add_point(point.point, {}));
      }
      m_mesh.boundaries.push_back(std::move(boundary));
    }
  }

  const igsShapeFace& m_face;
  const igsShapeEdgePoints& m_edges;
  const igsShapeTolerance& m_tolerance;
  bool m_is_measured;
  bool m_is_turned;
  igsShapeMesh m_mesh;
  std::vector<int> m_numbers;  // of vertices in the mesh
};

// Curves of neighbours end at one vertex, where they come close to it.
void snap(igsPolylinePoint& end, const igsShapeEdge& edge, double most) {
  const double first = (end.point - edge.first).length(), second = (end.point - edge.second).length();
  if (first <= most && !(second < first)) {
    end.point = edge.first;
  } else if (second <= most) {
    end.point = edge.second;
  }
}
}  // namespace

igsShapeEdgePoints::igsShapeEdgePoints(const igsShapeModel& model, const igsShapeTolerance& tolerance) {
  m_points.resize(model.edges().size());
  for (std::size_t i = 0; i < m_points.size(); ++i) {
    const igsShapeEdge& edge = model.edges()[i];
    if (edge.curve == nullptr) continue;
    m_points[i] = igs_polyline(*edge.curve, tolerance);
    if (m_points[i].empty()) continue;
    snap(m_points[i].front(), edge, tolerance.chord);
    snap(m_points[i].back(), edge, tolerance.chord);
  }
}

igsShapeMesh igs_mesh(const igsShapeFace& face, const igsShapeEdgePoints& edges, const igsShapeTolerance& tolerance,
                      bool is_measured) {
  return FaceMesher(face, edges, tolerance, is_measured).mesh();
}

std::vector<igsShapeMesh> igs_meshes(const igsShapeModel& model, const igsShapeTolerance& tolerance, int threads,
                                     bool is_measured, std::size_t most_in_all) {
  const igsShapeEdgePoints edges(model, tolerance);
  std::vector<igsShapeMesh> meshes(model.faces().size());
  std::atomic<std::size_t> num_triangles{0};
  igs_for_each_number(meshes.size(), threads, [&](std::size_t i) {
    if (num_triangles > most_in_all) return;
    meshes[i] = igs_mesh(model.faces()[i], edges, tolerance, is_measured);
    num_triangles += meshes[i].triangles.size();
  });
  if (num_triangles > most_in_all) meshes.clear();
  return meshes;
}
