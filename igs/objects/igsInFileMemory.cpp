#include "igs/objects/igsInFileMemory.h"

#include "igs/file/igsObjectSystem.h"
#include "igs/support/private/igsBlockMemory.h"

// NOLINTNEXTLINE(misc-new-delete-overloads): deleted with its size
void* igsInFileMemory::operator new(std::size_t size) { return igsObjectSystem::memory().take(size); }

void* igsInFileMemory::operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return igsObjectSystem::memory().take(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void igsInFileMemory::operator delete(void* memory, std::size_t size) noexcept {
  igsBlockMemory::give_back(memory, size);
}

// Only where a constructor has thrown: the current file is still the same.
void igsInFileMemory::operator delete(void* memory, const std::nothrow_t&) noexcept {
  igsObjectSystem::memory().give_back(memory);
}
