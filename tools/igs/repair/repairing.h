#pragma once

#include <optional>
#include <vector>

#include "findings/findings.h"
#include "igs/shape/igsShapeCheck.h"

/// What a repair may do.
struct RepairRules {
  FindingRules findings;                         ///< what does not count is not repaired
  bool keep_geometry = false;                    ///< coordinates, knots, weights and parameters stay as they are
  std::optional<igsUnitType> units;              ///< what the units are where they are in doubt
  bool delete_faulty = false;                    ///< entities with errors or warnings that are left go
  std::optional<igsShapeCheckOptions> geometry;  ///< how it is checked; nothing: not at all
};

/// The repairs of one file, none of which loses anything: what takes out more than missing members of lists, and what
/// settles units that are in doubt, is not made; nor is any for an entity that is written as it was read. They are
/// made until a check finds nothing more to do.
class Repairing {
 public:
  /// The file has been read.
  Repairing(igsFile& file, const RepairRules& rules);

  void run();
  /// Entities were deleted: all lists go without them.
  void take_out_deleted() { m_after_deletion = true; }

 private:
  void settle_units();
  void repair_all();
  bool repair_once();

  igsFile& m_file;
  const RepairRules& m_rules;
  bool m_after_deletion = false;
};

/// True when an entity of the input, or a part of the input, cannot be in the output.
bool is_about_loss(const igsError& error);
