#include "shapes.h"

#include <pybind11/stl.h>

#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "entity.h"
#include "igs/shape/igsPlacement.h"

const igsShapeModel& FileShapes::model() {
  if (m_model == nullptr) {
    m_model = std::make_unique<igsShapeModel>(m_file, m_shapes, igsShapeModelOptions{.has_blanked = true});
    list_faces();
  }
  return *m_model;
}

void FileShapes::list_faces() {
  const std::vector<igsShapeFace>& faces = m_model->faces();
  for (std::size_t i = 0; i < faces.size(); ++i) {
    m_faces[faces[i].entity].push_back(i);
    if (faces[i].shell < 0) continue;
    const igsShapeShell& shell = m_model->shells()[static_cast<std::size_t>(faces[i].shell)];
    m_faces[shell.entity].push_back(i);
    if (shell.solid != nullptr) m_faces[shell.solid].push_back(i);
  }
}

const std::vector<std::size_t>& FileShapes::faces_of(const igsObject& entity) {
  static const std::vector<std::size_t> none;
  static_cast<void>(model());
  const auto found = m_faces.find(&entity);
  return found != m_faces.end() ? found->second : none;
}

const igsShapeEdgePoints& FileShapes::edge_points(const igsShapeTolerance& tolerance) {
  const bool is_same = tolerance.chord == m_tolerance.chord && tolerance.angle == m_tolerance.angle;
  if (m_edge_points == nullptr || !is_same) {
    m_edge_points = std::make_unique<igsShapeEdgePoints>(model(), tolerance);
    m_tolerance = tolerance;
  }
  return *m_edge_points;
}

namespace {

static_assert(sizeof(igsVec3) == 3 * sizeof(double), "points lie in memory as three reals");

/// The triangles of several faces together.
struct Mesh {
  std::vector<igsVec3> points, normals;
  std::vector<std::array<int, 3>> triangles;
  bool is_complete = true;

