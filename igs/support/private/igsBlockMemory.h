#pragma once

#include <array>
#include <cstddef>

/// Memory for many small objects, side by side in blocks in the order in which it was asked for, without a header each.
/// What is given back serves objects of the same size. The blocks go with this object; those in which something still
/// lives then go with the last of it.
class igsBlockMemory {
 public:
  igsBlockMemory() = default;
  ~igsBlockMemory();
  igsBlockMemory(const igsBlockMemory&) = delete;
  igsBlockMemory& operator=(const igsBlockMemory&) = delete;

  /// Memory for any object without an alignment of its own; std::bad_alloc where there is none.
  void* take(std::size_t size);
  /// `memory`: of take(size) of any igsBlockMemory; null does nothing. Not to be called by two threads at a time that
  /// have memory of the same one.
  static void give_back(void* memory, std::size_t size) noexcept;
  /// As above for memory of this one whose size is not known, which serves nobody before its block goes.
  void give_back(void* memory) noexcept;

 private:
  struct Block;
  struct Page;
  struct Free {
    Free* next;
  };

  static constexpr std::size_t step = 8, largest = 512, page_size = 8192;
  /// Has room for a page wherever it lies.
  static constexpr std::size_t smallest_block = 2 * page_size + 64, largest_block = 64 * page_size;
  /// A new block is this part of all that there are.
  static constexpr std::size_t growth = 8;

  static std::size_t steps_of(std::size_t size);
  static bool is_small(std::size_t size);
  static Block& block_of(void* memory);
  static void leave(Block& block) noexcept;
  void* take_from_page(std::size_t size);
  void next_page();
  void add_block();

  std::array<Free*, largest / step + 1> m_free{};  ///< by size in steps: what was given back last
  Block* m_latest = nullptr;                       ///< which leads to the one before
  std::size_t m_bytes = 0;                         ///< of all blocks
  char* m_next_page = nullptr;                     ///< in the latest block
  char* m_unused = nullptr;                        ///< in the page before it
};
