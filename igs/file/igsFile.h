#pragma once

#include <array>
#include <cstddef>
#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "igs/file/igsFileOptions.h"
#include "igs/file/igsGlobalSection.h"
#include "igs/file/igsStartSection.h"
#include "igs/file/igsTerminateSection.h"
#include "igs/input/igsFileSection.h"
#include "igs/input/igsIOError.h"
#include "igs/support/export.h"
#include "igs/support/kluTypeInfo.h"
#include "igs/support/utString.h"

class igsEntityPool;
class igsError;
class igsErrorLog;
class igsInStream;
class igsObject;
class igsObjectManager;
class igsObjectPtr;
class igsOutStream;
class igsUnknown;
class kelabsOutput;
class utOstream;
struct igsKeptParts;

/// Where and why reading a file ended before its end.
struct igsReadFault {
  /// 7, 10, 12, 13 or 14 of igsIOErrorCode: a bad back-pointer, no section letter, a bad stream, no more records where
  /// the file should go on, a failed stream. 0 when nothing stopped the reader: a section that needs it was missing or
  /// its delimiters were unusable, which error_log() tells.
  igsIOErrorCode code = igsIOValuePresent;
  /// Number of records read before that, whatever their section; 0 when memory ran out.
  int records_before = 0;
};

/// Where an entity stands in the input: lines as an editor shows them, 1-based; 0 where it is not known.
struct igsEntityLines {
  int directory_entry = 0;  ///< of the first record of the directory entry
  int parameter_data = 0;   ///< of the first record of the parameter data
};

/// An IGES file in memory: its Start, Global and Terminate sections and its entities. The entity in slot s (0-based)
/// has DE number 2s + 1. The file owns its entities; deleting the file deletes them.
///
/// Constructing a file makes it the current one of its thread, to which it belongs (igsObjectSystem). `read`, `check`,
/// `clean`, `write` and `print` make their file current while they run. Operations that can fail return 1 for success
/// and 0 for failure; faults of the content are errors in error_log(), never exceptions.
///
/// When memory runs out, `read` and `write` return 0, and `check` and `clean` end early; out_of_memory() tells. The
/// file holds what was read, found and repaired until then, without the entity whose data were being read, and may be
/// asked, written and deleted as any other. All other functions, the constructors included, let std::bad_alloc through
/// and leave the file and the registry sound.
class IGS_API igsFile {
 public:
  igsFile();
  /// As above, with a name to be asked for and printed; nothing is opened.
  explicit igsFile(const utString& pathname);
  ~igsFile();
  igsFile(const igsFile&) = delete;
  igsFile& operator=(const igsFile&) = delete;

  /// An igsObjectSystem deletes the files that are left when it goes, so it must know which were made with `new`.
  static void* operator new(std::size_t size);
  static void operator delete(void* memory);
  static void* operator new(std::size_t, void* place) noexcept { return place; }
  static void operator delete(void*, void*) noexcept {}

  /// What this file is asked for beyond the documented behaviour.
  const igsFileOptions& options() const { return m_options; }
  void set_options(const igsFileOptions& options) { m_options = options; }

  /// Reads a whole file into this (fresh) one. 0 when a section cannot be read to its end; what was read before it
  /// stays. Entities of unknown and null type (unknown ones unless options().keep says otherwise) and those without
  /// parameter data are dropped and counted.
  int read(std::istream& in, utOstream& messages);
  /// True when the last `read`, `check`, `clean` or `write` ended because memory ran out.
  bool out_of_memory() const { return m_out_of_memory; }
  /// What ended the last read that returned 0.
  const igsReadFault& read_fault() const { return m_read_fault; }
  /// Renumbers the entities to 1, 3, 5, ... (but see igsFileOptions::keep) and writes the whole file. A temporary file
  /// in the write directory holds the Parameter Data meanwhile.
  int write(std::ostream& out, utOstream& messages);
  /// Validates everything, logging one error a fault.
  void check() const;
  /// Checks, repairs what can be repaired and, when `delete_faulty` is not 0, deletes the entities that still have
  /// logged errors.
  void clean(int delete_faulty);
  /// Makes `replacement` take over the DE number of `old`, every pointer to it and, unless it has its own, what was
  /// kept beside its fields, deletes `old` and returns 1. Refuses with 0, nothing changed, unless these are two
  /// entities of this file.
  int replace_entity(igsObject* old, igsObject* replacement);

