#pragma once

#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsList.h"
#include "igs/objects/igsObjectPtr.h"
#include "igs/support/export.h"

/// The loop has no edges, or the number of its edges, or of the parameter-space curves of one, is negative or out of
/// proportion to the record.
using igs508NoOrientatedEdges = igsNamedError<"igs508NoOrientatedEdges">;
class utOstream;

/// The curve in a surface's parameter space that an edge of a loop follows. The flag is 1 when it is isoparametric, 0
/// when not.
class IGS_API igsHalfEdge {
 public:
  igsHalfEdge() = default;
  igsHalfEdge(const igsObjectPtr& curve, int isoparametric_flag)
      : m_curve(curve), m_isoparametric_flag(isoparametric_flag) {}

  const igsObjectPtr& curve() const { return m_curve; }
  void set_curve(const igsObjectPtr& curve) { m_curve = curve; }
  int isoparametric_flag() const { return m_isoparametric_flag; }
  void set_isoparametric_flag(int flag) { m_isoparametric_flag = flag; }

  /// There is a curve, and the flag is 0 or 1.
  bool valid() const;
  void become(const igsHalfEdge& other) { *this = other; }
  void print_pd_data(utOstream& os) const;

  template <class E, class V>
  static void fields(E& half_edge, V& visit) {
    visit("IsoparametricFlag", half_edge.m_isoparametric_flag);
    visit("Curve", half_edge.m_curve);
  }

 private:
  [[no_unique_address]] igsObjectPtr m_curve;
  int m_isoparametric_flag = 0;
};

using igsHalfEdgecoDynArr = igsList<igsHalfEdge>;

/// One step of a loop (igs508): an edge of an edge list (igs504, edge type 0) or a vertex of a vertex list (igs502,
/// edge type 1) by its 0-based position there; orientation 1 when the loop follows the edge's curve, 0 when it goes
/// against it; and the curves in parameter space, by 0-based position.
class IGS_API igsOrientedEdge {
 public:
  int edge_type() const { return m_edge_type; }
  void set_edge_type(int type) { m_edge_type = type; }
  const igsObjectPtr& list() const { return m_list; }
  int index() const { return m_index; }
  void set_edge(const igsObjectPtr& list, int index) {
    m_list = list;
    m_index = index;
  }
  int orientation() const { return m_orientation; }
  void set_orientation(int orientation) { m_orientation = orientation; }

  int num_half_edges() const { return static_cast<int>(m_half_edges.size()); }
  /// Cuts the list, or lengthens it by half edges without a curve, and returns 1; 0 for a negative number.
  int set_num_half_edges(int number) { return igs_resize(m_half_edges, number); }
  /// Good until their number changes; a half edge without a curve outside the list.
  const igsHalfEdge& half_edge(int i) const { return igs_element(m_half_edges, i); }
  /// Stores half edge `i` and returns 1; 0 outside the list.
  int set_half_edge(int i, const igsHalfEdge& half_edge) { return igs_set_element(m_half_edges, i, half_edge); }
  /// The place of half edge `i`, good until their number changes; null outside the list.
  igsHalfEdge* half_edge_at(int i) { return igs_place(m_half_edges, i); }
  const igsHalfEdgecoDynArr& half_edges() const { return m_half_edges; }

  /// No pointer is null, no position negative, every flag 0 or 1, those of the half edges too.
  bool valid() const;
  void become(const igsOrientedEdge& other) { *this = other; }
  void print_pd_data(utOstream& os) const;

  template <class E, class V>
  static void fields(E& edge, V& visit) {
    visit("EdgeType", edge.m_edge_type);
    visit("List", edge.m_list);
    visit.index("Index", edge.m_index);
    visit("Orientation", edge.m_orientation);
    const int count = visit.count("NumberOfHalfEdges", edge.m_half_edges.size());
    visit.list("HalfEdges", count, edge.m_half_edges, igsBadCount<igs508NoOrientatedEdges>());
  }

 private:
  [[no_unique_address]] igsObjectPtr m_list;
  int m_index = 0;
  int m_edge_type = 0;
  int m_orientation = 0;
  igsHalfEdgecoDynArr m_half_edges;
};

using igsOrientedEdgecoDynArr = igsList<igsOrientedEdge>;
