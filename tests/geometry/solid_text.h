#pragma once

#include <string>
#include <vector>

#include "iges_builder.h"

namespace igs_test {

/// The text of a solid: a ring of quadrilateral faces on one surface, all but the last in the outer shell and that one
/// in a void. Every loop has four edges, each with one curve in parameter space, and a vertex. Fields are named by
/// their entity's DE number and their position after the type number, 0-based.
class SolidText {
 public:
  enum Part { solid = 1, shell = 3, void_shell = 5, surface = 7, line = 9, vertices = 11, edges = 13 };
  static int loop(int i) { return 15 + 4 * i; }
  static int face(int i) { return 17 + 4 * i; }

  explicit SolidText(int faces = 4) {
    add(186, 0, {shell, 1, 1, void_shell, 1});
    add(514, 1, {faces - 1});
    add(514, 1, {1, face(faces - 1), 1});
    add(128, 0, {1, 1, 1, 1, 0, 0, 1, 0, 0, 0, 0, 1, 1, 0, 0, 1, 1, 1, 1,
                 1, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0, 0, 1, 0, 1});
    add(110, 0, {0, 0, 0, 1, 0, 0});
    add(502, 1, {2 * faces});
    add(504, 1, {3 * faces});
    for (int i = 0; i < faces; ++i) add_face(i, faces);
  }

  /// Adds an entity, or fields to one, and returns its DE number.
  int add(int type, int form, const std::vector<int>& fields) {
    m_entities.push_back({type, form, {}});
    return append(static_cast<int>(2 * m_entities.size() - 1), fields);
  }
  int append(int de, const std::vector<int>& fields) {
    for (const int field : fields) entity(de).fields.push_back(std::to_string(field));
    return de;
  }
  SolidText& set(int de, std::size_t field, const std::string& text) {
    return entity(de).fields.at(field) = text, *this;
  }
  SolidText& set_status(int de, const std::string& status) { return entity(de).status = status, *this; }

  std::string text() const {
    IgesBuilder builder;
    for (const Entity& entity : m_entities) {
      std::string data = entity.fields.front();
      for (std::size_t i = 1; i < entity.fields.size(); ++i) data += ',' + entity.fields[i];
      De de;
      de.status = entity.status;
      builder.entity(entity.type, entity.form, data, de);
    }
    return builder.text();
  }

 private:
  struct Entity {
    int type, form;
    std::vector<std::string> fields;
    std::string status = "00000000";
  };

  Entity& entity(int de) { return m_entities.at(static_cast<std::size_t>(de / 2)); }
  // Edges 3i, 3i + 1 and 3i + 2 are the lower edge of face i, the edge up from its first corner and its upper edge.
  void add_face(int i, int faces) {
    const int next = (i + 1) % faces, lower = 2 * i + 1, next_lower = 2 * next + 1;
    append(vertices, {i, 0, 0, i, 0, 1});
    append(edges, {line, vertices, lower, vertices, next_lower});
    append(edges, {line, vertices, lower, vertices, lower + 1});
    append(edges, {line, vertices, lower + 1, vertices, next_lower + 1});
    const int at = add(508, 1, {5});
    append(at, {0, edges, 3 * i + 1, 1, 1, 0, line, 0, edges, 3 * next + 2, 1, 1, 0, line});
    append(at, {0, edges, 3 * i + 3, 0, 1, 0, line, 0, edges, 3 * i + 2, 0, 1, 0, line});
    append(at, {1, vertices, lower, 1, 0});
    add(510, 1, {surface, 1, 1, at});
    if (i + 1 < faces) append(shell, {face(i), 1});
  }

  std::vector<Entity> m_entities;
};

}  // namespace igs_test
