#include "igs/support/private/igsBlockMemory.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <new>
#include <utility>

#include "igs/support/private/addressSanitizer.h"

/// Stands at the start of its memory, the pages behind it.
struct igsBlockMemory::Block {
  igsBlockMemory* owner;  ///< null once that has gone
  Block* previous;
  std::size_t size;
  std::size_t num_living;

  char* end() { return reinterpret_cast<char*>(this) + size; }
};

/// A page begins with this at a multiple of its size, so that what lies there finds its block.
struct alignas(__STDCPP_DEFAULT_NEW_ALIGNMENT__) igsBlockMemory::Page {
  Block* block;
};

namespace {
/// How far it is from `address` to the next multiple of `unit`, a power of two.
std::size_t up_to_multiple(const void* address, std::size_t unit) {
  return -reinterpret_cast<std::uintptr_t>(address) & (unit - 1);
}
}  // namespace

std::size_t igsBlockMemory::steps_of(std::size_t size) { return size == 0 ? 1 : (size + step - 1) / step; }

bool igsBlockMemory::is_small(std::size_t size) { return !under_address_sanitizer && size <= largest; }

igsBlockMemory::Block& igsBlockMemory::block_of(void* memory) {
  const auto in_page = reinterpret_cast<std::uintptr_t>(memory) & (page_size - 1);
  return *reinterpret_cast<Page*>(static_cast<char*>(memory) - in_page)->block;
}

void igsBlockMemory::leave(Block& block) noexcept {
  if (--block.num_living == 0 && block.owner == nullptr) ::operator delete(&block);
}

igsBlockMemory::~igsBlockMemory() {
  while (m_latest != nullptr) {
    Block& block = *std::exchange(m_latest, m_latest->previous);
    block.owner = nullptr;
    ++block.num_living;
    leave(block);
  }
}

void igsBlockMemory::add_block() {
  static_assert(smallest_block >= sizeof(Block) + 2 * page_size);
  const std::size_t size = std::clamp(m_bytes / growth, smallest_block, largest_block);
  m_latest = new (::operator new(size)) Block{this, m_latest, size, 0};
  m_bytes += size;
  char* const behind_block = reinterpret_cast<char*>(m_latest + 1);
  m_next_page = behind_block + up_to_multiple(behind_block, page_size);
}

void igsBlockMemory::next_page() {
  if (m_latest == nullptr || m_latest->end() - m_next_page < static_cast<std::ptrdiff_t>(page_size)) add_block();
  m_unused = reinterpret_cast<char*>(new (m_next_page) Page{m_latest} + 1);
  m_next_page += page_size;
}

// What has an alignment of two steps is a multiple of two steps long.
void* igsBlockMemory::take_from_page(std::size_t size) {
  if (m_unused != nullptr && size % (2 * step) == 0) m_unused += up_to_multiple(m_unused, 2 * step);
  if (m_unused == nullptr || m_next_page - m_unused < static_cast<std::ptrdiff_t>(size)) next_page();
  ++m_latest->num_living;
  return std::exchange(m_unused, m_unused + size);
}

void* igsBlockMemory::take(std::size_t size) {
  if (!is_small(size)) return ::operator new(size);
  const std::size_t steps = steps_of(size);
  Free* const free = m_free[steps];
  if (free == nullptr) return take_from_page(steps * step);
  m_free[steps] = free->next;
  ++block_of(free).num_living;
  return free;
}

void igsBlockMemory::give_back(void* memory, std::size_t size) noexcept {
  if (memory == nullptr || !is_small(size)) return ::operator delete(memory);
  Block& block = block_of(memory);
  if (block.owner != nullptr) {
    Free*& free = block.owner->m_free[steps_of(size)];
    free = new (memory) Free{free};
  }
  leave(block);
}

void igsBlockMemory::give_back(void* memory) noexcept {
  const std::less<const void*> before;
  for (Block* block = m_latest; block != nullptr; block = block->previous) {
    if (before(block, memory) && before(memory, block->end())) return leave(*block);
  }
  ::operator delete(memory);
}
