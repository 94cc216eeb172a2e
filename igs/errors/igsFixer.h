#pragma once

#include "igs/errors/igsErrorLog.h"
#include "igs/support/export.h"

/// Applies the repairs that the errors of one file know how to make. Errors of the file structure, Global, Start and
/// Terminate sections are repaired in log order; errors of entities from the deepest dependency up, so that an entity
/// is repaired after the entities it depends on.
class IGS_API igsFixer {
 public:
  /// Repairs what can be repaired in `log`, which must be the current file's. With `keep_going` 0 the first failure
  /// ends its group: the rest of a section's errors, or of one entity's errors.
  void fix(igsErrorLog& log, int keep_going);

 protected:
  /// The parts of `fix`: the errors of one section log each.
  void fix_file_errors(igsErrorLog& log, int keep_going);
  void fix_object_errors(igsErrorLog& log, int keep_going);
  void fix_global_errors(igsErrorLog& log, int keep_going);
  void fix_start_errors(igsErrorLog& log, int keep_going);
  void fix_terminate_errors(igsErrorLog& log, int keep_going);
};
