#pragma once

#include <array>
#include <utility>
#include <vector>

#include "igs/objects/igsObject.h"
#include "igs/shape/igsShapeCheck.h"
#include "igs/shape/igsShapeModel.h"
#include "igs/shape/igsShape_errors.h"

class igsFile;

/// About which normals the loops of a shell's faces run counterclockwise: senders have it either way, and the edges
/// that its faces share tell.
enum class igsLoopSide {
  surface,  ///< of the surfaces; faces that the shell turns round have their loops the other way round, too
  face,     ///< of the faces, as the shell turns them
  either    ///< no two faces tell
};

/// What the checks of one call share.
struct igsShapeChecking {
  igsShapeChecking(const igsFile& checked_file, const igsShapeCheckOptions& wanted);

  /// Tags the entity with an `Error` (igsShapeDistance) unless the distance is nothing.
  template <class Error, class... Values>
  void tag_distance(const igsObject& entity, double distance, Values&&... values) {
    if (!(distance > options.least)) return;
    tag<Error>(entity, distance, options.tolerance, std::forward<Values>(values)...);
  }
  template <class Error, class... Values>
  void tag(const igsObject& entity, Values&&... values) {
    entity.tag<Error>(std::forward<Values>(values)...);
    ++num_errors;
  }

  /// Of the shell that the face belongs to; `surface` for a loose face.
  igsLoopSide loop_side(const igsShapeFace& face);
  /// Whether a face has an edge reversed, seen from the side to which the shell's normals point.
  bool is_edge_reversed(const igsShapeFace& face, const igsShapePiece& piece) {
    return piece.is_reversed != (face.is_reversed && loop_side(face) != igsLoopSide::face);
  }
  /// By edge of the model, how often it is used along its curve and how often against it, the normals of shells turned
  /// up. Found when first asked for.
  const std::vector<std::array<int, 2>>& edge_uses();

  const igsFile& file;
  igsShapes shapes;
  igsShapeModel model;
  igsBox box;                    ///< around what the model shows, by samples
  double diagonal;               ///< of the box
  double farthest;               ///< the greatest absolute coordinate
  igsShapeCheckOptions options;  ///< nothing is 0 any more
  int num_errors = 0;

 private:
  std::vector<igsLoopSide> m_loop_sides;  ///< by shell
  std::vector<std::array<int, 2>> m_edge_uses;
};

// The checks, family by family.

void igs_check_extent(igsShapeChecking& checking);
void igs_check_loops(igsShapeChecking& checking);
void igs_check_shells(igsShapeChecking& checking);
void igs_check_sizes(igsShapeChecking& checking);
void igs_check_duplicates(igsShapeChecking& checking);
void igs_check_splines(igsShapeChecking& checking);
/// Of a B-spline or parametric spline surface; part of the above.
void igs_check_normals(igsShapeChecking& checking, const igsObject& surface);
