#pragma once

#include <optional>
#include <vector>

#include "igs/support/export.h"

class igsError;
class igsBlockMemory;
class igsErrorLog;
class igsFile;
class igsObject;
class igsObjectPtr;

using igsFilecoDynArr = std::vector<igsFile*>;

/// The registry of files, one for each thread. Every entity, pointer and error that is constructed attaches itself to
/// the current file of its thread: the file constructed last, or the one chosen by set_current_file. The system comes
/// up on the first use by a thread, with one empty default file.
///
/// Threads may work at once, each on files of its own. A file belongs to the thread that made it: the file, its
/// entities, pointers and errors are used there and nowhere else, and deleted there. What all threads share is only
/// read while they work and has to be set before: tolerances (kel_resource_table_inquire), a host's own classes
/// (igsFactory) and the clock (ut_set_clock).
///
/// When a thread has ended and no file that its host made is left, its default file goes, too. Files that the host did
/// not delete are lost, for no other thread may delete them. In the thread that loaded the library the default file
/// stays, as objects of static storage may refer to it.
class IGS_API igsObjectSystem {
 public:
  igsObjectSystem() { initialize_system(); }
  /// Deletes every file of this thread still registered that was made with `new`. For hosts that want to be rid of
  /// everything: at the end of a process or thread nothing is deleted that its owner may still delete.
  ~igsObjectSystem();
  igsObjectSystem(const igsObjectSystem&) = delete;
  igsObjectSystem& operator=(const igsObjectSystem&) = delete;

  /// Brings the system up, if it is not. Every use does so.
  static void initialize_system();

  /// The current file.
  static igsFile& file();
  /// The current file's errors.
  static igsErrorLog& log();
  /// Chooses the current file, one of this thread's.
  static void set_current_file(const igsFile& file);
  /// Replaces the contents of `files` by all files of this thread, in the order of their locations.
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
  friend class igsInFileMemory;
  friend class igsObject;
  friend class igsObjectPtr;
  friend class igsObjectError;
  friend class igsStructureError;
  friend class igsGlobalError;
  friend class igsStartError;
  friend class igsTerminateError;

  static void file_created(igsFile* file);
  static void file_deleted(igsFile* file);
  /// Of the current file.
  static igsBlockMemory& memory();
  static void object_created(igsObject* object);
  static void ptr_created(igsObjectPtr* pointer, int slot);
  static void error_created(igsError* error);
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
  /// True while a traversal of this thread goes on.
  static bool is_going_on();
  /// How many traversals go on within each other, this one included.
  int depth() const { return m_depth; }
  igsTraversalScope(const igsTraversalScope&) = delete;
  igsTraversalScope& operator=(const igsTraversalScope&) = delete;

 private:
  std::optional<igsFileScope> m_file;
  int& m_depth;  ///< the thread's
};
