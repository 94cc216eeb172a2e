#pragma once

#include <vector>

#include "igs/objects/igsList.h"
#include "igs/objects/igsObjectPtr.h"
#include "igs/support/export.h"

class utOstream;

/// An edge of an edge list (igs504): a curve from a first to a second vertex, each given by a vertex list (igs502) and
/// a 0-based position in it.
class IGS_API igsEdge {
 public:
  const igsObjectPtr& curve() const { return m_curve; }
  void set_curve(const igsObjectPtr& curve) { m_curve = curve; }
  const igsObjectPtr& first_list() const { return m_first_list; }
  int first_offset() const { return m_first_offset; }
  void set_first_vertex(const igsObjectPtr& list, int index) {
    m_first_list = list;
    m_first_offset = index;
  }
  const igsObjectPtr& second_list() const { return m_second_list; }
  int second_offset() const { return m_second_offset; }
  void set_second_vertex(const igsObjectPtr& list, int index) {
    m_second_list = list;
    m_second_offset = index;
  }

  /// No pointer is null and no position negative.
  bool valid() const;
  void become(const igsEdge& other) { *this = other; }
  void print_pd_data(utOstream& os) const;

  template <class E, class V>
  static void fields(E& edge, V& visit) {
    visit("Curve", edge.m_curve);
    visit("FirstVertexList", edge.m_first_list);
    visit.index("FirstVertexIndex", edge.m_first_offset);
    visit("SecondVertexList", edge.m_second_list);
    visit.index("SecondVertexIndex", edge.m_second_offset);
  }

 private:
  igsObjectPtr m_curve;
  [[no_unique_address]] igsObjectPtr m_first_list;
  int m_first_offset = 0;
  [[no_unique_address]] igsObjectPtr m_second_list;
  int m_second_offset = 0;
};

using igsEdgecoDynArr = igsList<igsEdge>;
