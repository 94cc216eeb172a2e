#include "igs/errors/igsErrorLog.h"

igsErrorLog::igsErrorLog(igsFile* file) {
  auto objects = std::make_unique<igsIndexedSectionLog>(igsObjectError::type(), file);
  auto structure = std::make_unique<igsIndexedSectionLog>(igsStructureError::type(), file);
  m_objects = objects.get();
  m_structure = structure.get();
  m_logs[igsObjectLog] = std::move(objects);
  m_logs[igsStructureLog] = std::move(structure);
  m_logs[igsGlobalLog] = std::make_unique<igsSimpleSectionLog>(igsGlobalError::type(), file);
  m_logs[igsStartLog] = std::make_unique<igsSimpleSectionLog>(igsStartError::type(), file);
  m_logs[igsTerminateLog] = std::make_unique<igsSimpleSectionLog>(igsTerminateError::type(), file);
}

void igsErrorLog::receive_error(igsError* error) {
  for (const auto& log : m_logs) {
    if (log->receive_error(error) != 0) return;
  }
}

void igsErrorLog::mark_as_fixed(igsError* error) {
  for (const auto& log : m_logs) {
    if (log->mark_as_fixed(error) != 0) return;
  }
}

void igsErrorLog::print() const {
  for (const auto& log : m_logs) log->print();
}

void igsErrorLog::set_message_stream(kelabsOutput* stream) {
  for (const auto& log : m_logs) log->set_message_stream(stream);
}

igsSimpleSectionLog* igsErrorLog::get_section_log(igsLogID log_id) const {
  return log_id >= 0 && log_id < igs_num_section_logs ? m_logs[static_cast<std::size_t>(log_id)].get() : nullptr;
}
