#pragma once

#include <vector>

#include "igs/shape/igsShapeModel.h"

/// An entity that takes part in what a file shows.
struct igsShownEntity {
  const igsObject* entity;
  bool is_parametric;  ///< it lies in the parameter space of a surface
};

/// The faces and wires of a model and what their parameter data refer to, each once.
std::vector<igsShownEntity> igs_shown_entities(const igsShapeModel& model);
