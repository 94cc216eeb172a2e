#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/solids/igsOrientedEdge.h"

/// Loop (IGES 5.3, type 508, form 1): edges and vertices that bound a face, in order. Positions are 0-based.
class IGS_API igs508 : public igsEntity<igs508, "igs508", igsObject> {
 public:
  igs508();

  int number_of_oriented_edges() const { return static_cast<int>(m_oriented_edges.size()); }
  /// Cuts the list, or lengthens it by edges that refer to nothing, and returns 1; 0 for a negative size.
  int set_size(int size) { return igs_resize(m_oriented_edges, size); }
  /// The whole list, which may be changed in place.
  const igsOrientedEdgecoDynArr& oriented_edges() const { return m_oriented_edges; }
  igsOrientedEdgecoDynArr& oriented_edges() { return m_oriented_edges; }
  /// Good until the size of the list changes; an edge that refers to nothing outside it.
  const igsOrientedEdge& oriented_edge(int i) const { return igs_element(m_oriented_edges, i); }
  /// Stores oriented edge `i` and returns 1; 0 outside the list.
  int set_oriented_edge(int i, const igsOrientedEdge& edge) { return igs_set_element(m_oriented_edges, i, edge); }
  /// The place of oriented edge `i`, good until the size of the list changes; null outside the list.
  igsOrientedEdge* oriented_edge_at(int i) { return igs_place(m_oriented_edges, i); }

  /// Checks the edges of edge lists that the loop uses, too.
  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    const int count = visit.count("NumberOfOrientedEdges", entity.m_oriented_edges.size());
    visit.list("OrientedEdges", count, entity.m_oriented_edges, igsBadCount<igs508NoOrientatedEdges>());
  }

 protected:
  // The steps of check_pd(). `i`: the position of the oriented edge.

  void check_oriented_edges() const;
  /// Checks what `edge` names in an edge list (igs504); nothing where that has no such edge.
  void check_edge(int i, const igsOrientedEdge& edge) const;
  void check_halfedges(int i, const igsOrientedEdge& edge) const;

 private:
  void check_vertex_use(int i, const igsOrientedEdge& edge) const;
  void check_edge_use(int i, const igsOrientedEdge& edge) const;

  igsOrientedEdgecoDynArr m_oriented_edges;
};
