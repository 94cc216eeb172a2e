#pragma once

#include <cstddef>
#include <new>

#include "igs/support/export.h"

/// Base of what belongs to a file and is made in great numbers: objects of the derived class lie side by side in blocks
/// of the file that was current when they were made. A block outlives its file as long as something in it does.
class IGS_API igsInFileMemory {
 public:
  /// Objects made with `new` share blocks of memory; nothing is to be known of it where they are made.
  static void* operator new(std::size_t size);  // NOLINT(misc-new-delete-overloads): deleted with its size
  static void* operator new(std::size_t size, const std::nothrow_t&) noexcept;
  static void* operator new(std::size_t size, std::align_val_t alignment) { return ::operator new(size, alignment); }
  static void* operator new(std::size_t /*size*/, void* place) noexcept { return place; }
  static void operator delete(void* memory, std::size_t size) noexcept;
  static void operator delete(void* memory, const std::nothrow_t&) noexcept;
  static void operator delete(void* memory, std::align_val_t alignment) noexcept {
    ::operator delete(memory, alignment);
  }
  static void operator delete(void* /*memory*/, void* /*place*/) noexcept {}

 protected:
  igsInFileMemory() = default;
  ~igsInFileMemory() = default;
};