  void add(const igsShapeMesh& face);
};

void Mesh::add(const igsShapeMesh& face) {
  is_complete = is_complete && face.is_complete;
  if (!face.is_complete) return;
  if (points.size() + face.points.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    throw py::value_error("the mesh has too many points; a greater chord gives fewer");
  }
  const int first = static_cast<int>(points.size());
  points.insert(points.end(), face.points.begin(), face.points.end());
  normals.insert(normals.end(), face.normals.begin(), face.normals.end());
  for (const std::array<int, 3>& corners : face.triangles) {
    triangles.push_back({first + corners[0], first + corners[1], first + corners[2]});
  }
}

/// An array over rows of three that `owner` keeps.
template <class Number, class Row>
py::array_t<Number> rows_of(const std::vector<Row>& rows, const py::object& owner) {
  return py::array_t<Number>({std::ssize(rows), py::ssize_t{3}}, reinterpret_cast<const Number*>(rows.data()), owner);
}

igsShapeTolerance make_tolerance(double chord, double angle) {
  if (!(chord > 0 && angle > 0) || !std::isfinite(chord) || !std::isfinite(angle)) {
    throw py::value_error("chord and angle are above 0");
  }
  return {.chord = chord, .angle = angle};
}

/// A surface that is part of something else, as if it stood for itself.
igsShapeFace face_of_surface(FileShapes& shapes, const igsObject& entity) {
  igsShapeFace face;
  face.entity = &entity;
  face.surface = shapes.shapes().surface(&entity);
  face.is_bounded_by_surface = true;
  if (face.surface == nullptr)
    throw py::value_error("the entity is no face, shell, solid or surface, or its data make none");
  if (!face.surface->is_finite()) throw py::value_error("the surface has no end");
  return face;
}

Mesh mesh_of_entity(const Entity& entity, double chord, double angle) {
  const igsShapeTolerance tolerance = make_tolerance(chord, angle);
  const igsObject& object = entity.object();
  FileShapes& shapes = entity.host().shapes();
  const py::gil_scoped_release unlocked;
  Mesh mesh;
  const igsShapeEdgePoints& edges = shapes.edge_points(tolerance);
  for (const std::size_t i : shapes.faces_of(object)) {
    mesh.add(igs_mesh(shapes.model().faces()[i], edges, tolerance, false));
  }
  if (shapes.faces_of(object).empty()) mesh.add(igs_mesh(face_of_surface(shapes, object), edges, tolerance, false));
  return mesh;
}

Mesh mesh_of_file(Host& host, double chord, double angle) {
  const igsShapeTolerance tolerance = make_tolerance(chord, angle);
  FileShapes& shapes = host.shapes();
  const py::gil_scoped_release unlocked;
  const igsShapeModel model(host.file(), shapes.shapes());
  Mesh mesh;
  for (const igsShapeMesh& face : igs_meshes(model, tolerance, 0, false)) mesh.add(face);
  return mesh;
}

double at_step(const igsRange& range, py::ssize_t i, py::ssize_t n) {
  return range.at(static_cast<double>(i) / static_cast<double>(n - 1));
}

void write_point(double*& to, const igsVec3& point) {
  *to++ = point.x;
  *to++ = point.y;
  *to++ = point.z;
}

py::array_t<double> points_of_curve(const igsShapeCurve& curve, py::ssize_t n) {
  if (!curve.range().is_finite()) throw py::value_error("the curve has no end");
  py::array_t<double> points({n, py::ssize_t{3}});
  double* to = points.mutable_data();
  const py::gil_scoped_release unlocked;
  for (py::ssize_t i = 0; i + 1 < n; ++i) write_point(to, curve.point(at_step(curve.range(), i, n)));
  write_point(to, curve.end());
  return points;
}

py::array_t<double> points_of_surface(const igsShapeSurface& surface, py::ssize_t n, py::ssize_t m) {
  if (!surface.is_finite()) throw py::value_error("the surface has no end");
  py::array_t<double> points({n, m, py::ssize_t{3}});
  double* to = points.mutable_data();
  const py::gil_scoped_release unlocked;
  const auto side = [](py::ssize_t i, py::ssize_t of) { return i + 1 < of ? igsSide::after : igsSide::before; };
  for (py::ssize_t i = 0; i < n; ++i) {
    const double u = at_step(surface.u().range, i, n);
    for (py::ssize_t j = 0; j < m; ++j) {
      write_point(to, surface.point(u, at_step(surface.v().range, j, m), side(i, n), side(j, m)));
    }
  }
  return points;
}

py::array_t<double> points_of(const Entity& entity, py::ssize_t n, std::optional<py::ssize_t> m) {
  constexpr py::ssize_t most = 100'000'000;
  const py::ssize_t rows = m.value_or(n);
  if (n < 2 || rows < 2 || n > most || rows > most / n)
    throw py::value_error("n, and m, are 2 or more, and not too many");
  const igsObject& object = entity.object();
  igsShapes& shapes = entity.host().shapes().shapes();
  if (const igsShapeCurvePtr curve = shapes.curve(&object)) return points_of_curve(*curve, n);
  const igsShapeSurfacePtr surface = shapes.surface(&object);
  if (surface == nullptr) throw py::value_error("the entity is no curve or surface, or its data make none");
  return points_of_surface(*surface, n, rows);
}

py::array_t<double> transform_of(const Entity& entity) {
  const igsPlacement placement = igsPlacement::of(entity.object());
  const std::array<igsVec3, 4> columns{placement.vector({1, 0, 0}), placement.vector({0, 1, 0}),
                                       placement.vector({0, 0, 1}), placement.point({})};
  py::array_t<double> matrix({4, 4});
  auto element = matrix.mutable_unchecked<2>();
  for (py::ssize_t j = 0; j < 4; ++j) {
    const igsVec3& column = columns[static_cast<std::size_t>(j)];
    element(0, j) = column.x;
    element(1, j) = column.y;
    element(2, j) = column.z;
    element(3, j) = j == 3 ? 1 : 0;
  }
  return matrix;
}

}  // namespace

void define_shapes(py::module_& module, HostClass& host, EntityClass& entity) {
  py::class_<Mesh, std::shared_ptr<Mesh>>(module, "Mesh", "Triangles in model space, in model units.")
      .def_property_readonly(
          "points", [](const py::object& self) { return rows_of<double>(self.cast<const Mesh&>().points, self); },
          "The corners: shape (n, 3).")
      .def_property_readonly(
          "normals", [](const py::object& self) { return rows_of<double>(self.cast<const Mesh&>().normals, self); },
          "Of length 1, of the surfaces, one a corner: shape (n, 3).")
      .def_property_readonly(
          "triangles", [](const py::object& self) { return rows_of<int>(self.cast<const Mesh&>().triangles, self); },
          "Positions of corners from 0, counterclockwise where the normals point to who looks: shape (m, 3).")
      .def_readonly("is_complete", &Mesh::is_complete,
                    "False where a face could not be triangulated, and is not there.");
  const auto chord = py::arg("chord") = 0.1, angle = py::arg("angle") = 0.35;
  host.def("mesh", &mesh_of_file, chord, angle);
  entity.def("mesh", &mesh_of_entity, chord, angle,
             "The triangles of a face, shell, solid or surface: at most `chord` (model units) from it, neighbours at "
             "most `angle` (radians) from each other. Raises a ValueError for what has none.");
  entity.def(
      "points", &points_of, py::arg("n"), py::arg("m") = py::none(),
      "Points at even steps of the parameters, matrices applied: shape (n, 3) of a curve, (n, m, 3) of a surface, "
      "u first; m is n without it. Raises a ValueError for anything else, and for what has no end.");
  entity.def_property_readonly("transform", &transform_of,
                               "What takes the entity's own coordinates to model space, all its matrices together: "
                               "shape (4, 4), for columns (x, y, z, 1).");
}
