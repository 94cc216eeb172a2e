#include <algorithm>
#include <limits>
#include <new>
#include <sstream>
#include <utility>

#if defined(IGS_HAS_ZLIB)
#include <zlib.h>
#endif

#include "text/json_writer.h"
#include "text/text.h"
#include "view/packed_geometry.h"
#include "view/writers.h"

// A page's data: the length of the header in four bytes, the lowest first, the header, which is JSON, and the columns,
// as long as the header says. Before that stands a byte that is 1 where all that follows is packed by zlib, else 0; all
// in base64. Lists of equal things are lists of lists there, in the order of web/viewer/unpack.ts.

namespace {

template <class... Values>
void write_row(JsonWriter& json, const Values&... values) {
  json.begin_array();
  (json.value(values), ...);
  json.end_array();
}

void write_vector(JsonWriter& json, const igsVec3& vector) { write_row(json, vector.x, vector.y, vector.z); }

void write_numbers(JsonWriter& json, const std::vector<int>& numbers) {
  json.begin_array();
  for (const int number : numbers) json.value(number);
  json.end_array();
}

void write_entity_row(JsonWriter& json, const SceneEntity& entity) {
  json.begin_array();
  for (const int number : {entity.de, entity.type, entity.form, entity.line}) json.value(number);
  json.value(entity.is_old);
  for (const std::string* text : {&entity.type_name, &entity.name, &entity.colour_name}) json.value(*text);
  write_numbers(json, entity.levels);
  json.value(entity.num_fields_left_out);
  json.end_array();
}

void write_finding_row(JsonWriter& json, const SceneFinding& finding) {
  json.begin_array();
  json.value(static_cast<int>(finding.severity));
  for (const std::string* text : {&finding.class_name, &finding.message, &finding.place}) json.value(*text);
  json.value(finding.line);
  json.value(finding.entity);
  json.value(finding.is_consequence);
  write_numbers(json, finding.items);
  write_numbers(json, finding.dependents);
  json.end_array();
}

void write_difference_row(JsonWriter& json, const SceneDifference& difference) {
  json.begin_array();
  json.value(static_cast<int>(difference.change));
  json.value(difference.old_entity);
  json.value(difference.new_entity);
  json.begin_array();
  for (const auto& [label, old_value, new_value] : difference.fields) write_row(json, label, old_value, new_value);
  json.end_array();
  write_numbers(json, difference.items);
  json.end_array();
}

void write_note_texts(JsonWriter& json, const Scene& scene) {
  constexpr int digits = 9;
  json.key("texts");
  json.begin_array();
  for (std::size_t i = 0; i < scene.items.size(); ++i) {
    for (const igsShapeText& text : scene.items[i].texts) {
      json.begin_array();
      json.value(static_cast<int>(i));
      json.value(std::string_view(text.text.data(), text.text.size()));
      for (const igsVec3& vector : {text.start, text.along, text.up}) {
        for (const double value : {vector.x, vector.y, vector.z}) json.value(rounded_to_digits(value, digits));
      }
      json.end_array();
    }
  }
  json.end_array();
}

void write_lists(JsonWriter& json, const Scene& scene) {
  json.list("remarks", scene.remarks, [&](const std::string& remark) { json.value(remark); });
  json.list("levels", scene.levels,
            [&](const LevelUse& level) { write_row(json, level.level, level.name.value_or(""), level.entities); });
  json.list("entities", scene.entities, [&](const SceneEntity& entity) { write_entity_row(json, entity); });
  // Labels are alike, and so are values: apart they pack better.
  for (const auto& [name, text] : {std::pair("fieldLabels", &SceneField::label), {"fieldValues", &SceneField::value}}) {
    json.list(name, scene.entities, [&json, text = text](const SceneEntity& entity) {
      json.begin_array();
      for (const SceneField& field : entity.fields) json.value(field.*text);
      json.end_array();
    });
  }
  json.list("nodes", scene.nodes,
            [&](const SceneNode& node) { write_row(json, node.label, node.entity, node.parent); });
  json.list("findings", scene.findings, [&](const SceneFinding& finding) { write_finding_row(json, finding); });
  json.list("differences", scene.differences,
            [&](const SceneDifference& difference) { write_difference_row(json, difference); });
  write_note_texts(json, scene);
}

/// What is said of the items but their geometry: number by number, most of them as their difference from the item
/// before.
class PackedItems {
 public:
  void add(const SceneItem& item) {
    constexpr int changes = 4;
    m_kinds.add(static_cast<int>(item.kind) * 2 * changes + static_cast<int>(item.change) * 2 + (item.is_off ? 1 : 0));
    m_entities.add(item.entity - std::exchange(m_last_entity, item.entity));
    m_nodes.add(item.node - std::exchange(m_last_node, item.node));
    for (std::size_t i = 0; i < item.faces.size(); ++i) {
      m_faces[i].add(item.faces[i] - std::exchange(m_last_faces[i], item.faces[i]));
    }
    m_colours.add(item.colour ? static_cast<long long>(item.colour->number()) : -1);
  }
  std::vector<const Column*> columns() const {
    return {&m_kinds, &m_entities, &m_nodes, m_faces.data(), &m_faces[1], &m_colours};
  }

