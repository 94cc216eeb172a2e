#pragma once

#include "igs/support/private/igsBlockMemory.h"

class igsDirectoryEntry;
class igsObjectManager;

/// The memory of one file's entities, with their managers and directory entries, each behind its entity. It is given
/// back with the pool, which must be without managers then.
class igsEntityPool {
 public:
  /// A new manager, without a directory entry; std::bad_alloc where there is no memory.
  igsObjectManager* make_manager();
  /// The directory entry of a manager that has none yet; takes no memory.
  static igsDirectoryEntry* make_entry(igsObjectManager* manager);
  /// Ends the manager and its directory entry.
  static void destroy(igsObjectManager* manager) noexcept;

  /// For the entities themselves.
  igsBlockMemory& memory() { return m_memory; }

 private:
  struct Cell;

  igsBlockMemory m_memory;
};
