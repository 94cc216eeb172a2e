#include "igs/shape/igsShapeCheck.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <string_view>

#include "igs/errors/igsErrorLog.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsGlobalSection.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/shape/private/igsDerivedTolerance.h"
#include "igs/shape/private/igsEdgeUses.h"
#include "igs/shape/private/igsFaceBox.h"
#include "igs/shape/private/igsShapeChecking.h"

namespace {
/// A box around what the model shows: points of its curves, not their extremes.
igsBox rough_box(const igsShapeModel& model) {
  constexpr int num_parts = 4;
  igsBox box;
  const auto add = [&](const igsShapeCurvePtr& curve, const igsPlacement& placement) {
    if (curve == nullptr || !curve->range().is_finite()) return;
    for (int i = 0; i <= num_parts; ++i) {
      box.add(placement.point(curve->point(curve->range().at(i / double{num_parts}))));
    }
  };
  for (const igsShapeFace& face : model.faces()) {
    bool has_curves = false;
    for (const igsShapeLoop& loop : face.loops) {
      for (const igsShapePiece& piece : loop.model) {
        add(piece.curve, face.placement);
        has_curves = has_curves || piece.curve != nullptr;
      }
    }
    if (!has_curves) box.add(igs_rough_box_of_surface(face, num_parts));
  }
  for (const igsShapeWire& wire : model.wires()) add(wire.curve, wire.placement);
  return box;
}

double greatest_coordinate(const igsBox& box) {
  if (box.is_empty()) return 0;
  return std::max({std::abs(box.low.x), std::abs(box.low.y), std::abs(box.low.z), std::abs(box.high.x),
                   std::abs(box.high.y), std::abs(box.high.z)});
}
/// Of an earlier call. The classes of igsShape_errors.h, and no others, have names that begin alike.
void drop_errors(igsSimpleSectionLog& log) {
  igsSimpleSectionLogIT errors(log);
  while (++errors != 0) {
    if (std::string_view(errors()->objtype().name()).starts_with("igsShape")) log.delete_error(errors());
  }
}

// The side on which more edges run once each way.
igsLoopSide loop_side_of(const igsShapeModel& model, const igsShapeShell& shell) {
  int more_by_faces = 0;
  igs_visit_edges(igs_edge_uses(model, shell), [&](auto first, auto end) {
    if (end - first != 2) return;
    const bool by_faces = first[0].piece->is_reversed != first[1].piece->is_reversed;
    const bool by_surfaces = by_faces == (first[0].face->is_reversed == first[1].face->is_reversed);
    more_by_faces += (by_faces ? 1 : 0) - (by_surfaces ? 1 : 0);
  });
  if (more_by_faces == 0) return igsLoopSide::either;
  return more_by_faces > 0 ? igsLoopSide::face : igsLoopSide::surface;
}
}  // namespace

igsShapeChecking::igsShapeChecking(const igsFile& checked_file, const igsShapeCheckOptions& wanted)
    : file(checked_file), shapes(checked_file), model(checked_file, shapes), options(wanted) {
  box = rough_box(model);
  diagonal = box.diagonal();
  farthest = greatest_coordinate(box);
  const double noise = 64 * std::numeric_limits<double>::epsilon() * farthest;
  const double told = file.global_section().minimum_resolution();
  if (!(options.tolerance > 0)) options.tolerance = igs_derived_tolerance(file.global_section(), diagonal);
  if (!(options.least > 0))
    options.least = std::max(std::isfinite(told) ? std::min(told, options.tolerance) : 0, noise);
  if (!(options.tiny > 0)) options.tiny = options.tolerance;
  if (!(options.angle > 0)) options.angle = 3 * std::numbers::pi / 180;
  if (options.degree <= 0) options.degree = 8;
}

igsLoopSide igsShapeChecking::loop_side(const igsShapeFace& face) {
  if (face.shell < 0) return igsLoopSide::surface;
  if (m_loop_sides.empty()) {
    for (const igsShapeShell& shell : model.shells()) m_loop_sides.push_back(loop_side_of(model, shell));
  }
  return m_loop_sides[static_cast<std::size_t>(face.shell)];
}

const std::vector<std::array<int, 2>>& igsShapeChecking::edge_uses() {
  if (!m_edge_uses.empty()) return m_edge_uses;
  m_edge_uses.resize(model.edges().size());
  for (const igsShapeFace& face : model.faces()) {
    for (const igsShapeLoop& loop : face.loops) {
      for (const igsShapePiece& piece : loop.model) {
        if (piece.edge < 0) continue;
        ++m_edge_uses[static_cast<std::size_t>(piece.edge)][is_edge_reversed(face, piece) ? 1 : 0];
      }
    }
  }
  return m_edge_uses;
}

int igsShapeCheck(const igsFile& file, const igsShapeCheckOptions& options) {
  const igsFileScope current(file);
  for (const igsLogID log : {igsObjectLog, igsGlobalLog}) drop_errors(*file.error_log().get_section_log(log));
  igsShapeChecking checking(file, options);
  igs_check_extent(checking);
  igs_check_loops(checking);
  igs_check_shells(checking);
  igs_check_sizes(checking);
  igs_check_duplicates(checking);
  igs_check_splines(checking);
  return checking.num_errors;
}