  const utString& pathname() const { return m_pathname; }
  /// Number of live entities.
  int num_entities() const;
  /// Number of null entities, and of entities of unknown type or form, that reading dropped.
  int num_nulls() const { return m_num_deleted_nulls; }
  int num_unknowns() const { return m_num_deleted_unknowns; }
  /// What reading dropped, for whatever reason: counts by entity type and form as the file has them.
  const std::map<std::pair<int, int>, int>& dropped_entities() const { return m_dropped; }
  /// The entity type, as the file has it, of an entity that reading dropped, by its DE number then; 0 for any other and
  /// for null entities.
  int dropped_type(int de_number) const;
  /// 1 unless a read failed before the end of the Parameter Data section.
  int parameter_data_read() const { return m_parameter_data_read; }

  /// The sink for warnings, null for none (the default). Not owned. Errors that were found while the file had a sink
  /// speak to the one it has now.
  kelabsOutput* message_stream() const { return m_message_stream; }
  void set_message_stream(kelabsOutput* stream);
  /// Where `write` makes its temporary file; empty (the default) for the system's directory of temporary files.
  void set_write_dir(const utString& directory) { m_write_dir = directory; }

  const igsStartSection& start_section() const { return m_start_section; }
  const igsGlobalSection& global_section() const { return m_global_section; }
  const igsTerminateSection& terminate_section() const { return m_terminate_section; }
  void set_start_section(const igsStartSection& section);
  void set_global_section(const igsGlobalSection& section);

  /// The entity with this DE number, null when there is none.
  igsObject* entity(int de_number) const;
  /// Where the entity with this DE number stands in the input, also when it was dropped or deleted since. Known with
  /// igsFileOptions::lines, until the file is written.
  igsEntityLines lines(int de_number) const;
  /// The line on which a section begins; 0 for a section that the input does not have, else known as lines(de_number).
  int section_line(igsFileSection section) const { return m_section_lines.at(static_cast<std::size_t>(section)); }
  /// As igsGlobalSection::line.
  int global_line(int parameter) const { return m_global_section.line(parameter); }
  /// What was kept of an entity of this file beside its own fields; null where there is nothing.
  const igsKeptParts* kept_parts(const igsObject& object) const;
  /// The same to be changed; made where there is nothing, and written whether reading keeps such parts or not.
  igsKeptParts& make_kept_parts(const igsObject& object);
  /// The name of an entity: that of the first name property (406 form 15) among its properties; else its label and its
  /// subscript, if any, with a blank between them; empty where it has neither. Properties are known where the file
  /// keeps what has no class (igsFileOptions::keep).
  utString entity_name(const igsObject& object) const;
  /// The entities that have this name, in slot order. They belong to the file.
  std::vector<igsObject*> entities_named(const utString& name) const;
  /// The names of levels by their numbers, as the level properties (406 form 3) give them; the first of a number
  /// counts.
  std::map<int, utString> level_names() const;
  /// The errors of this file.
  igsErrorLog& error_log() const { return *m_error_log; }

  void print(utOstream& os) const;

 protected:
  /// The parts of `read` and `write`. Return 1; return 0 where the stream cannot go on.
  int read_directory_section(igsInStream& in);
  int read_directory_entry(igsInStream& in);
  int read_parameter_data_section(igsInStream& in);
  int write_data_section(std::ostream& out, igsOutStream& stream);
  int write_directory_entries(igsOutStream& stream);
  int write_parameter_data_section(std::ostream& out, std::istream& in);
  /// As above, from the file of that name; 0, too, when it cannot be opened.
  int write_parameter_data_section(std::ostream& out, const utString& name);
  /// Gives the error the message stream. A null error is ignored.
  void tag_error(igsError* error) const;

 private:
  friend class igsFactory;
  friend class igsFileIT;
  friend class igsGlobalSection;
  friend class igsObject;
  friend class igsObjectSystem;

  void object_created(igsObject* object);
  void object_deleted(igsObject* object);
  void ptr_created(igsObjectPtr* pointer, int slot);
  igsObjectManager* add_pending(int slot);
  void release_prototype(igsObject* object);
  void reset_visit_flags() const;
  void tidyup();
  void drop_unread_entities();
  void settle_numbers();
  void take_slot(int slot);
  void free_slot(int slot);
  void give_back_slot(int slot);
  void compress();
  void set_system_location(int location) { m_system_location = location; }
  int system_location() const { return m_system_location; }
  bool is_on_heap() const { return m_on_heap; }

