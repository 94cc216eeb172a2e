#pragma once

#include <memory>

#include "igs/errors/igsErrorLog.h"
#include "igs/errors/igsFixNode.h"
#include "igs/support/export.h"

class igsFixGraph;

/// Applies the repairs that the errors of one file know how to make. Errors of the file structure, Global, Start and
/// Terminate sections are repaired in log order; errors of entities from the deepest dependency up, so that an entity
/// is repaired after the entities it depends on. A subclass may leave errors as they are (`accepts`).
class IGS_API igsFixer {
 public:
  igsFixer();
  virtual ~igsFixer();
  igsFixer(const igsFixer&) = delete;
  igsFixer& operator=(const igsFixer&) = delete;

  /// Repairs what can be repaired in `log`, whose file is the current one meanwhile. With `keep_going` 0 the first
  /// failure ends its group: the rest of a section's errors, or of one entity's errors.
  void fix(igsErrorLog& log, int keep_going);

 protected:
  /// Whether the error is to be repaired; all are. One that is not stays active.
  virtual bool accepts(const igsError& error) const;

  /// The parts of `fix`: the errors of one section log each.
  void fix_file_errors(igsErrorLog& log, int keep_going);
  void fix_object_errors(igsErrorLog& log, int keep_going);
  void fix_global_errors(igsErrorLog& log, int keep_going);
  void fix_start_errors(igsErrorLog& log, int keep_going);
  void fix_terminate_errors(igsErrorLog& log, int keep_going);

  /// The parts of `fix_object_errors`: which entities of the object log have to wait for which, and how deep each
  /// stands in these dependencies. Both start anew.
  void build_dependencies(const igsErrorLog& log);
  void schedule_dependencies();
  /// The node of the entity with this DE number, valid until build_dependencies is called again; null for an entity
  /// that has no errors and that no errors concern.
  const igsFixNode* node(int de) const;

 private:
  void fix_in_log_order(igsErrorLog& log, igsLogID log_id, int keep_going);
  bool fix_in_run(igsErrorLog& log, int first, int last, int keep_going);
  std::unique_ptr<igsFixGraph> m_graph;
};
