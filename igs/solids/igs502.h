#pragma once

#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsList.h"
#include "igs/support/giPoint.h"

/// The vertex list is empty, or its count is negative or out of proportion to the record.
using igs502NoVertices = igsNamedError<"igs502NoVertices">;

/// Vertex List (IGES 5.3, type 502, form 1): the corners of a boundary representation, in model units. Positions are
/// 0-based.
class IGS_API igs502 : public igsEntity<igs502, "igs502", igsObject> {
 public:
  igs502();

  int number_of_vertices() const { return static_cast<int>(m_vertices.size()); }
  /// Cuts the list, or lengthens it by undefined points, and returns 1; 0 for a negative size.
  int set_size(int size) { return igs_resize(m_vertices, size); }
  /// Good until the size of the list changes; undefined outside it.
  const giPoint3& vertex(int i) const { return igs_element(m_vertices, i); }
  /// Stores vertex `i` and returns 1; 0 outside the list.
  int set_vertex(int i, const giPoint3& vertex) { return igs_set_element(m_vertices, i, vertex); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    const int count = visit.count("NumberOfVertices", entity.m_vertices.size());
    visit.list("Vertices", count, entity.m_vertices, igsBadCount<igs502NoVertices>());
  }

 private:
  igsList<giPoint3> m_vertices;
};
