#pragma once

#include <cstddef>
#include <memory>
#include <vector>

class igsDirectoryEntry;
class igsObjectManager;

/// The managers and directory entries of one file, side by side in large pieces of memory. What is destroyed makes room
/// for others; the memory itself is given back with the pool, which must be empty then.
class igsEntityPool {
 public:
  igsEntityPool();
  ~igsEntityPool();
  igsEntityPool(const igsEntityPool&) = delete;
  igsEntityPool& operator=(const igsEntityPool&) = delete;

  /// A new manager, without a directory entry; std::bad_alloc where there is no memory.
  igsObjectManager* make_manager();
  /// The directory entry of a manager that has none yet; takes no memory.
  static igsDirectoryEntry* make_entry(igsObjectManager* manager);
  /// Ends the manager and its directory entry.
  void destroy(igsObjectManager* manager) noexcept;

 private:
  struct Cell;
  union Place;

  void grow();

  std::vector<std::unique_ptr<Place[]>> m_blocks;
  std::size_t m_block_size;  ///< number of places in the newest block
  std::size_t m_used = 0;    ///< places of the newest block that were ever taken
  Place* m_free = nullptr;   ///< the place that was freed last, which leads to the one before
};
