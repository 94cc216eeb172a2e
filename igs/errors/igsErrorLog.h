#pragma once

#include <array>
#include <memory>

#include "igs/errors/igsSectionLog.h"

/// The section logs of a file, by position. The values are part of the interface and never change.
enum igsLogID : int {
  igsObjectLog = 0,     ///< igsObjectError, by DE number
  igsStructureLog = 1,  ///< igsStructureError, by DE number
  igsGlobalLog = 2,     ///< igsGlobalError
  igsStartLog = 3,      ///< igsStartError
  igsTerminateLog = 4   ///< igsTerminateError
};
inline constexpr int igs_num_section_logs = 5;

/// All errors of one file. Every file has one; igsObjectSystem::log() is the current file's.
class IGS_API igsErrorLog {
 public:
  /// `file`: whose errors these are to be, null for no file's.
  explicit igsErrorLog(igsFile* file = nullptr);

  /// Gives the error to the first section log that accepts it.
  void receive_error(igsError* error);
  /// Moves the error to the fixed ones of its section log.
  void mark_as_fixed(igsError* error);
  /// Calls print() of every section log, which writes nothing.
  void print() const;

  /// The log at position `log_id`; null for a value outside igsLogID. Owned by this object.
  igsSimpleSectionLog* get_section_log(igsLogID log_id) const;

  /// The file whose log this is; null for a log that a host has made.
  igsFile* file() const { return m_objects->file(); }

  /// Tells the section logs which sink the file has now.
  void set_message_stream(kelabsOutput* stream);

  /// The two logs that are indexed by DE number.
  igsIndexedSectionLog& object_log() const { return *m_objects; }
  igsIndexedSectionLog& structure_log() const { return *m_structure; }

 private:
  std::array<std::unique_ptr<igsSimpleSectionLog>, igs_num_section_logs> m_logs;
  igsIndexedSectionLog* m_objects;
  igsIndexedSectionLog* m_structure;
};
