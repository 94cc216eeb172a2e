#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "view/scene.h"

/// A text of a file as scenes have it: UTF-8 on one line, cut where it is long.
std::string shown_text(std::string_view text);
/// A field's value as scenes have it.
std::string shown_value(const FieldValue& value);

/// The colour that an entity's directory entry gives it; nothing for null and where it gives none.
std::optional<Rgb> colour_of(const igsObject* entity);

/// The entities of a file that a scene has, each made when it is first asked for.
class SceneEntities {
 public:
  SceneEntities(const igsFile& file, Scene& scene) : m_file(file), m_scene(scene) {}

  /// The position of an entity in the scene.
  int position_of(const igsObject& entity);
  /// The name of an entity, else that of its type, with its DE number.
  std::string label_of(const igsObject& entity);
  /// Gives the entities their fields, as far as there is room: those that have findings come first.
  void add_fields();

 private:
  std::string name_of(const igsObject& entity);
  std::vector<int> levels_of_entity(const igsObject& entity);
  void add_fields(int position);

  const igsFile& m_file;
  Scene& m_scene;
  std::vector<int> m_positions;                           ///< by slot; -1 where there is none
  std::vector<const igsObject*> m_objects;                ///< by position
  std::map<const igsObject*, std::string> m_names;        ///< in their properties
  std::map<const igsObject*, std::vector<int>> m_levels;  ///< of their definitions
  std::size_t m_bytes_left = 3'000'000;                   ///< of fields
  std::size_t m_most_fields = 0;                          ///< of an entity
};
