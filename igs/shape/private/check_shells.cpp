#include <algorithm>
#include <cstddef>
#include <unordered_set>
#include <vector>

#include "igs/shape/private/igsEdgeUses.h"
#include "igs/shape/private/igsFreeBoundaries.h"
#include "igs/shape/private/igsShapeChecking.h"

namespace {
/// At a pole a face may have an edge that is but a point.
bool is_point(const igsShapeCurve& curve, double tolerance) {
  if (!curve.range().is_finite()) return false;
  igsBox box;
  for (const double part : {0.0, 0.25, 0.5, 0.75, 1.0}) box.add(curve.point(curve.range().at(part)));
  return box.diagonal() <= tolerance;
}

class ShellCheck {
 public:
  ShellCheck(igsShapeChecking& checking, const igsShapeShell& shell) : m_checking(checking), m_shell(shell) {}

  void check() {
    igs_visit_edges(igs_edge_uses(m_checking.model, m_shell), [&](Uses first, Uses end) {
      check_edge(m_checking.model.edges()[static_cast<std::size_t>(first->piece->edge)], first, end);
    });
  }

 private:
  using Uses = std::vector<igsEdgeUse>::const_iterator;

  // A shell that stands for itself may have an end.
  void check_edge(const igsShapeEdge& edge, Uses first, Uses end) {
    if (edge.curve == nullptr || is_point(*edge.curve, m_checking.options.tolerance)) return;
    const int list = edge.list->de_number();
    const auto count = static_cast<int>(end - first);
    if (count == 1 && m_shell.solid != nullptr) {
      m_checking.tag<igsShapeFreeEdge>(*m_shell.entity, list, edge.position, edge.curve_entity->de_number());
    } else if (count > 2) {
      m_checking.tag<igsShapeNonManifoldEdge>(*m_shell.entity, list, edge.position, count);
    } else if (count == 2 && is_reversed(first[0]) == is_reversed(first[1])) {
      m_checking.tag<igsShapeFaceNormals>(*m_shell.entity, list, edge.position, first[0].face->entity->de_number(),
                                          first[1].face->entity->de_number());
    }
  }

  bool is_reversed(const igsEdgeUse& use) const { return m_checking.is_edge_reversed(*use.face, *use.piece); }

  igsShapeChecking& m_checking;
  const igsShapeShell& m_shell;
};

const igsObject& free_curve_of(const igsShapeModel& model, const igsFreeBoundary& free) {
  const igsShapeLoop& loop = model.faces()[free.face].loops[free.loop];
  return *(loop.model.empty() ? loop.parameter : loop.model)[free.piece].entity;
}

// One face alone has a boundary, and that is no fault.
void check_loose_faces(igsShapeChecking& checking) {
  const igsShapeModel& model = checking.model;
  const std::vector<igsFreeBoundary> free = igs_free_boundaries(model, checking.options.tolerance);
  for (auto first = free.begin(); first != free.end();) {
    const auto end =
        std::find_if(first, free.end(), [&](const igsFreeBoundary& other) { return other.face != first->face; });
    checking.tag<igsShapeFreeBoundary>(*model.faces()[first->face].entity, static_cast<int>(end - first),
                                       free_curve_of(model, *first).de_number());
    first = end;
  }
}
}  // namespace

void igs_check_shells(igsShapeChecking& checking) {
  std::unordered_set<const igsObject*> seen;
  for (const igsShapeShell& shell : checking.model.shells()) {
    if (seen.insert(shell.entity).second) ShellCheck(checking, shell).check();
  }
  check_loose_faces(checking);
}
