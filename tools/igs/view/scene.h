#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "diff/compare.h"
#include "files/contents.h"
#include "findings/findings.h"
#include "igs/shape/igsShape.h"

// What a picture of a file shows, whatever the picture is written as. All texts are UTF-8 on one line; nothing else is
// promised of those that come from the file. Lengths are model units; -1 stands for "none" in places of lists.

struct Rgb {
  std::uint8_t red = 0, green = 0, blue = 0;  ///< sRGB
  /// 0xRRGGBB
  std::uint32_t number() const { return std::uint32_t{red} << 16U | std::uint32_t{green} << 8U | blue; }
  bool operator==(const Rgb&) const = default;
};
/// "#9fb4cc"
std::string hex(std::uint32_t colour);

/// Of what the file gives no colour.
inline constexpr Rgb usual_face_colour{0x9f, 0xb4, 0xcc}, usual_line_colour{0x33, 0x41, 0x55};

/// What became of something between an old file and a new one.
enum class SceneChange : std::uint8_t { none, changed, added, removed };

struct SceneField {
  std::string label;  ///< "StartPoint.x", "Knots(3)"; "line_font" for attributes
  std::string value;  ///< "DE 7" for a pointer, "0" for a null pointer
};

/// An entity that is drawn, stands in the tree or has findings.
struct SceneEntity {
  int de = 0;
  int type = 0, form = 0;
  int line = 0;             ///< of its directory entry in the input, from 1
  bool is_old = false;      ///< it is one of the old file
  std::string type_name;    ///< "Rational B-Spline Surface"
  std::string name;         ///< its Name property (type 406 form 15), else its label with its subscript; may be empty
  std::string colour_name;  ///< "red", or the name of its colour definition; may be empty
  std::vector<int> levels;  ///< 0 alone where it is on none
  std::vector<SceneField> fields;
  int num_fields_left_out = 0;
};

enum class ItemKind : std::uint8_t { face, edge, curve, point, annotation };

/// What is drawn of an entity at one place; what instances place, once for every place.
struct SceneItem {
  ItemKind kind = ItemKind::face;
  int entity = -1;                   ///< an edge's is its curve
  int node = -1;                     ///< of the tree, under which it stands
  std::array<int, 2> faces{-1, -1};  ///< of an edge: the items of faces that it bounds, with which it comes and goes
  std::optional<Rgb> colour;         ///< nothing where the file gives it none
  bool is_off = false;               ///< not shown at first: blanked, or of a drawing beside a model
  SceneChange change = SceneChange::none;

  std::vector<igsVec3> points;   ///< corners of triangles; of kind point the points themselves
  std::vector<igsVec3> normals;  ///< one a corner, of length 1; none for areas of annotation
  std::vector<std::array<int, 3>> triangles;
  std::vector<std::vector<igsVec3>> lines;
  std::vector<igsShapeText> texts;  ///< their bytes are UTF-8 on one line here
};

/// A node of the tree; stands behind its parent.
struct SceneNode {
  std::string label;
  int entity = -1;
  int parent = -1;
};

struct SceneFinding {
  Severity severity = Severity::error;
  std::string class_name;
  std::string message;  ///< as `igs check` words it
  std::string place;    ///< "126 Rational B-Spline Curve (DE 41)"
  int line = 0;
  int entity = -1;
  bool is_consequence = false;
  std::vector<int> items;       ///< what is drawn of its entity, or, where that is nothing, of what it consists of
  std::vector<int> dependents;  ///< items of what depends on the entity
};

/// An entity that is not the same in the old file and the new one.
struct SceneDifference {
  SceneChange change = SceneChange::changed;
  int old_entity = -1, new_entity = -1;
  std::vector<std::array<std::string, 3>> fields;  ///< label, old value, new value
  std::vector<int> items;
};

struct Scene {
  std::string title;           ///< the file's name, without folders
  std::string old_title;       ///< of a comparison; empty otherwise
  std::string units;           ///< "MM"; empty where they are unknown
  double metres_per_unit = 1;  ///< of the real thing: the model space scale is in it
  bool is_solid = false;       ///< all faces are of shells, so that their normals point out of the material
  igsBox box;                  ///< of all that is not off
  igsShapeTolerance tolerance;
  std::vector<std::string> remarks;  ///< for people: that it is coarser than usual, or what was left out
  std::vector<LevelUse> levels;
  std::vector<SceneEntity> entities;
  std::vector<SceneNode> nodes;  ///< the first is the root, which stands for the file
  std::vector<SceneItem> items;
  std::vector<SceneFinding> findings;  ///< the worst first
  std::vector<SceneDifference> differences;
  std::array<long long, 3> counts{};  ///< of all findings, by severity; there may be more than are listed

  std::size_t num_triangles() const;
};

/// The corners of the place where a text stands.
std::array<igsVec3, 4> corners_of(const igsShapeText& text);

/// Calls use(point) for all points of an item, and for the corners of its texts.
template <class Use>
void for_each_point(const SceneItem& item, Use use) {
  for (const igsVec3& point : item.points) use(point);
  for (const std::vector<igsVec3>& line : item.lines) {
    for (const igsVec3& point : line) use(point);
  }
  for (const igsShapeText& text : item.texts) {
    for (const igsVec3& corner : corners_of(text)) use(corner);
  }
}

struct SceneOptions {
  std::optional<double> chord;           ///< in model units; nothing: a thousandth of the model's size
  std::optional<double> angle;           ///< in radians; nothing: 20 degrees
  std::size_t most_triangles = 500'000;  ///< both become coarser where there would be more
  std::size_t most_findings = 5'000;
  bool has_fields = false;
  int threads = 1;
};

/// Of a file that has been read and checked. Throws std::bad_alloc when memory runs out.
Scene make_scene(const Model& model, const Findings& findings, const SceneOptions& options);
/// Of a new file beside an old one: what only the old file has stands in it, too, marked as removed.
Scene make_comparison(const Model& old_model, const Model& new_model, const Findings& findings,
                      const SceneOptions& options);
