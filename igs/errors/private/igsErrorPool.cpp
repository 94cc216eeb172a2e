#include "igs/errors/private/igsErrorPool.h"

#include <algorithm>
#include <array>
#include <functional>

#include "igs/support/private/addressSanitizer.h"

namespace {

constexpr std::size_t size_step = 8;
constexpr std::size_t largest_size = 128;
constexpr std::size_t smallest_block = 1024;
constexpr std::size_t largest_block = std::size_t{1024} * 1024;
/// A new block has room for one error more for each `growth` that there are.
constexpr std::size_t growth = 8;

struct Cell {
  Cell* next;
};

/// Stands at the start of its memory, the cells behind it.
struct alignas(__STDCPP_DEFAULT_NEW_ALIGNMENT__) Block {
  Block* previous;  ///< among the blocks of this size that have room
  Block* next;
  Cell* given_back;
  std::size_t cell_size;
  std::size_t size;   ///< of the whole block
  std::size_t begun;  ///< up to here cells have been in use
  std::size_t used;   ///< number of cells

  bool has_room() const { return given_back != nullptr || begun + cell_size <= size; }
  bool holds(const void* memory) const {
    const std::less<const void*> before;
    return !before(memory, this) && before(memory, reinterpret_cast<const char*>(this) + size);
  }
  void* take() {
    ++used;
    if (given_back != nullptr) {
      Cell* const cell = given_back;
      given_back = cell->next;
      return cell;
    }
    char* const cell = reinterpret_cast<char*>(this) + begun;
    begun += cell_size;
    return cell;
  }
};

/// Allocates as `new` does, or as `new (std::nothrow)`.
struct Throwing {
  static void* allocate(std::size_t size) { return ::operator new(size); }
};
struct Refusing {
  static void* allocate(std::size_t size) noexcept { return ::operator new(size, std::nothrow); }
};

/// Never destroyed: errors are deleted at the end of the process, too.
class Pool {
 public:
  template <class Allocator>
  void* take(std::size_t size) {
    const std::size_t cell_size = (std::max(size, sizeof(Cell)) + size_step - 1) / size_step * size_step;
    SizeClass& cells = m_classes[cell_size / size_step - 1];
    if (cells.with_room == nullptr && !add_block<Allocator>(cells, cell_size)) return nullptr;
    Block& block = *cells.with_room;
    void* const memory = block.take();
    if (!block.has_room()) unlink(cells, block);
    return memory;
  }

  /// False when the memory is none of this pool's.
  bool give_back(void* memory) noexcept {
    Block* const block = block_of(memory);
    if (block == nullptr) return false;
    SizeClass& cells = m_classes[block->cell_size / size_step - 1];
    if (!block->has_room()) link(cells, *block);
    block->given_back = new (memory) Cell{block->given_back};
    if (--block->used == 0) remove_block(cells, *block);
    return true;
  }

 private:
  struct SizeClass {
    Block* with_room = nullptr;
    std::size_t bytes = 0;  ///< of all blocks
  };

  static void link(SizeClass& cells, Block& block) {
    block.previous = nullptr;
    block.next = cells.with_room;
    if (block.next != nullptr) block.next->previous = &block;
    cells.with_room = &block;
  }
  static void unlink(SizeClass& cells, const Block& block) {
    (block.previous != nullptr ? block.previous->next : cells.with_room) = block.next;
    if (block.next != nullptr) block.next->previous = block.previous;
  }

  template <class Allocator>
  bool add_block(SizeClass& cells, std::size_t cell_size) {
    if (m_count == m_capacity && !grow<Allocator>()) return false;
    const std::size_t size = std::clamp(cells.bytes / growth, smallest_block, largest_block);
    void* const memory = Allocator::allocate(size);
    if (memory == nullptr) return false;
    auto* const block = new (memory) Block{nullptr, nullptr, nullptr, cell_size, size, sizeof(Block), 0};
    Block** const place = std::upper_bound(m_blocks, m_blocks + m_count, block, std::less<>());
    std::copy_backward(place, m_blocks + m_count, m_blocks + m_count + 1);
    *place = block;
    ++m_count;
    cells.bytes += size;
    link(cells, *block);
    return true;
  }

  void remove_block(SizeClass& cells, Block& block) noexcept {
    unlink(cells, block);
    cells.bytes -= block.size;
    Block** const place = std::lower_bound(m_blocks, m_blocks + m_count, &block, std::less<>());
    std::copy(place + 1, m_blocks + m_count, place);
    m_latest = nullptr;
    ::operator delete(&block);
    if (--m_count != 0) return;
    free_list();
    m_blocks = m_few.data();
    m_capacity = m_few.size();
  }

  void free_list() const noexcept {
    if (m_blocks != m_few.data()) ::operator delete(m_blocks);
  }

  template <class Allocator>
  bool grow() {
    const std::size_t capacity = 2 * m_capacity;
    auto* const blocks = static_cast<Block**>(Allocator::allocate(capacity * sizeof(void*)));
    if (blocks == nullptr) return false;
    std::copy_n(m_blocks, m_count, blocks);
    free_list();
    m_blocks = blocks;
    m_capacity = capacity;
    return true;
  }

  Block* block_of(const void* memory) noexcept {
    if (m_latest != nullptr && m_latest->holds(memory)) return m_latest;
    Block** const after = std::upper_bound(
        m_blocks, m_blocks + m_count, memory,
        [](const void* address, const Block* block) { return std::less<const void*>()(address, block); });
    if (after == m_blocks || !after[-1]->holds(memory)) return nullptr;
    return m_latest = after[-1];
  }

  std::array<SizeClass, largest_size / size_step> m_classes{};
  std::array<Block*, 16> m_few{};
  Block** m_blocks = m_few.data();  ///< by their addresses; in m_few while there is room
  std::size_t m_count = 0;
  std::size_t m_capacity = m_few.size();
  Block* m_latest = nullptr;  ///< that was asked for; errors often die in the order in which they were made
};

constinit Pool pool;

bool is_pooled_size(std::size_t size) { return !under_address_sanitizer && size <= largest_size; }

}  // namespace

void* igsErrorPool::take(std::size_t size) {
  return is_pooled_size(size) ? pool.take<Throwing>(size) : ::operator new(size);
}

void* igsErrorPool::take(std::size_t size, const std::nothrow_t&) noexcept {
  return is_pooled_size(size) ? pool.take<Refusing>(size) : ::operator new(size, std::nothrow);
}

void igsErrorPool::give_back(void* memory) noexcept {
  if (memory != nullptr && !pool.give_back(memory)) ::operator delete(memory);
}
