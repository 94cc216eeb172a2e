// Any bytes at all as a file whose shapes are asked for points, polylines, lengths, boxes and triangles, whose points
// and annotation are drawn, and whose geometry is checked. What comes back must be finite and lie within the bounds
// that were asked for; time and memory stay in proportion to the input.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "igs/shape/igsShape.h"
#include "invariants.h"

namespace {
using igs_fuzz::require;

constexpr igsShapeTolerance coarse{0.05, 0.5, 1'000};

void ask_curve(const igsShapeCurve& curve) {
  const igsRange& range = curve.range();
  require(!curve.breaks().empty() || !range.is_finite(), "a finite range has breaks");
  for (const double t : {range.low, range.high, range.is_finite() ? range.at(0.3) : 0.3, -1e300, 1e300}) {
    curve.at(t);
    curve.at(t, igsSide::before);
  }
  const std::vector<igsPolylinePoint> polyline = igs_polyline(curve, coarse);
  require(polyline.size() <= coarse.most, "a polyline has no more points than are allowed");
  for (const igsPolylinePoint& point : polyline)
    require(point.point.is_finite(), "the points of a polyline are finite");
  igs_length(curve);
  igs_box(curve);
  const igsNearestPointOnCurve nearest(curve);
  nearest({1, 2, 3});
}

void ask_surface(const igsShapeSurface& surface) {
  for (const double u : {-1e300, 0.0, 0.3, 1.0, 1e300}) {
    for (const double v : {-1e300, 0.0, 0.7, 1.0, 1e300}) {
      surface.at(u, v);
      surface.at(u, v, igsSide::before, igsSide::before);
    }
  }
  const igsNearestPointOnSurface nearest(surface);
  nearest({1, 2, 3});
}

void ask_mesh(const igsShapeMesh& mesh) {
  require(mesh.normals.size() == mesh.points.size(), "a point of a mesh has a normal");
  require(mesh.parameters.size() == mesh.points.size(), "a point of a mesh has parameters");
  for (const igsVec3& point : mesh.points) require(point.is_finite(), "the points of a mesh are finite");
  const auto check = [&](int position) {
    require(position >= 0 && static_cast<std::size_t>(position) < mesh.points.size(), "a mesh refers to its points");
  };
  for (const auto& triangle : mesh.triangles) {
    for (const int position : triangle) check(position);
  }
  for (const auto& loop : mesh.boundaries) {
    for (const int position : loop) check(position);
  }
}

void ask_drawing(const igsShapeDrawing& drawing) {
  const auto check = [](const igsVec3& point) { require(point.is_finite(), "what is drawn is finite"); };
  for (const auto* shapes : {&drawing.lines, &drawing.areas}) {
    for (const std::vector<igsVec3>& points : *shapes) {
      require(points.size() > 1, "lines and areas have points");
      std::for_each(points.begin(), points.end(), check);
    }
  }
  std::for_each(drawing.points.begin(), drawing.points.end(), check);
  for (const igsShapeText& text : drawing.texts) {
    for (const igsVec3& vector : {text.start, text.along, text.up}) check(vector);
  }
}

void ask(const igsFile& file) {
  igsShapes shapes(file);
  igsFileIT entities(&file);
  while (++entities) {
    if (const igsShapeCurvePtr curve = shapes.curve(entities())) ask_curve(*curve);
    if (const igsShapeSurfacePtr surface = shapes.surface(entities())) ask_surface(*surface);
  }
  const igsShapeModel model(file, shapes, {.has_blanked = true, .has_marks = true});
  for (const igsShapeMark& mark : model.marks()) ask_drawing(igs_draw(*mark.entity, shapes, coarse));
  for (const igsShapeMesh& mesh : igs_meshes(model, coarse)) ask_mesh(mesh);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  igs_fuzz::Discard discard;
  igsFile file;
  std::istringstream in(std::string(data, data + size));
  file.read(in, discard());
  ask(file);
  file.check();
  igsShapeCheck(file);
  igs_fuzz::check_memory(file);
  return 0;
}
