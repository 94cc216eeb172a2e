#include "view/scene_items.h"

#include <algorithm>
#include <array>
#include <numbers>

#include "findings/place.h"
#include "igs/objects/igsCast.h"
#include "text/text.h"
#include "view/scene_meshes.h"

namespace {

constexpr std::size_t most_line_points = 2'000'000;

const igsObject* surface_of(const igsObject* face) {
  if (const auto* const trimmed = igs_cast<igs144>(face)) return trimmed->surface().object();
  if (const auto* const bounded = igs_cast<igs143>(face)) return bounded->basis_surface().object();
  const auto* const of_solid = igs_cast<igs510>(face);
  return of_solid != nullptr ? of_solid->surface().object() : nullptr;
}

std::optional<Rgb> first_colour(std::initializer_list<const igsObject*> entities) {
  for (const igsObject* const entity : entities) {
    if (const std::optional<Rgb> colour = colour_of(entity)) return colour;
  }
  return std::nullopt;
}

std::size_t num_line_points(const Scene& scene) {
  std::size_t count = 0;
  for (const SceneItem& item : scene.items) {
    for (const auto& line : item.lines) count += line.size();
  }
  return count;
}

/// Drops points that are close to the one before, but for the last.
void thin_out(std::vector<igsVec3>& line, double distance) {
  if (line.size() < 3) return;
  std::size_t kept = 1;
  for (std::size_t i = 1; i + 1 < line.size(); ++i) {
    if ((line[i] - line[kept - 1]).length() >= distance) line[kept++] = line[i];
  }
  line[kept++] = line.back();
  line.resize(kept);
  line.shrink_to_fit();
}

bool is_item_drawable(const SceneItem& item) {
  bool is_all = true;
  for_each_point(item, [&](const igsVec3& point) { is_all = is_all && is_drawable(point); });
  return is_all;
}

/// Where the surface has no normal the triangles have one.
void find_missing_normals(SceneItem& item) {
  constexpr double least = 0.5;
  const auto at = [&](int corner) { return item.points[static_cast<std::size_t>(corner)]; };
  std::vector<igsVec3> sums;
  for (const igsVec3& normal : item.normals) {
    if (!(normal.length() > least)) sums.resize(item.points.size());
  }
  if (sums.empty()) return;
  for (const auto& [a, b, c] : item.triangles) {
    const igsVec3 normal = (at(b) - at(a)).cross(at(c) - at(a)).unit();
    for (const int corner : {a, b, c}) sums[static_cast<std::size_t>(corner)] += normal;
  }
  for (std::size_t i = 0; i < sums.size(); ++i) {
    if (item.normals[i].length() > least) continue;
    const igsVec3 normal = sums[i].unit();
    item.normals[i] = normal == igsVec3{} ? igsVec3{0, 0, 1} : normal;
  }
}

/// A flat polygon as triangles, fan-wise.
void add_area(const std::vector<igsVec3>& area, const igsPlacement& placement, SceneItem& item) {
  const int first = static_cast<int>(item.points.size()), count = static_cast<int>(area.size());
  for (const igsVec3& point : area) item.points.push_back(placement.point(point));
  for (int i = 2; i < count; ++i) item.triangles.push_back({first, first + i - 1, first + i});
}

}  // namespace

SceneItems::SceneItems(const igsFile& file, const SceneOptions& options, SceneEntities& entities, Scene& scene)
    : m_options(options),
      m_entities(entities),
      m_scene(scene),
      m_shapes(file),
      m_model(file, m_shapes, {true, true}),
      m_line_points_left(2 * most_line_points + 32 * static_cast<std::size_t>(file.num_entities())) {
  add_faces();
  add_shared_edges();
  add_loose_edges();
  m_meshes = {};
  add_wires();
  add_marks();
  drop_undrawable();
  thin_out_lines();
  add_remarks();
  find_box();
}

int SceneItems::add_item(ItemKind kind, const igsObject& entity, const igsObject* instance, bool is_off) {
  SceneItem& item = m_scene.items.emplace_back();
  item.kind = kind;
  item.entity = m_entities.position_of(entity);
  item.colour = first_colour({&entity, instance});
  item.is_off = is_off;
  m_origins.push_back({&entity, instance});
  const int number = static_cast<int>(m_scene.items.size()) - 1;
  if (instance != nullptr) see(instance, number);
  return number;
}

