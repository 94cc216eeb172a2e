#include "view/scene_meshes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>

#include "text/text.h"

namespace {

constexpr double usual_chord = 1e-3;  // of the model's size
constexpr double usual_angle = std::numbers::pi / 9;
constexpr double least_chord = 1e-6, least_angle = std::numbers::pi / 1800;  // closer than pictures are precise

class BoxSampler {
 public:
  explicit BoxSampler(bool with_what_is_off) : m_with_what_is_off(with_what_is_off) {}
  igsBox box_of(const igsShapeModel& model);

 private:
  void add(const igsShapeCurve& curve, const igsPlacement& placement);
  void add(const igsShapeSurface& surface, const igsPlacement& placement);
  void add(const igsShapeFace& face);
  void add(const igsVec3& point) {
    if (is_drawable(point)) m_box.add(point);
  }
  bool is_wanted(bool is_off) const { return m_with_what_is_off || !is_off; }

  static constexpr int steps = 8;
  /// A part of the way through a range, whose length may be more than a double holds.
  static double between(const igsRange& range, int step) {
    const double part = static_cast<double>(step) / steps;
    return range.low * (1 - part) + range.high * part;
  }

  bool m_with_what_is_off;
  igsBox m_box;
};

igsBox BoxSampler::box_of(const igsShapeModel& model) {
  for (const igsShapeFace& face : model.faces()) {
    if (is_wanted(face.is_blanked)) add(face);
  }
  for (const igsShapeWire& wire : model.wires()) {
    if (wire.curve != nullptr && is_wanted(is_off(wire, model))) add(*wire.curve, wire.placement);
  }
  return m_box;
}

void BoxSampler::add(const igsShapeFace& face) {
  bool has_curves = false;
  for (const igsShapeLoop& loop : face.loops) {
    for (const igsShapePiece& piece : loop.model) {
      if (piece.curve == nullptr) continue;
      add(*piece.curve, face.placement);
      has_curves = true;
    }
  }
  if (!has_curves && face.surface != nullptr) add(*face.surface, face.placement);
}

void BoxSampler::add(const igsShapeCurve& curve, const igsPlacement& placement) {
  constexpr std::size_t most_breaks = 32;
  if (!curve.range().is_finite()) return;
  for (int i = 0; i <= steps; ++i) add(placement.point(curve.point(between(curve.range(), i))));
  const std::vector<double>& breaks = curve.breaks();
  const std::size_t step = breaks.size() / most_breaks + 1;
  for (std::size_t i = 0; i < breaks.size(); i += step) add(placement.point(curve.point(breaks[i])));
}

void BoxSampler::add(const igsShapeSurface& surface, const igsPlacement& placement) {
  if (!surface.is_finite()) return;
  for (int i = 0; i <= steps; ++i) {
    for (int j = 0; j <= steps; ++j) {
      add(placement.point(surface.point(between(surface.u().range, i), between(surface.v().range, j))));
    }
  }
}

/// Meshes a model as closely as the number of triangles allows.
class LimitedMesher {
 public:
  LimitedMesher(const igsShapeModel& model, const SceneOptions& options, double size)
      : m_model(model),
        m_options(options),
        m_size(size),
        m_most_of_face(std::max<std::size_t>(1, options.most_triangles / faces_at_least)) {}

  std::vector<igsShapeMesh> meshes();
  std::size_t num_undrawable() const { return m_num_undrawable; }
  igsShapeTolerance tolerance() const { return tolerance_of(m_step); }
  int step() const { return m_step; }
  std::size_t num_left_out() const { return m_num_left_out; }

 private:
  /// A single face that reaches too far must not take everything.
  static constexpr std::size_t faces_at_least = 5;
  int last_step() const { return is_asked_for() ? 32 : 4; }
  bool is_asked_for() const { return m_options.chord || m_options.angle; }
  igsShapeTolerance tolerance_of(int step) const;
  double predicted(int step) const;
  std::vector<igsShapeMesh> meshes_of_all(std::size_t most);
  void drop_undrawable(std::vector<igsShapeMesh>& meshes);
  void choose_step();
  void leave_out_small_faces(std::vector<igsShapeMesh>& meshes);

