#include "igs/errors/igsFixer.h"

#include <optional>

#include "igs/errors/private/igsFixGraph.h"
#include "igs/errors/private/igsRepairRun.h"
#include "igs/file/igsObjectSystem.h"

igsFixer::igsFixer() = default;
igsFixer::~igsFixer() = default;

bool igsFixer::accepts(const igsError& /*error*/) const { return true; }

void igsFixer::fix_in_log_order(igsErrorLog& log, igsLogID log_id, int keep_going) {
  igsSimpleSectionLog* const section = log.get_section_log(log_id);
  igsSimpleSectionLogIT errors(section);
  while (++errors) {
    igsError* const error = errors();
    if (!accepts(*error)) continue;
    if (error->fix() != 0) {
      section->mark_as_fixed(error);
    } else if (keep_going == 0) {
      return;
    }
  }
}

// False when the entity's other errors are to be left.
bool igsFixer::fix_in_run(igsErrorLog& log, int first, int last, int keep_going) {
  for (int slot = first; slot <= last; ++slot) {
    igsError* const error = log.object_log().error_in_slot(slot);
    if (error == nullptr || !accepts(*error)) continue;  // a repair made before this one may have removed it
    if (error->fix() != 0) {
      log.mark_as_fixed(error);
    } else if (keep_going == 0) {
      return false;
    }
  }
  return true;
}

void igsFixer::fix(igsErrorLog& log, int keep_going) {
  std::optional<igsFileScope> current;
  if (log.file() != nullptr) current.emplace(*log.file());
  fix_file_errors(log, keep_going);
  fix_object_errors(log, keep_going);
  fix_global_errors(log, keep_going);
  fix_start_errors(log, keep_going);
  fix_terminate_errors(log, keep_going);
}

void igsFixer::fix_file_errors(igsErrorLog& log, int keep_going) { fix_in_log_order(log, igsStructureLog, keep_going); }

void igsFixer::fix_object_errors(igsErrorLog& log, int keep_going) {
  const igsRepairRun repairs;
  build_dependencies(log);
  schedule_dependencies();
  for (const igsFixGraph::Entity* const entity : m_graph->order()) {
    for (const igsFixGraph::Run& run : entity->errors) {
      if (!fix_in_run(log, run.first, run.last, keep_going)) break;
    }
  }
}

void igsFixer::build_dependencies(const igsErrorLog& log) { m_graph = std::make_unique<igsFixGraph>(log.object_log()); }

void igsFixer::schedule_dependencies() {
  if (m_graph != nullptr) m_graph->schedule();
}

const igsFixNode* igsFixer::node(int de) const { return m_graph != nullptr ? m_graph->node(de) : nullptr; }

void igsFixer::fix_global_errors(igsErrorLog& log, int keep_going) { fix_in_log_order(log, igsGlobalLog, keep_going); }

void igsFixer::fix_start_errors(igsErrorLog& log, int keep_going) { fix_in_log_order(log, igsStartLog, keep_going); }

void igsFixer::fix_terminate_errors(igsErrorLog& log, int keep_going) {
  fix_in_log_order(log, igsTerminateLog, keep_going);
}
