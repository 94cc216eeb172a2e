#include "igs/solids/igs508.h"

#include <algorithm>

#include "igs/curves/private/igsGeometryChecks.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/objects/igsCast.h"
#include "igs/objects/igsCurve.h"
#include "igs/solids/igs502.h"
#include "igs/solids/igs504.h"
#include "igs/solids/igs508_errors.h"

namespace {
constexpr int edge_type_edge = 0;
constexpr int edge_type_vertex = 1;

using EdgeCurveTest = igsReferenceTest<igs508OrientatedEdge504EdgeNullCurve, igs508OrientatedEdge504EdgeWrongCurveType,
                                       igs508OrientatedEdge504EdgeInvalidCurve>;
using FirstListTest =
    igsReferenceTest<igs508OrientatedEdge504EdgeNullFirstList, igs508OrientatedEdge504EdgeWrongFirstListType,
                     igs508OrientatedEdge504EdgeInvalidFirstList>;
using SecondListTest =
    igsReferenceTest<igs508OrientatedEdge504EdgeNullSecondList, igs508OrientatedEdge504EdgeWrongSecondListType,
                     igs508OrientatedEdge504EdgeInvalidSecondList>;
using HalfEdgeCurveTest =
    igsReferenceTest<igs508HalfEdgeNullCurve, igs508HalfEdgeWrongCurveType, igs508HalfEdgeInvalidCurve>;

bool is_outside(int index, int size) { return index < 0 || index >= size; }

/// Whether `list`, where it is a vertex list, has no vertex `index`.
bool is_outside(int index, const igsObject* list) {
  const igs502* const vertices = igs_cast<igs502>(list);
  return vertices != nullptr && is_outside(index, vertices->number_of_vertices());
}
}  // namespace

bool igsHalfEdge::valid() const { return m_curve && igs_is_flag(m_isoparametric_flag); }

void igsHalfEdge::print_pd_data(utOstream& os) const {
  igsFieldPrinter printer(os);
  fields(*this, printer);
}

bool igsOrientedEdge::valid() const {
  return m_list && m_index >= 0 && igs_is_flag(m_edge_type) && igs_is_flag(m_orientation) &&
         std::all_of(m_half_edges.begin(), m_half_edges.end(), [](const igsHalfEdge& half) { return half.valid(); });
}

void igsOrientedEdge::print_pd_data(utOstream& os) const {
  igsFieldPrinter printer(os);
  fields(*this, printer);
}

igs508::igs508() { set_directory_entry_type(igsEntity508, 1); }

void igs508::check_pd() const {
  if (m_oriented_edges.empty()) tag<igs508NoOrientatedEdges>();
  check_oriented_edges();
}

void igs508::check_oriented_edges() const {
  for (int i = 0; const igsOrientedEdge& edge : m_oriented_edges) {
    const igsObject* const list = edge.list().object();
    if (list == nullptr) {
      tag<igs508OrientatedEdgeNullList>(i);
    } else if (list->isa(igs502::type())) {
      check_vertex_use(i, edge);
    } else if (list->isa(igs504::type())) {
      check_edge_use(i, edge);
    } else {
      tag<igs508OrientatedEdgeWrongListType>(i);
    }
    if (!igs_is_flag(edge.orientation())) tag<igs508OrientatedEdgeInvalidEdgeDirection>(i);
    check_halfedges(i, edge);
    ++i;
  }
}

void igs508::check_vertex_use(int i, const igsOrientedEdge& edge) const {
  const igsObject* const list = edge.list().object();
  if (edge.edge_type() != edge_type_vertex) tag<igs508OrientatedEdgeWrong502EdgeType>(i);
  if (is_outside(edge.index(), list)) tag<igs508OrientatedEdge502OffsetOutOfRange>(i);
  if (list->check() == 0) tag_reference<igs508OrientatedEdge502InvalidList>(edge.list(), i);
}

void igs508::check_edge_use(int i, const igsOrientedEdge& edge) const {
  const auto& list = static_cast<const igs504&>(*edge.list().object());
  if (edge.edge_type() != edge_type_edge) tag<igs508OrientatedEdgeWrong504EdgeType>(i);
  if (is_outside(edge.index(), list.number_of_edges())) tag<igs508OrientatedEdge504OffsetOutOfRange>(i);
  if (list.check() == 0) tag_reference<igs508OrientatedEdge504InvalidList>(edge.list(), i);
  check_edge(i, edge);
}

void igs508::check_edge(int i, const igsOrientedEdge& oriented_edge) const {
  const int number = oriented_edge.index();
  const igs504* const list = igs_cast<igs504>(oriented_edge.list().object());
  if (list == nullptr || is_outside(number, list->number_of_edges())) return;
  const igsEdge& edge = list->edge(number);
  EdgeCurveTest::check(*this, edge.curve(), igsKindOf<igsCurve>(), i, number);
  const igsObject* const first = FirstListTest::check(*this, edge.first_list(), igsExactly<igs502>(), i, number);
  const igsObject* const second = SecondListTest::check(*this, edge.second_list(), igsExactly<igs502>(), i, number);
  if (is_outside(edge.first_offset(), first)) tag<igs508OrientatedEdge504EdgeOutOfRangeFirstListOffset>(i, number);
  if (is_outside(edge.second_offset(), second)) tag<igs508OrientatedEdge504EdgeOutOfRangeSecondListOffset>(i, number);
}

void igs508::check_halfedges(int i, const igsOrientedEdge& edge) const {
  for (int j = 0; const igsHalfEdge& half_edge : edge.half_edges()) {
    HalfEdgeCurveTest::check(*this, half_edge.curve(), igsKindOf<igsCurve>(), i, j);
    if (!igs_is_flag(half_edge.isoparametric_flag())) tag<igs508HalfEdgeInvalidCurveFlag>(i, j);
    ++j;
  }
}
