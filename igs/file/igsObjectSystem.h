#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "igs/support/export.h"
#include "igs/support/utNeverDestroyed.h"

class igsError;
class igsErrorLog;
class igsFile;
class igsObject;
class igsObjectPtr;

using igsFilecoDynArr = std::vector<igsFile*>;

/// The process-wide registry of files. Every entity, pointer and error that is constructed attaches itself to the
/// current file: the file constructed last, or the one chosen by set_current_file. The system comes up on first use,
/// with one empty default file. For one thread.
class IGS_API igsObjectSystem {
 public:
  igsObjectSystem() { initialize_system(); }
  /// Deletes every file still registered that was made with `new`. For hosts that want to be rid of everything: at the
  /// end of a process nothing is deleted that its owner may still delete.
  ~igsObjectSystem();
  igsObjectSystem(const igsObjectSystem&) = delete;
  igsObjectSystem& operator=(const igsObjectSystem&) = delete;

  /// Brings the system up, if it is not. Every use does so.
  static void initialize_system() {
    if (m_system_on_line == 0) start_system();
  }

  /// The current file.
  static igsFile& file();
  /// The current file's errors.
  static igsErrorLog& log();
  /// Chooses the current file.
  static void set_current_file(const igsFile& file);
  /// Replaces the contents of `files` by all registered files, in the order of their locations.
  static void get_all_files(igsFilecoDynArr& files);

  /// Bracket every traversal that follows pointers between entities: the outermost start clears the current file's
  /// visit flags.
  static void reentrant_start();
  static void reentrant_end();

 private:
  friend class igsFile;
  friend class igsFileScope;
  friend class igsTraversalScope;
  friend class igsFactory;
  friend class igsObject;
  friend class igsObjectPtr;
  friend class igsObjectError;
  friend class igsStructureError;
  friend class igsGlobalError;
  friend class igsStartError;
  friend class igsTerminateError;

  static void file_created(igsFile* file);
  static void file_deleted(igsFile* file);
  static void start_system();
  static igsFile& make_default_file();
  static void object_created(igsObject* object);
  static void ptr_created(igsObjectPtr* pointer, int slot);
  static void error_created(igsError* error);
  static igsErrorLog& log_of(const igsFile& file);
  static bool is_current(const igsFile& file) {
    return (*m_file_list)[static_cast<std::size_t>(m_current_file)] == &file;
  }

  // Files of static storage are deleted when the process ends, in an order that nobody knows.
  static utNeverDestroyed<std::vector<igsFile*>> m_file_list;
  static utNeverDestroyed<std::vector<igsErrorLog*>> m_error_log_list;
  static utNeverDestroyed<std::vector<int>> m_file_free_list;
  static int m_current_file;
  static int m_system_on_line;
  static int m_recurse_depth;
};

/// Makes a file current for the life of this object, then the one that was current before, if it still exists.
class IGS_API igsFileScope {
 public:
  explicit igsFileScope(const igsFile& file);
  ~igsFileScope();
  igsFileScope(const igsFileScope&) = delete;
  igsFileScope& operator=(const igsFileScope&) = delete;

 private:
  igsFile* m_previous;
};

/// Brackets a traversal of entities of `file` with reentrant_start and reentrant_end. The file is current meanwhile.
class IGS_API igsTraversalScope {
 public:
  explicit igsTraversalScope(const igsFile& file);
  ~igsTraversalScope();
  /// How many traversals go on within each other, this one included.
  int depth() const { return igsObjectSystem::m_recurse_depth; }
  igsTraversalScope(const igsTraversalScope&) = delete;
  igsTraversalScope& operator=(const igsTraversalScope&) = delete;

 private:
  std::optional<igsFileScope> m_file;
};
