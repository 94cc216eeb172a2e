#include "igs/errors/igsFixer.h"

#include "igs/errors/private/igsFixGraph.h"
#include "igs/errors/private/igsRepairRun.h"

namespace {
void fix_in_log_order(igsErrorLog& log, igsLogID log_id, int keep_going) {
  igsSimpleSectionLog* const section = log.get_section_log(log_id);
  igsSimpleSectionLogIT errors(section);
  while (++errors) {
    igsError* const error = errors();
    if (error->fix() != 0) {
      section->mark_as_fixed(error);
    } else if (keep_going == 0) {
      return;
    }
  }
}

// False when the entity's other errors are to be left.
bool fix_in_run(igsErrorLog& log, const igsFixGraph::Run& run, int keep_going) {
  for (int slot = run.first; slot <= run.last; ++slot) {
    igsError* const error = log.object_log().error_in_slot(slot);
    if (error == nullptr) continue;  // a repair made before this one has removed it
    if (error->fix() != 0) {
      log.mark_as_fixed(error);
    } else if (keep_going == 0) {
      return false;
    }
  }
  return true;
}
}  // namespace

void igsFixer::fix(igsErrorLog& log, int keep_going) {
  fix_file_errors(log, keep_going);
  fix_object_errors(log, keep_going);
  fix_global_errors(log, keep_going);
  fix_start_errors(log, keep_going);
  fix_terminate_errors(log, keep_going);
}

void igsFixer::fix_file_errors(igsErrorLog& log, int keep_going) { fix_in_log_order(log, igsStructureLog, keep_going); }

void igsFixer::fix_object_errors(igsErrorLog& log, int keep_going) {
  const igsRepairRun run;
  igsFixGraph graph(log.object_log());
  for (const int number : graph.schedule()) {
    for (const igsFixGraph::Run& run : graph.nodes()[static_cast<std::size_t>(number)].errors) {
      if (!fix_in_run(log, run, keep_going)) break;
    }
  }
}

void igsFixer::fix_global_errors(igsErrorLog& log, int keep_going) { fix_in_log_order(log, igsGlobalLog, keep_going); }

void igsFixer::fix_start_errors(igsErrorLog& log, int keep_going) { fix_in_log_order(log, igsStartLog, keep_going); }

void igsFixer::fix_terminate_errors(igsErrorLog& log, int keep_going) {
  fix_in_log_order(log, igsTerminateLog, keep_going);
}