void SceneItems::see(const igsObject* entity, int item) {
  if (entity != nullptr && item >= 0) m_seen_in.emplace_back(entity, item);
}

void SceneItems::add_faces() {
  const std::vector<igsShapeFace>& faces = m_model.faces();
  m_scene.is_solid = std::all_of(faces.begin(), faces.end(), [](const igsShapeFace& face) { return face.shell >= 0; });
  const double size = rough_box(m_model).diagonal();
  m_meshes = meshes_within_limits(m_model, m_options, size > 0 ? size : 1, m_scene);
  for (std::size_t i = 0; i < m_meshes.size(); ++i) {
    const igsShapeFace& face = faces[i];
    const int number = add_item(ItemKind::face, *face.entity, face.instance, face.is_blanked);
    const igsShapeShell* const shell =
        face.shell >= 0 ? &m_model.shells()[static_cast<std::size_t>(face.shell)] : nullptr;
    item(number).colour =
        first_colour({face.entity, shell != nullptr ? shell->entity : nullptr,
                      shell != nullptr ? shell->solid : nullptr, face.instance, surface_of(face.entity)});
    item(number).points = std::move(m_meshes[i].points);
    item(number).normals = std::move(m_meshes[i].normals);
    item(number).triangles = std::move(m_meshes[i].triangles);
    find_missing_normals(item(number));
    m_meshes[i].parameters = {};
    if (!m_meshes[i].is_complete && !face.is_blanked) m_unmeshed.push_back(face.entity->de_number());
    m_origins.back().shell = face.shell;
    see(surface_of(face.entity), number);
  }
}

/// Edges of faces go from point to point of the triangles; what stands alone may be closer, as a line costs little.
igsShapeTolerance SceneItems::tolerance_of_lines(ItemKind kind) const {
  constexpr double fine = std::numbers::pi / 36;
  igsShapeTolerance tolerance = m_scene.tolerance;
  if (kind != ItemKind::edge) tolerance.angle = std::min(tolerance.angle, fine);
  return tolerance;
}

void SceneItems::add_line(const igsShapeCurve& curve, const igsPlacement& placement, int number) {
  igsShapeTolerance tolerance = tolerance_of_lines(item(number).kind);
  // So many curves that all of them are long are none that a small file needs.
  tolerance.most = std::clamp<std::size_t>(m_line_points_left / 64, 32, 5000);
  Line line;
  for (const igsPolylinePoint& point : igs_polyline(curve, tolerance)) line.push_back(placement.point(point.point));
  m_line_points_left -= std::min(line.size(), m_line_points_left);
  if (line.size() > 1) item(number).lines.push_back(std::move(line));
}

void SceneItems::add_shared_edges() {
  for (const igsShapeEdge& edge : m_model.edges()) {
    m_edge_items.push_back(-1);
    if (edge.curve == nullptr || edge.faces.empty()) continue;
    const bool is_off = std::all_of(edge.faces.begin(), edge.faces.end(), [&](int face) { return item(face).is_off; });
    const int number = add_item(ItemKind::edge, *edge.curve_entity, nullptr, is_off);
    for (std::size_t i = 0; i < std::min(edge.faces.size(), item(number).faces.size()); ++i) {
      item(number).faces[i] = edge.faces[i];
    }
    add_line(*edge.curve, edge.placement, number);
    see(edge.list, number);
    m_edge_items.back() = number;
  }
}

void SceneItems::add_loose_edges() {
  for (int face = 0; face < std::ssize(m_model.faces()); ++face) {
    const igsShapeFace& shape = m_model.faces()[static_cast<std::size_t>(face)];
    const std::size_t before = m_seen_in.size();
    for (const igsShapeLoop& loop : shape.loops) add_loop(face, loop);
    if (m_seen_in.size() == before || shape.is_bounded_by_surface) add_boundaries(face);
    if (item(face).triangles.empty()) item(face).points = item(face).normals = {};
  }
}

int SceneItems::add_loose_edge(int face, const igsShapeCurvePtr& curve, const igsObject* entity) {
  if (curve == nullptr || entity == nullptr) return -1;
  const int number = add_item(ItemKind::edge, *entity, nullptr, item(face).is_off);
  item(number).faces[0] = face;
  add_line(*curve, m_model.faces()[static_cast<std::size_t>(face)].placement, number);
  return number;
}

