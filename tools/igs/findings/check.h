#pragma once

#include <optional>
#include <string>
#include <vector>

#include "files/model.h"
#include "igs/igs.h"
#include "igs/shape/igsShapeCheck.h"

/// An entity that could not be kept.
struct LostEntity {
  int de;
  std::optional<int> type;  ///< nothing where its directory entry is lost
  int line;                 ///< of the input, from 1
  std::string why;
};

/// In the order of their lines; before the file is written.
std::vector<LostEntity> lost_entities(const igsFile& file);

/// Why a file that has been read is not whole; empty when it is.
std::string what_is_missing(const Model& model);

/// Checks a file that has been read. The bookkeeping faults of entities, which writing cures, are taken for repaired
/// before, so that no entity counts as faulty for them. Throws std::bad_alloc when memory runs out.
void check_faults(igsFile& file);
/// Looks at the geometry of a file that check_faults() has just checked, unless there is nothing to go by. Returns the
/// number of faults.
int check_geometry(igsFile& file, const std::optional<igsShapeCheckOptions>& options);
