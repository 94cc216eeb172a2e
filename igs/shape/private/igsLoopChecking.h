#pragma once

#include <utility>
#include <vector>

#include "igs/shape/private/igsLoopChain.h"
#include "igs/shape/private/igsShapeChecking.h"

/// A point where a loop was looked at.
struct igsTracePoint {
  igsVec2 uv;            ///< on the surface; goes on beyond the range in closed directions
  igsVec3 point;         ///< of the surface for a curve in parameter space, else of the curve
  int link = 0;          ///< 0-based, in the chain that is followed; of two that meet here the first
  double parameter = 0;  ///< of the link's curve
};

/// A loop of a face while it is checked.
struct igsLoopChecking {
  igsLoopChecking(igsShapeChecking& all, const igsShapeFace& of_face, const igsShapeLoop& checked)
      : checking(all), face(of_face), loop(checked) {}

  template <class Error, class... Values>
  void tag_distance(double distance, Values&&... values) {
    const int before = checking.num_errors;
    checking.tag_distance<Error>(*loop.entity, distance, std::forward<Values>(values)...);
    is_faulty = is_faulty || checking.num_errors != before;
  }
  template <class Error, class... Values>
  void tag(Values&&... values) {
    checking.tag<Error>(*loop.entity, std::forward<Values>(values)...);
    is_faulty = true;
  }

  /// The chain whose points the trace has.
  const std::vector<igsChainLink>& followed() const { return parameter.empty() ? model : parameter; }

  igsShapeChecking& checking;
  const igsShapeFace& face;
  const igsShapeLoop& loop;
  std::vector<igsChainLink> model, parameter;  ///< the members in their order, the best way round; empty where unknown
  std::vector<igsTracePoint> trace;            ///< once round, both ends included; empty where unknown
  bool is_faulty = false;
};

/// Holds the curves of a loop, in parameter space and in model space, against each other and the surface, and finds the
/// trace.
void igs_check_trims(igsLoopChecking& loop);
/// Looks how the loops of one face lie to each other, by their traces.
void igs_check_crossings(igsShapeChecking& checking, const igsShapeFace& face, std::vector<igsLoopChecking>& loops);
