#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <locale>
#include <map>
#include <ostream>
#include <sstream>
#include <utility>

#include "findings/place.h"
#include "view/glb_buffer.h"
#include "view/writers.h"

namespace {

enum class GlbMode { points = 0, lines = 1, line_strip = 3, triangles = 4 };  // codes of the format

struct GlbPrimitive {
  GlbMode mode = GlbMode::points;
  int positions = 0;  // numbers of accessors
  std::optional<int> normals = {}, indices = {};
  int material = 0;
};

struct GlbNode {
  std::string name;
  int entity = -1;
  const SceneItem* item = nullptr;  ///< what is drawn there, if anything
  int mesh = -1;
  std::vector<int> children = {};
};

struct GlbMaterial {
  Rgb colour;
  bool is_lit = false;  ///< faces are; lines, points and annotation have the same colour everywhere
};

/// From sRGB; rounded, so that it is the same on all machines.
double linear(std::uint8_t component) {
  const double value = component / 255.0;
  constexpr double scale = 1e6;
  return std::round(scale * (value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4))) / scale;
}

std::string material_name(const GlbMaterial& material) {
  return (material.is_lit ? "face " : "line ") + hex(material.colour.number());
}

/// Writes an array of an open JSON object, unless it is empty, which the format does not allow.
template <class List, class Write>
void write_glb_list(JsonWriter& json, const char* name, const List& list, Write write) {
  if (!list.empty()) json.list(name, list, write);
}

/// Brings a scene into the order of the format.
class GlbMaker {
 public:
  explicit GlbMaker(const Scene& scene) : m_scene(scene) { add_nodes(); }

  std::string json() const;
  const GlbBuffer& buffer() const { return m_buffer; }

 private:
  using Mesh = std::vector<GlbPrimitive>;

  void add_nodes();
  void add_branches(const std::vector<bool>& is_needed);
  void add_item(const SceneItem& item, int mesh);
  int add_mesh(const SceneItem& item);
  void add_triangles(const SceneItem& item, Mesh& mesh);
  void add_lines(const SceneItem& item, Mesh& mesh);
  void add_primitive(GlbMode mode, const std::vector<igsVec3>& points, const std::vector<std::uint32_t>& indices,
                     const SceneItem& item, Mesh& mesh);
  int add_node(GlbNode node, int parent);
  int material_of(const SceneItem& item);

  void write_node(JsonWriter& json, const GlbNode& node) const;
  void write_extras(JsonWriter& json, const GlbNode& node) const;
  static void write_primitive(JsonWriter& json, const GlbPrimitive& primitive);
  static void write_material(JsonWriter& json, const GlbMaterial& material);

  const Scene& m_scene;
  GlbBuffer m_buffer;
  std::vector<GlbNode> m_nodes;
  std::vector<int> m_branches;  ///< which node here a node of the scene's tree is
  std::vector<Mesh> m_meshes;
  std::vector<GlbMaterial> m_materials;
  std::map<std::pair<std::uint32_t, bool>, int> m_material_numbers;  ///< by colour, and whether it is lit
};

void GlbMaker::add_nodes() {
  std::vector<std::pair<const SceneItem*, int>> shown;  // with the number of the mesh
  std::vector<bool> is_needed(m_scene.nodes.size(), false);
  for (const SceneItem& item : m_scene.items) {
    if (item.is_off) continue;
    const int mesh = add_mesh(item);
    if (mesh < 0 && item.texts.empty()) continue;
    shown.emplace_back(&item, mesh);
    is_needed[static_cast<std::size_t>(item.node)] = true;
  }
  for (std::size_t i = is_needed.size(); i-- > 1;) {
    if (is_needed[i]) is_needed[static_cast<std::size_t>(m_scene.nodes[i].parent)] = true;
  }
  add_branches(is_needed);
  for (const auto& [item, mesh] : shown) add_item(*item, mesh);
}

void GlbMaker::add_branches(const std::vector<bool>& is_needed) {
  add_node({.name = m_scene.title}, -1);
  m_branches.assign(m_scene.nodes.size(), 0);
  for (std::size_t i = 1; i < m_scene.nodes.size(); ++i) {
    const SceneNode& node = m_scene.nodes[i];
    if (!is_needed[i]) continue;
    const int parent = m_branches[static_cast<std::size_t>(node.parent)];
    m_branches[i] = add_node({.name = node.label, .entity = node.entity}, parent);
  }
}