  template <class Work>
  int within_memory(Work work) const;
  void check_entities() const;
  void repair(int delete_faulty);
  int read_stream(std::istream& in, utOstream& messages);
  int salvage(igsInStream& in, int result);
  void note_missing_sections(const igsInStream& in);
  void note_second_file(igsInStream& in);
  bool lose_entries(igsInStream& in);
  void lose_entry();
  void note_line(int de_number, int igsEntityLines::*line, const igsInStream& in);
  int read_sections(igsInStream& in, utOstream& messages);
  void note_read_fault(igsInStream& in);
  void drop_entity(igsObject* object);
  int read_entity(igsInStream& in, igsObject& met);
  igsObject& judge_or_keep(igsInStream& in, igsObject& object);
  igsObject& put_empty(igsObject& object, const igsFieldTexts& all);
  void keep_rest(const igsObject& object, igsFieldTexts rest, igsKeptParts* groups);
  void keep_unknown(igsUnknown& unknown, const igsFieldTexts& all);
  void note_exponent_letter(const igsInStream& in, const utString& records);
  void keep_comment(const igsObject& object, std::size_t begin);
  bool take_groups(const igsFieldTexts& fields, igsKeptParts& parts) const;
  void lose_entity(igsObject& object);
  void settle_lost_references();
  bool holds_kept_numbers() const;
  int write_entities(igsOutStream& stream);
  int write_sections(std::ostream& out, utOstream& messages);
  void tag_overflow_errors(igsOutStream& stream) const;

  utString m_pathname;
  igsStartSection m_start_section;
  igsGlobalSection m_global_section;
  igsTerminateSection m_terminate_section;
  std::vector<igsObjectManager*> m_slots;
  std::vector<int> m_free_slots;
  int m_num_fixed_slots = 0;  ///< the first slots, whose numbers stay: those of entities that went are never used again
  int m_num_holes = 0;        ///< how many of these are empty
  int m_num_read = 0;         ///< by the last read: entities whose parameter data were read
  bool m_has_placeholders = false;  ///< made by the last read: entities without a class
  std::unordered_map<int, igsObjectManager*> m_pending;
  std::unique_ptr<igsEntityPool> m_pool;
  std::unordered_map<const igsObjectManager*, std::unique_ptr<igsKeptParts>> m_kept;
  igsFileOptions m_options;
  std::vector<igsEntityLines> m_lines;  ///< by slot
  std::array<int, igsNoSectionId> m_section_lines{};
  utString m_records;  ///< data of the records being read, where they are kept
  int m_system_location = -1;
  igsErrorLog* m_error_log = nullptr;  ///< the registry's
  utString m_write_dir;
  kelabsOutput* m_message_stream = nullptr;
  int m_parameter_data_read = 1;
  int m_num_deleted_nulls = 0;
  int m_num_deleted_unknowns = 0;
  std::map<std::pair<int, int>, int> m_dropped;
  std::unordered_map<int, int> m_dropped_types;  ///< by DE number
  igsReadFault m_read_fault;
  mutable bool m_out_of_memory = false;
  bool m_on_heap;
};

/// Walks the entities of a file in slot order. Starts before the first. The current entity may be deleted or replaced.
class IGS_API igsFileIT {
 public:
  /// With `roots_only` not 0, only the entities that no other entity points to.
  explicit igsFileIT(const igsFile* file, int roots_only = 0) : m_file(file), m_roots_only(roots_only) {}

  /// Moves to the next entity and returns 1; returns 0 at the end, its position being -1 again.
  int operator++();
  /// The entity at the current position; null before the first and when it was deleted.
  igsObject* operator()() const;

 private:
  const igsFile* m_file;
  int m_roots_only;
  int m_position = -1;
};

/// As igsFileIT, stopping only at entities of exactly one class.
class IGS_API igsFileTypeIT {
 public:
  igsFileTypeIT(const igsFile* file, const kluTypeInfo& type, int roots_only = 0)
      : m_entities(file, roots_only), m_type(type) {}
  /// Moves to the next such entity and returns 1; returns 0 at the end.
  int operator++();
  /// As igsFileIT's.
  igsObject* operator()() const { return m_entities(); }

 private:
  igsFileIT m_entities;
  const kluTypeInfo& m_type;
};
