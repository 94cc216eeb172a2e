#include <algorithm>
#include <span>
#include <utility>

#include "shapes.h"
#include "view.h"

namespace {

py::array_t<double> angles_of(const EntityOf<igs100>& self) {
  const igs100& arc = self.get();
  const igsShapeCurvePtr curve = self.host().shapes().shapes().curve(&arc);
  if (curve == nullptr) throw py::value_error("the arc has no radius, or its points were never set");
  return array_of(std::array{curve->range().low, curve->range().high});
}

double radius_of(const EntityOf<igs100>& self) {
  const igs100& arc = self.get();
  if (arc.centre().is_undefined() || arc.start_point().is_undefined()) {
    throw py::value_error("the arc's points were never set");
  }
  return arc.centre().distance(arc.start_point());
}

py::array_t<double> coeffs_of(const EntityOf<igs104>& self) {
  std::array<double, 6> coeffs{};
  self.get().coeffs().coeffs(coeffs.data());
  return array_of(coeffs);
}

void set_coeffs(EntityOf<igs104>& self, const py::object& numbers) {
  const Reals coeffs = reals_of(numbers, "coeffs");
  expect_shape(coeffs, {6}, "a conic has 6 coefficients");
  self.change().set_coeffs(igsConicCoeffs(coeffs.data()));
}

py::array_t<double> elements_of(const EntityOf<igs124>& self) {
  py::array_t<double> elements({4, 4});
  self.get().matrix(reinterpret_cast<double(*)[4]>(elements.mutable_data()));
  return read_only(std::move(elements));
}

void set_elements(EntityOf<igs124>& self, const py::object& numbers) {
  constexpr std::array last_row{0.0, 0.0, 0.0, 1.0};
  const Reals elements = reals_of(numbers, "elements");
  expect_shape(elements, {4, 4}, "a matrix has the shape (4, 4)");
  if (!std::ranges::equal(last_row, std::span(elements.data(3, 0), 4))) {
    throw py::value_error("the last row of a matrix is 0, 0, 0, 1");
  }
  self.change().set_matrix(reinterpret_cast<const double(*)[4]>(elements.data()));
}

void set_sub_curves(igs102& composite, const std::vector<igsObjectPtr>& curves) {
  composite.set_size(static_cast<int>(curves.size()));
  for (int i = 0; const igsObjectPtr& curve : curves) composite.set_sub_curve(i++, curve);
}

// Copious data. The forms of these classes are 1 to 3, or 11 to 13.

igsVec3 coordinates_at(const igsCopiousData& data, int i) {
  if (data.layout() == igsCopiousData::planar) {
    const giPoint2 point = data.planar_point(i);
    return {point.x(), point.y(), data.z_level()};
  }
  const giPoint3 point = data.point(i);
  return {point.x(), point.y(), point.z()};
}

igsVec3 vector_at(const igsCopiousData& data, int i) {
  const giVector3 vector = data.vector(i);
  return {vector.x(), vector.y(), vector.z()};
}

py::array_t<double> rows_of(const igsCopiousData& data, igsVec3 (*at)(const igsCopiousData&, int)) {
  py::array_t<double> rows({py::ssize_t{data.number_of_points()}, py::ssize_t{3}});
  double* to = rows.mutable_data();
  for (int i = 0; i < data.number_of_points(); ++i, to += 3) {
    const igsVec3 row = at(data, i);
    std::ranges::copy(std::array{row.x, row.y, row.z}, to);
  }
  return read_only(std::move(rows));
}

/// Refuses points that lie in no common plane where they have to.
void expect_layout(int layout, const Reals& points) {
  if (layout != igsCopiousData::planar) return;
  for (py::ssize_t i = 1; i < points.shape(0); ++i) {
    if (points.at(i, 2) == points.at(0, 2)) continue;
    throw py::value_error("points of forms 1 and 11 have one z: that of point " + std::to_string(i) + " is " +
                          text_of(points.at(i, 2)) + ", not " + text_of(points.at(0, 2)));
  }
}

/// Of a list that has the size of the array.
void store_points(igsCopiousData& data, const Reals& points) {
  if (data.layout() == igsCopiousData::planar) data.set_z_level(points.shape(0) > 0 ? points.at(0, 2) : 0);
  for (int i = 0; i < data.number_of_points(); ++i) {
    const giPoint3 point = row_of<giPoint3>(points, static_cast<std::size_t>(i));
    data.layout() == igsCopiousData::planar ? data.set_planar_point(i, giPoint2(point.x(), point.y()))
                                            : data.set_point(i, point);
  }
}

void store_vectors(igsCopiousData& data, const Reals& vectors) {
  for (int i = 0; i < vectors.shape(0); ++i)
    data.set_vector(i, row_of<giVector3>(vectors, static_cast<std::size_t>(i)));
}

/// Refuses points without vectors, or vectors without points, where there are to be both; and vectors elsewhere.
void expect_a_vector_each(int layout, py::ssize_t num_points, py::ssize_t num_vectors) {
  const bool has_vectors = layout == igsCopiousData::with_vectors;
  if (!has_vectors && num_vectors > 0) throw py::value_error("only points of forms 3 and 13 have vectors");
  if (!has_vectors || num_points == num_vectors) return;
  throw py::value_error("each point has a vector: there are " + std::to_string(num_points) + " points and " +
                        std::to_string(num_vectors) + " vectors");
}

template <class Class>
void set_coordinates(EntityOf<Class>& self, const py::object& numbers) {
  const Reals points = reals_of(numbers, "coordinates");
  expect_rows_of(3, points, "coordinates");
  const int layout = self.get().layout(), count = self.get().number_of_points();
  expect_layout(layout, points);
  if (layout == igsCopiousData::with_vectors) expect_a_vector_each(layout, points.shape(0), count);
  Class& data = self.change();
  if (points.shape(0) != count) data.set_size(layout, static_cast<int>(points.shape(0)));
  store_points(data, points);
}

template <class Class>
void set_vectors(EntityOf<Class>& self, const py::object& numbers) {
  const Reals vectors = reals_of(numbers, "vectors");
  expect_rows_of(3, vectors, "vectors");
  expect_a_vector_each(self.get().layout(), self.get().number_of_points(), vectors.shape(0));
  store_vectors(self.change(), vectors);
}

/// A new list, of the layout that its form says.
template <class Class>
void define_copious(EntityOf<Class>& self, const py::dict& values) {
  const auto rows = [&values](const char* name) {
    const py::object given = taken(values, name);
    Reals reals = given.is_none() ? Reals(std::vector<py::ssize_t>{0, 3}) : reals_of(given, name);
    expect_rows_of(3, reals, name);
    return reals;
  };
  const Reals points = rows("coordinates"), vectors = rows("vectors");
  const int layout = self.object().directory_entry().form_number() % 10;
  expect_layout(layout, points);
  expect_a_vector_each(layout, points.shape(0), vectors.shape(0));
  Class& data = self.change();
  data.set_size(layout, static_cast<int>(points.shape(0)));
  store_points(data, points);
  store_vectors(data, vectors);
}

template <class Class>
void define_copious_view(py::module_& module, const char* name, const char* doc) {
  using Self = EntityOf<Class>;
  const auto vectors = [](const Self& self) -> std::optional<py::array_t<double>> {
    if (self.get().layout() != igsCopiousData::with_vectors) return std::nullopt;
    return rows_of(self.get(), vector_at);
  };
  View<Class>(module, name, doc)
      .def_property(
          "coordinates", [](const Self& self) { return rows_of(self.get(), coordinates_at); }, set_coordinates<Class>,
          "The points, in model units: shape (n, 3), a copy. Points in a plane have the same z; other numbers of "
          "points may be set, but where each has a vector.")
      .def_property("vectors", vectors, set_vectors<Class>,
                    "A vector for each point, whose meaning is the sender's: shape (n, 3), a copy; None for forms that "
                    "have none.")
      .def("_define", define_copious<Class>);
}

void define_conics(py::module_& module) {
  View<igs100> arc(
      module, "Arc",
      "Circular Arc (100) in a plane of constant z: counterclockwise from the start to the end, a whole "
      "circle where they are the same. Model units, in definition space (`transform` leads to the model).");
  arc.coordinates("centre", &igs100::centre, &igs100::set_centre, "x and y of the centre: shape (2,).");
  View<igs104> conic(module, "ConicArc",
                     "Conic Arc (104) in a plane of constant z, counterclockwise from the start to the end: a piece of "
                     "an ellipse (form 1), a hyperbola (2) or a parabola (3). Model units, in definition space.");
  const auto define_ends = [](auto& view) {
    view.coordinates("start_point", &igsTrimmedConic::start_point, &igsTrimmedConic::set_start_point,
                     "x and y of the start: shape (2,).")
        .coordinates("end_point", &igsTrimmedConic::end_point, &igsTrimmedConic::set_end_point,
                     "x and y of the end: shape (2,).")
        .real("z_level", &igsTrimmedConic::z_level, &igsTrimmedConic::set_z_level,
              "z of the plane; None where it was never set.");
  };
  define_ends(arc);
  define_ends(conic);
  arc.def_property_readonly("radius", radius_of, "The distance of the start point from the centre.")
      .def_property_readonly("angles", angles_of,
                             "The angles of the start and the end, in radians from the x axis: shape (2,). The start "
                             "is from 0 to below 2 pi, the end above it by 2 pi at most.");
  conic.def_property("coeffs", coeffs_of, set_coeffs,
                     "A to F of A x^2 + B x y + C y^2 + D x + E y + F = 0: shape (6,).");
}

}  // namespace