/// Where the tree has a node for the entity alone, that is the node of the item.
void GlbMaker::add_item(const SceneItem& item, int mesh) {
  const int branch = m_branches[static_cast<std::size_t>(item.node)];
  GlbNode& node = m_nodes[static_cast<std::size_t>(branch)];
  if (branch > 0 && node.entity == item.entity && node.item == nullptr) {
    node.item = &item;
    node.mesh = mesh;
    return;
  }
  const SceneEntity& entity = m_scene.entities[static_cast<std::size_t>(item.entity)];
  std::string name = entity.name.empty() ? place_of_entity(entity.de, entity.type) : entity.name;
  add_node({.name = std::move(name), .entity = item.entity, .item = &item, .mesh = mesh}, branch);
}

int GlbMaker::add_node(GlbNode node, int parent) {
  const int number = static_cast<int>(m_nodes.size());
  m_nodes.push_back(std::move(node));
  if (parent >= 0) m_nodes[static_cast<std::size_t>(parent)].children.push_back(number);
  return number;
}

/// The number of the mesh; -1 where there is nothing to draw.
int GlbMaker::add_mesh(const SceneItem& item) {
  Mesh mesh;
  add_triangles(item, mesh);
  add_lines(item, mesh);
  if (item.kind == ItemKind::point) add_primitive(GlbMode::points, item.points, {}, item, mesh);
  if (mesh.empty()) return -1;
  m_meshes.push_back(std::move(mesh));
  return static_cast<int>(m_meshes.size() - 1);
}

void GlbMaker::add_triangles(const SceneItem& item, Mesh& mesh) {
  std::vector<std::uint32_t> indices;
  for (const auto& [a, b, c] : item.triangles) {
    if (a == b || b == c || c == a) continue;
    for (const int corner : {a, b, c}) indices.push_back(static_cast<std::uint32_t>(corner));
  }
  if (!indices.empty()) add_primitive(GlbMode::triangles, item.points, indices, item, mesh);
}

void GlbMaker::add_lines(const SceneItem& item, Mesh& mesh) {
  if (item.lines.size() == 1) return add_primitive(GlbMode::line_strip, item.lines.front(), {}, item, mesh);
  std::vector<igsVec3> points;
  std::vector<std::uint32_t> indices;
  for (const std::vector<igsVec3>& line : item.lines) {
    const std::size_t first = points.size();
    points.insert(points.end(), line.begin(), line.end());
    for (std::size_t i = first + 1; i < points.size(); ++i) {
      indices.push_back(static_cast<std::uint32_t>(i - 1));
      indices.push_back(static_cast<std::uint32_t>(i));
    }
  }
  add_primitive(GlbMode::lines, points, indices, item, mesh);
}

/// Nothing where the points do not fit into the format.
void GlbMaker::add_primitive(GlbMode mode, const std::vector<igsVec3>& points,
                             const std::vector<std::uint32_t>& indices, const SceneItem& item, Mesh& mesh) {
  const std::optional<int> positions = m_buffer.add_points(points, m_scene.metres_per_unit);
  if (!positions) return;
  GlbPrimitive primitive{.mode = mode, .positions = *positions, .material = material_of(item)};
  if (mode == GlbMode::triangles && !item.normals.empty()) {
    primitive.normals = m_buffer.add_normals(item.normals);
  }
  if (!indices.empty()) primitive.indices = m_buffer.add_indices(indices, points.size());
  mesh.push_back(primitive);
}

int GlbMaker::material_of(const SceneItem& item) {
  const bool is_lit = item.kind == ItemKind::face;
  const Rgb colour = item.colour.value_or(is_lit ? usual_face_colour : usual_line_colour);
  const auto [found, is_new] =
      m_material_numbers.try_emplace({colour.number(), is_lit}, static_cast<int>(m_materials.size()));
  if (is_new) m_materials.push_back({colour, is_lit});
  return found->second;
}

void GlbMaker::write_extras(JsonWriter& json, const GlbNode& node) const {
  const SceneEntity& entity = m_scene.entities[static_cast<std::size_t>(node.entity)];
  json.key("extras");
  json.begin_object();
  json.member("DE", entity.de);
  json.member("type", entity.type);
  json.member("form", entity.form);
  if (entity.levels.size() == 1) {
    json.member("level", entity.levels.front());
  } else {
    write_glb_list(json, "levels", entity.levels, [&](int level) { json.value(level); });
  }
  if (node.item != nullptr && node.item->texts.size() == 1) {
    json.member("text", node.item->texts.front().text);
  } else if (node.item != nullptr) {
    write_glb_list(json, "texts", node.item->texts, [&](const igsShapeText& text) { json.value(text.text); });
  }
  json.end_object();
}