void SceneItems::add_loop(int face, const igsShapeLoop& loop) {
  std::vector<int> numbers;
  for (const igsShapePiece& piece : loop.model) {
    numbers.push_back(piece.edge >= 0 ? m_edge_items[static_cast<std::size_t>(piece.edge)]
                                      : add_loose_edge(face, piece.curve, piece.entity));
    see(loop.entity, numbers.back());
  }
  if (loop.model.empty()) {  // the curve in parameter space, on the surface
    see(loop.entity, add_loose_edge(face, m_shapes.curve(loop.entity), loop.entity));
  }
  for (const igsShapePiece& piece : loop.parameter) {
    if (piece.model >= 0) see(piece.entity, numbers[static_cast<std::size_t>(piece.model)]);
  }
}

void SceneItems::add_boundaries(int face) {
  if (m_meshes[static_cast<std::size_t>(face)].boundaries.empty()) return;
  const int number =
      add_item(ItemKind::edge, *m_model.faces()[static_cast<std::size_t>(face)].entity, nullptr, item(face).is_off);
  item(number).faces[0] = face;
  item(number).colour = std::nullopt;  // it is the face's
  for (const std::vector<int>& boundary : m_meshes[static_cast<std::size_t>(face)].boundaries) {
    Line line;
    for (const int point : boundary) line.push_back(item(face).points[static_cast<std::size_t>(point)]);
    if (line.size() < 2) continue;
    line.push_back(line.front());
    item(number).lines.push_back(std::move(line));
  }
}

void SceneItems::add_wires() {
  for (const igsShapeWire& wire : m_model.wires()) {
    if (wire.curve == nullptr) continue;
    add_line(*wire.curve, wire.placement,
             add_item(ItemKind::curve, *wire.entity, wire.instance, is_off(wire, m_model)));
  }
}

void SceneItems::add_marks() {
  for (const igsShapeMark& mark : m_model.marks()) add_mark(mark);
}

void SceneItems::add_mark(const igsShapeMark& mark) {
  igsShapeDrawing drawing = igs_draw(*mark.entity, m_shapes, tolerance_of_lines(ItemKind::annotation));
  const bool is_point = !drawing.points.empty();
  const int number =
      add_item(is_point ? ItemKind::point : ItemKind::annotation, *mark.entity, mark.instance, is_off(mark, m_model));
  SceneItem& shown = item(number);
  for (Line& line : drawing.lines) {
    for (igsVec3& point : line) point = mark.placement.point(point);
    shown.lines.push_back(std::move(line));
  }
  for (const igsVec3& point : drawing.points) shown.points.push_back(mark.placement.point(point));
  for (const Line& area : drawing.areas) {
    if (!is_point) add_area(area, mark.placement, shown);
  }
  for (igsShapeText& text : drawing.texts) {
    shown.texts.push_back({printable(to_utf8(text.text)), text.font, mark.placement.point(text.start),
                           mark.placement.vector(text.along), mark.placement.vector(text.up)});
  }
}

void SceneItems::drop_undrawable() {
  long long dropped = 0;
  for (SceneItem& shown : m_scene.items) {
    if (is_item_drawable(shown)) continue;
    shown.points = shown.normals = {};
    shown.triangles = {};
    shown.lines = {};
    shown.texts = {};
    ++dropped;
  }
  if (dropped == 0) return;
  m_scene.remarks.push_back(counted(dropped, "thing is", "things are") + " too far away to be drawn");
}

void SceneItems::thin_out_lines() {
  double distance = m_scene.tolerance.chord / 4;
  for (int tries = 0; tries < 4 && num_line_points(m_scene) > most_line_points; ++tries) {
    for (SceneItem& shown : m_scene.items) {
      for (Line& line : shown.lines) thin_out(line, distance);
    }
    distance *= 4;
  }
}

void SceneItems::add_remarks() {
  if (!m_unmeshed.empty()) {
    m_scene.remarks.push_back("faces that could not be triangulated: " + places_of_entities(m_unmeshed));
  }
  if (!m_model.left_out().empty()) {
    m_scene.remarks.push_back("left out, too much for the file: " + places_of_entities(m_model.left_out()));
  }
}

void SceneItems::find_box() {
  for (const bool with_what_is_off : {false, true}) {
    for (const SceneItem& shown : m_scene.items) {
      if (shown.is_off && !with_what_is_off) continue;
      for_each_point(shown, [&](const igsVec3& point) { m_scene.box.add(point); });
    }
    if (!m_scene.box.is_empty()) return;
  }
}