void define_curves(py::module_& module) {
  define_conics(module);
  View<igs102>(module, "CompositeCurve", "Composite Curve (102): curves that follow each other from end to start.")
      .references(
          "sub_curves", [](const igs102& self) -> const auto& { return self.sub_curves(); }, set_sub_curves,
          "The curves, and points among them, in their order: a list of entities.");
  define_copious_view<igsPolyline>(module, "Polyline", "Copious Data (106) of forms 11 to 13: points that are joined.");
  define_copious_view<igsPointset>(module, "PointSet", "Copious Data (106) of forms 1 to 3: unconnected points.");
  View<igs110>(module, "Line",
               "Line (110), in model units: from the start point to the end point; on beyond the end without end "
               "(form 1), or beyond both (form 2).")
      .coordinates("start_point", &igs110::start_point, &igs110::set_start_point, "The start: shape (3,).")
      .coordinates("end_point", &igs110::end_point, &igs110::set_end_point, "The end: shape (3,).");
  View<igs116>(module, "Point", "Point (116), in model units.")
      .coordinates("point", &igs116::point, &igs116::set_point, "Where it is: shape (3,).")
      .reference("display_symbol", &igs116::display_symbol, &igs116::set_display_symbol,
                 "The subfigure that shows it, or None.");
  View<igs123>(module, "Direction", "Direction (123): a vector only whose direction matters.")
      .coordinates("direction", &igs123::direction, &igs123::set_direction, "Of any length: shape (3,).");
  View<igs124>(module, "TransformationMatrix",
               "Transformation Matrix (124): a rotation and a translation in model units.")
      .def_property(
          "elements", elements_of, set_elements,
          "The matrix for columns (x, y, z, 1), without that which places this one in its turn: shape (4, 4). "
          "The last row is 0, 0, 0, 1.");
}