void GlbMaker::write_node(JsonWriter& json, const GlbNode& node) const {
  json.begin_object();
  json.member("name", node.name);
  if (&node == &m_nodes.front()) {  // z upwards becomes y upwards
    constexpr double half = 0.7071067811865476;
    write_glb_list(json, "rotation", std::array{-half, 0.0, 0.0, half}, [&](double part) { json.value(part); });
  }
  if (node.mesh >= 0) json.member("mesh", node.mesh);
  write_glb_list(json, "children", node.children, [&](int child) { json.value(child); });
  if (node.entity >= 0) write_extras(json, node);
  json.end_object();
}

void GlbMaker::write_primitive(JsonWriter& json, const GlbPrimitive& primitive) {
  json.begin_object();
  json.key("attributes");
  json.begin_object();
  json.member("POSITION", primitive.positions);
  if (primitive.normals) json.member("NORMAL", *primitive.normals);
  json.end_object();
  if (primitive.indices) json.member("indices", *primitive.indices);
  json.member("material", primitive.material);
  json.member("mode", static_cast<int>(primitive.mode));
  json.end_object();
}

void GlbMaker::write_material(JsonWriter& json, const GlbMaterial& material) {
  json.begin_object();
  json.member("name", material_name(material));
  json.key("pbrMetallicRoughness");
  json.begin_object();
  const std::array colour{linear(material.colour.red), linear(material.colour.green), linear(material.colour.blue),
                          1.0};
  write_glb_list(json, "baseColorFactor", colour, [&](double component) { json.value(component); });
  json.member("metallicFactor", 0);
  json.end_object();
  json.member("doubleSided", true);
  if (!material.is_lit) {
    json.key("extensions");
    json.begin_object();
    json.key("KHR_materials_unlit");
    json.begin_object();
    json.end_object();
    json.end_object();
  }
  json.end_object();
}

std::string GlbMaker::json() const {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  JsonWriter json(text);
  json.begin_object();
  json.key("asset");
  json.begin_object();
  json.member("version", "2.0");
  json.member("generator", "igs " IGS_VERSION);
  json.end_object();
  const auto is_unlit = [](const GlbMaterial& material) { return !material.is_lit; };
  if (std::any_of(m_materials.begin(), m_materials.end(), is_unlit)) {
    write_glb_list(json, "extensionsUsed", std::array{"KHR_materials_unlit"},
                   [&](const char* name) { json.value(name); });
  }
  json.member("scene", 0);
  write_glb_list(json, "scenes", std::array{0}, [&](int root) {
    json.begin_object();
    write_glb_list(json, "nodes", std::array{root}, [&](int number) { json.value(number); });
    json.end_object();
  });
  write_glb_list(json, "nodes", m_nodes, [&](const GlbNode& node) { write_node(json, node); });
  write_glb_list(json, "meshes", m_meshes, [&](const Mesh& mesh) {
    json.begin_object();
    write_glb_list(json, "primitives", mesh, [&](const GlbPrimitive& primitive) { write_primitive(json, primitive); });
    json.end_object();
  });
  write_glb_list(json, "materials", m_materials, [&](const GlbMaterial& material) { write_material(json, material); });
  m_buffer.write_json(json);
  json.end_object();
  return text.str();
}

std::string chunk_header(std::size_t size, std::uint32_t type) {
  std::string header;
  append_number(header, static_cast<std::uint32_t>(size), 4);
  append_number(header, type, 4);
  return header;
}

}  // namespace

bool write_glb(std::ostream& out, const Scene& scene) {
  const GlbMaker maker(scene);
  std::string json = maker.json();
  json.resize((json.size() + 3) / 4 * 4, ' ');
  constexpr std::uint32_t magic = 0x46546C67, version = 2, json_type = 0x4E4F534A, binary_type = 0x004E4942;
  constexpr std::uint64_t header_size = 12, chunk_header_size = 8;
  const std::uint64_t binary_size = maker.buffer().size();
  const std::uint64_t size =
      header_size + chunk_header_size + json.size() + (binary_size > 0 ? chunk_header_size + binary_size : 0);
  if (size > std::numeric_limits<std::uint32_t>::max()) return false;
  std::string header;
  for (const std::uint32_t number : {magic, version, static_cast<std::uint32_t>(size)})
    append_number(header, number, 4);
  out << header << chunk_header(json.size(), json_type) << json;
  if (binary_size == 0) return true;
  out << chunk_header(maker.buffer().size(), binary_type);
  maker.buffer().write(out);
  return true;
}