 private:
  Column m_kinds, m_entities, m_nodes, m_colours;
  std::array<Column, 2> m_faces;
  int m_last_entity = 0, m_last_node = 0;
  std::array<int, 2> m_last_faces{};
};

std::string header_of(const Scene& scene, const igsVec3& direction, const PointGrid& grid,
                      const std::vector<const Column*>& columns) {
  std::ostringstream out;
  JsonWriter json(out);
  json.begin_object();
  json.member("title", scene.title);
  json.member("oldTitle", scene.old_title);
  json.member("units", scene.units);
  json.member("solid", scene.is_solid);
  json.member("chord", scene.tolerance.chord);
  json.member("angle", scene.tolerance.angle);
  const igsBox box = scene.box.is_empty() ? igsBox{{}, {}} : scene.box;
  const std::pair<const char*, igsVec3> vectors[] = {
      {"low", box.low}, {"high", box.high}, {"direction", direction}, {"origin", grid.origin()}};
  for (const auto& [name, vector] : vectors) {
    json.key(name);
    write_vector(json, vector);
  }
  json.member("step", grid.step());
  json.member("numItems", static_cast<long long>(scene.items.size()));
  json.list("counts", scene.counts, [&](long long count) { json.value(count); });
  write_lists(json, scene);
  json.list("columns", columns,
            [&](const Column* column) { json.value(static_cast<long long>(column->bytes().size())); });
  json.end_object();
  return out.str();
}

std::string deflated(std::string plain) {
#if defined(IGS_HAS_ZLIB)
  std::string result(1 + compressBound(static_cast<uLong>(plain.size())), '\1');
  auto size = static_cast<uLongf>(result.size() - 1);
  const auto bytes = [](char* text) {
    return reinterpret_cast<Bytef*>(text);  // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast): bytes
  };
  if (compress2(bytes(result.data() + 1), &size, bytes(plain.data()), static_cast<uLong>(plain.size()),
                Z_DEFAULT_COMPRESSION) != Z_OK) {
    throw std::bad_alloc();
  }
  result.resize(1 + size);
  return result;
#else
  return plain.insert(0, 1, '\0');
#endif
}

std::string base64(std::string_view bytes) {
  constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  constexpr std::size_t group = 3;
  std::string result;
  result.reserve((bytes.size() + 2) / group * 4);
  for (std::size_t i = 0; i < bytes.size(); i += group) {
    const std::size_t count = std::min(group, bytes.size() - i);
    unsigned bits = 0;
    for (std::size_t k = 0; k < group; ++k) {
      bits = bits << 8U | (k < count ? static_cast<unsigned char>(bytes[i + k]) : 0U);
    }
    for (std::size_t k = 0; k <= group; ++k) result += k <= count ? digits[bits >> (18 - 6 * k) & 63U] : '=';
  }
  return result;
}

}  // namespace

std::string packed(const Scene& scene, const igsVec3& direction) {
  const PointGrid grid(scene);
  PackedItems items;
  PackedGeometry geometry(grid);
  for (const SceneItem& item : scene.items) {
    items.add(item);
    geometry.add(item);
  }
  std::vector<const Column*> columns = items.columns();
  for (const Column* column : geometry.columns()) columns.push_back(column);

  const std::string header = header_of(scene, direction, grid, columns);
  std::string data;
  for (std::size_t i = 0; i < 4; ++i) data += static_cast<char>(header.size() >> (8 * i) & 255U);
  data += header;
  for (const Column* column : columns) data += column->bytes();
  return base64(deflated(std::move(data)));
}