  const igsShapeModel& m_model;
  const SceneOptions& m_options;
  double m_size;
  int m_step = 0;
  bool m_is_step_final = false;  ///< coarser ones have hardly less triangles
  std::size_t m_most_of_face;
  std::size_t m_num_left_out = 0;
  std::size_t m_num_undrawable = 0;
};

/// Each step is twice as coarse.
igsShapeTolerance LimitedMesher::tolerance_of(int step) const {
  constexpr double wider = 1.28;
  igsShapeTolerance tolerance;
  const double chord = std::max(m_options.chord.value_or(usual_chord * m_size), least_chord * m_size);
  const double angle = std::max(m_options.angle.value_or(usual_angle), least_angle);
  tolerance.chord = std::ldexp(chord, step);
  tolerance.angle = std::min(angle * std::pow(wider, step), std::numbers::pi);
  tolerance.most = m_most_of_face;
  return tolerance;
}

/// How many triangles there will be, told from a few faces; no more of them are looked at than are needed to know that
/// they are too many.
double LimitedMesher::predicted(int step) const {
  const std::vector<igsShapeFace>& faces = m_model.faces();
  const std::size_t sample = std::min<std::size_t>(256, faces.size());
  const igsShapeTolerance tolerance = tolerance_of(step);
  const igsShapeEdgePoints edges(m_model, tolerance);
  std::size_t triangles = 0, looked_at = 0;
  for (; looked_at < sample && triangles <= m_options.most_triangles; ++looked_at) {
    triangles += igs_mesh(faces[looked_at * faces.size() / sample], edges, tolerance, false).triangles.size();
  }
  return static_cast<double>(triangles) * static_cast<double>(faces.size()) / static_cast<double>(looked_at);
}

/// Where coarser steps make no difference, closer ones do no harm.
void LimitedMesher::choose_step() {
  constexpr std::size_t few_faces = 1000;
  constexpr double worth_while = 0.9;
  if (!is_asked_for() && m_model.faces().size() < few_faces) return;
  double count = predicted(m_step);
  while (m_step < last_step() && count > static_cast<double>(m_options.most_triangles)) {
    const double next = predicted(m_step + 1);
    m_is_step_final = !is_asked_for() && next > worth_while * count;
    if (m_is_step_final) return;
    count = next;
    ++m_step;
  }
}

std::size_t num_triangles_of(const std::vector<igsShapeMesh>& meshes) {
  return std::accumulate(meshes.begin(), meshes.end(), std::size_t{0},
                         [](std::size_t sum, const igsShapeMesh& mesh) { return sum + mesh.triangles.size(); });
}

/// Empty where there would be more than `most` triangles.
std::vector<igsShapeMesh> LimitedMesher::meshes_of_all(std::size_t most) {
  return igs_meshes(m_model, tolerance(), m_options.threads, false, most);
}

std::vector<igsShapeMesh> LimitedMesher::meshes() {
  constexpr int most_tries = 2;
  constexpr std::size_t too_many_by_far = 2;  // times what can be shown
  constexpr std::size_t least_of_face = 32;
  std::vector<igsShapeMesh> meshes;
  if (m_model.faces().empty()) return meshes;
  choose_step();
  for (int tries = 0; meshes.empty() && !m_is_step_final; ++tries) {
    meshes = meshes_of_all(m_options.most_triangles);
    m_is_step_final = m_step == last_step() || tries == most_tries;
    if (meshes.empty() && !m_is_step_final) ++m_step;
  }
  if (meshes.empty()) meshes = meshes_of_all(too_many_by_far * m_options.most_triangles);
  if (meshes.empty()) {
    const std::size_t fair_part = 2 * m_options.most_triangles / m_model.faces().size();
    m_most_of_face = std::min(m_most_of_face, std::max(least_of_face, fair_part));
    meshes = meshes_of_all(std::numeric_limits<std::size_t>::max());
  }
  drop_undrawable(meshes);
  leave_out_small_faces(meshes);
  return meshes;
}

void LimitedMesher::drop_undrawable(std::vector<igsShapeMesh>& meshes) {
  for (igsShapeMesh& mesh : meshes) {
    if (std::all_of(mesh.points.begin(), mesh.points.end(), is_drawable)) continue;
    mesh.triangles = {};
    ++m_num_undrawable;
  }
}

double area_of(const igsShapeMesh& mesh) {
  const auto point = [&](int corner) { return mesh.points[static_cast<std::size_t>(corner)]; };
  double area = 0;
  for (const auto& [a, b, c] : mesh.triangles) area += (point(b) - point(a)).cross(point(c) - point(a)).length() / 2;
  return std::isfinite(area) ? area : 0;
}

/// What is blanked goes first.
void LimitedMesher::leave_out_small_faces(std::vector<igsShapeMesh>& meshes) {
  if (num_triangles_of(meshes) <= m_options.most_triangles) return;
  std::vector<std::size_t> order(meshes.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::vector<double> weights;
  for (std::size_t i = 0; i < meshes.size(); ++i) {
    weights.push_back(m_model.faces()[i].is_blanked ? -1 : area_of(meshes[i]));
  }
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return weights[a] > weights[b]; });
  std::size_t left = m_options.most_triangles;
  for (const std::size_t i : order) {
    std::vector<std::array<int, 3>>& triangles = meshes[i].triangles;
    if (triangles.size() <= left) {
      left -= triangles.size();
    } else {
      triangles = {};
      ++m_num_left_out;
    }
  }
}

}  // namespace

bool is_drawable(const igsVec3& point) {
  const auto is_near = [](double value) { return std::abs(value) <= greatest_coordinate; };
  return is_near(point.x) && is_near(point.y) && is_near(point.z);
}

igsBox rough_box(const igsShapeModel& model) {
  const igsBox box = BoxSampler(false).box_of(model);
  return box.is_empty() ? BoxSampler(true).box_of(model) : box;
}

std::vector<igsShapeMesh> meshes_within_limits(const igsShapeModel& model, const SceneOptions& options, double size,
                                               Scene& scene) {
  LimitedMesher mesher(model, options, size);
  std::vector<igsShapeMesh> meshes = mesher.meshes();
  scene.tolerance = mesher.tolerance();
  if (mesher.step() > 0) {
    scene.remarks.push_back("drawn to within " + format_figure(rounded_to_digits(scene.tolerance.chord, 2)) +
                            (scene.units.empty() ? "" : ' ' + scene.units) + ", coarser than " +
                            (options.chord || options.angle ? "asked for" : "usual") +
                            ", as there would be too many triangles");
  }
  if (mesher.num_left_out() > 0) {
    scene.remarks.push_back(counted(static_cast<long long>(mesher.num_left_out()), "small face is", "small faces are") +
                            " drawn without a surface, as there are too many");
  }
  if (mesher.num_undrawable() > 0) {
    scene.remarks.push_back(counted(static_cast<long long>(mesher.num_undrawable()), "face reaches", "faces reach") +
                            " too far to be drawn");
  }
  return meshes;
}
