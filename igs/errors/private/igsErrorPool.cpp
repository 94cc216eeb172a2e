#include "igs/errors/private/igsErrorPool.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "igs/support/private/addressSanitizer.h"

namespace {

constexpr std::size_t size_step = 8;
constexpr std::size_t largest_size = 128;
constexpr std::size_t smallest_block = 1024;
constexpr std::size_t largest_block = std::size_t{1024} * 1024;
/// A new block has room for one error more for each `growth` that there are.
constexpr std::size_t growth = 8;

struct FreeCell {
  FreeCell* next;
};

/// Stands at the start of its memory, the cells behind it.
struct alignas(__STDCPP_DEFAULT_NEW_ALIGNMENT__) Block {
  Block* previous;
  std::size_t size;
};

/// The cells of one size. Never destroyed: errors are deleted at the end of the process and of the thread, too.
class Cells {
 public:
  /// Null when `allocate` returns null.
  template <class Allocate>
  void* take(std::size_t cell_size, Allocate allocate) {
    if (m_given_back == nullptr && m_room < cell_size && !add_block(allocate)) return nullptr;
    ++m_used;
    if (m_given_back != nullptr) return std::exchange(m_given_back, m_given_back->next);
    m_room -= cell_size;
    return std::exchange(m_unused, m_unused + cell_size);
  }

  void give_back(void* memory) noexcept {
    m_given_back = new (memory) FreeCell{m_given_back};
    if (--m_used != 0) return;
    while (m_latest != nullptr) ::operator delete(std::exchange(m_latest, m_latest->previous));
    *this = Cells();
  }

  bool holds(const void* memory) const {
    const std::less<> before;
    for (const Block* block = m_latest; block != nullptr; block = block->previous) {
      if (!before(memory, block) && before(memory, reinterpret_cast<const char*>(block) + block->size)) return true;
    }
    return false;
  }

 private:
  template <class Allocate>
  bool add_block(Allocate allocate) {
    const std::size_t size = std::clamp(m_bytes / growth, smallest_block, largest_block);
    void* const memory = allocate(size);
    if (memory == nullptr) return false;
    m_latest = new (memory) Block{m_latest, size};
    m_unused = static_cast<char*>(memory) + sizeof(Block);
    m_room = size - sizeof(Block);
    m_bytes += size;
    return true;
  }

  FreeCell* m_given_back = nullptr;
  char* m_unused = nullptr;  ///< in the latest block, the cells that were never used
  std::size_t m_room = 0;    ///< bytes there
  Block* m_latest = nullptr;
  std::size_t m_bytes = 0;  ///< of all blocks
  std::size_t m_used = 0;   ///< number of cells
};

constinit thread_local std::array<Cells, largest_size / size_step> pool;

bool is_pooled_size(std::size_t size) { return !under_address_sanitizer && size <= largest_size; }

template <class Allocate>
void* take_cell(std::size_t size, Allocate allocate) {
  const std::size_t steps = (size + size_step - 1) / size_step;
  return pool[steps - 1].take(steps * size_step, allocate);
}

}  // namespace

void* igsErrorPool::take(std::size_t size) {
  const auto allocate = [](std::size_t bytes) { return ::operator new(bytes); };
  return is_pooled_size(size) ? take_cell(size, allocate) : allocate(size);
}

void* igsErrorPool::take(std::size_t size, const std::nothrow_t& nothrow) noexcept {
  const auto allocate = [&nothrow](std::size_t bytes) { return ::operator new(bytes, nothrow); };
  return is_pooled_size(size) ? take_cell(size, allocate) : allocate(size);
}

void igsErrorPool::give_back(void* memory, std::size_t size) noexcept {
  if (memory == nullptr) return;
  if (is_pooled_size(size)) {
    pool[(size + size_step - 1) / size_step - 1].give_back(memory);
  } else {
    ::operator delete(memory);
  }
}

void igsErrorPool::give_back(void* memory) noexcept {
  const auto cells = std::find_if(pool.begin(), pool.end(), [memory](const Cells& each) { return each.holds(memory); });
  cells != pool.end() ? cells->give_back(memory) : ::operator delete(memory);
}
