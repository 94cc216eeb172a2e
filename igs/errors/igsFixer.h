#pragma once

#include <memory>

#include "igs/errors/igsErrorLog.h"
#include "igs/errors/igsFixNode.h"
#include "igs/support/export.h"

class igsFixGraph;

/// Applies the repairs that the errors of one file know how to make. Errors of the file structure, Global, Start and
/// Terminate sections are repaired in log order; errors of entities from the deepest dependency up, so that an entity
/// is repaired after the entities it depends on.
class IGS_API igsFixer {
 public:
  igsFixer();
  ~igsFixer();
  igsFixer(const igsFixer&) = delete;
  igsFixer& operator=(const igsFixer&) = delete;

  /// Repairs what can be repaired in `log`, whose file is the current one meanwhile. With `keep_going` 0 the first
  /// failure ends its group: the rest of a section's errors, or of one entity's errors.
  void fix(igsErrorLog& log, int keep_going);

 protected:
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
  std::unique_ptr<igsFixGraph> m_graph;
};
