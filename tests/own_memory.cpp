#include "own_memory.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {
using igs_test::blocks_in_use, igs_test::bytes_in_use, igs_test::peak, igs_test::plan;
constexpr std::size_t usual = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

void* take(std::size_t size, std::size_t alignment = usual) noexcept {
  const std::size_t rounded = (std::max(size, std::size_t{1}) + alignment - 1) / alignment * alignment;
  // NOLINTNEXTLINE(cppcoreguidelines-no-malloc)
  void* const memory = alignment > usual ? std::aligned_alloc(alignment, rounded) : std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) return nullptr;
  ++blocks_in_use;
  bytes_in_use += malloc_usable_size(memory) + sizeof(std::size_t);
  peak = std::max(peak, bytes_in_use);
  return memory;
}

void* take_or_throw(std::size_t size, std::size_t alignment = usual) {
  void* const memory = plan.refuses() ? nullptr : take(size, alignment);
  return memory != nullptr ? memory : throw std::bad_alloc();
}

void give_back(void* memory) noexcept {
  if (memory == nullptr) return;
  --blocks_in_use;
  bytes_in_use -= malloc_usable_size(memory) + sizeof(std::size_t);
  std::free(memory);  // NOLINT(cppcoreguidelines-no-malloc)
}
}  // namespace

void* operator new(std::size_t size) { return take_or_throw(size); }
void* operator new(std::size_t size, std::align_val_t a) { return take_or_throw(size, static_cast<std::size_t>(a)); }
// Whoever asks in this way can do without.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return plan.reached && plan.for_good ? nullptr : take(size);
}
void operator delete(void* memory) noexcept { give_back(memory); }
void operator delete(void* memory, std::size_t) noexcept { give_back(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { give_back(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { give_back(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { give_back(memory); }
