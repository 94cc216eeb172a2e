#pragma once

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/solids/igsEdge.h"

/// The edge list is empty, or its count is negative or out of proportion to the record.
using igs504NoEdges = igsNamedError<"igs504NoEdges">;

/// Edge List (IGES 5.3, type 504, form 1). Positions are 0-based. What the edges refer to is checked by the loops that
/// use them.
class IGS_API igs504 : public igsEntity<igs504, "igs504", igsObject> {
 public:
  igs504();

  int number_of_edges() const { return static_cast<int>(m_edges.size()); }
  /// Cuts the list, or lengthens it by edges that refer to nothing, and returns 1; 0 for a negative size.
  int set_size(int size) { return igs_resize(m_edges, size); }
  /// Good until the size of the list changes; an edge that refers to nothing outside it.
  const igsEdge& edge(int i) const { return igs_element(m_edges, i); }
  /// Stores edge `i` and returns 1; 0 outside the list.
  int set_edge(int i, const igsEdge& edge) { return igs_set_element(m_edges, i, edge); }

  const igsEdgecoDynArr& edges() const { return m_edges; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    const int count = visit.count("NumberOfEdges", entity.m_edges.size());
    visit.list("Edges", count, entity.m_edges, igsBadCount<igs504NoEdges>());
  }

 private:
  igsEdgecoDynArr m_edges;
};
