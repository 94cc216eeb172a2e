#include "igs/file/private/igsEntityPool.h"

#include <new>

#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsObjectManager.h"

/// The manager's pointer to its entry says whether there is one.
struct igsEntityPool::Cell : igsObjectManager {
  union {
    igsDirectoryEntry entry;
  };

  Cell() {}
  ~Cell() {
    if (directory_entry() != nullptr) entry.~igsDirectoryEntry();
  }
  Cell(const Cell&) = delete;
  Cell& operator=(const Cell&) = delete;
};

igsObjectManager* igsEntityPool::make_manager() { return new (m_memory.take(sizeof(Cell))) Cell; }

igsDirectoryEntry* igsEntityPool::make_entry(igsObjectManager* manager) {
  manager->set_directory_entry(new (&static_cast<Cell*>(manager)->entry) igsDirectoryEntry);
  return manager->directory_entry();
}

void igsEntityPool::destroy(igsObjectManager* manager) noexcept {
  auto* const cell = static_cast<Cell*>(manager);
  cell->~Cell();
  igsBlockMemory::give_back(cell, sizeof(Cell));
}
