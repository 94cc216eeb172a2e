#pragma once

#include <cstddef>
#include <new>

/// Memory for errors, of which a file may have millions: cells of one size stand side by side in blocks, without a
/// header each. The blocks are given back with the last error of that size. One for each thread, as the registry of
/// files. Private to igsError.
class igsErrorPool {
 public:
  /// Throws std::bad_alloc, or returns null, when there is no memory.
  static void* take(std::size_t size);
  static void* take(std::size_t size, const std::nothrow_t&) noexcept;
  /// `memory`: of take(size); null does nothing.
  static void give_back(void* memory, std::size_t size) noexcept;
  /// As above, where the size is not known, in time that follows the number of blocks.
  static void give_back(void* memory) noexcept;
};
