#include "igs/file/private/igsEntityPool.h"

#include <algorithm>
#include <new>
#include <optional>

#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsObjectManager.h"
#include "igs/support/private/addressSanitizer.h"
#include "igs/support/private/portable.h"

struct igsEntityPool::Cell : igsObjectManager {
  std::optional<igsDirectoryEntry> entry;
};

union igsEntityPool::Place {
  Place* next_free;
  alignas(Cell) std::byte cell[sizeof(Cell)];
};

namespace {
constexpr std::size_t fewest_places = 8;
constexpr std::size_t most_places = 512;
}  // namespace

igsEntityPool::igsEntityPool() : m_block_size(fewest_places / 2) {}

igsEntityPool::~igsEntityPool() = default;

void igsEntityPool::grow() {
  const std::size_t size = std::min(2 * m_block_size, most_places);
  m_blocks.push_back(igs_portable::make_unique_for_overwrite<Place[]>(size));
  m_block_size = size;
  m_used = 0;
}

igsObjectManager* igsEntityPool::make_manager() {
  if (under_address_sanitizer) return new Cell;
  Place* place = m_free;
  if (place != nullptr) {
    m_free = place->next_free;
  } else {
    if (m_blocks.empty() || m_used == m_block_size) grow();
    place = &m_blocks.back()[m_used++];
  }
  return new (place->cell) Cell;
}

igsDirectoryEntry* igsEntityPool::make_entry(igsObjectManager* manager) {
  return &static_cast<Cell*>(manager)->entry.emplace();
}

void igsEntityPool::destroy(igsObjectManager* manager) noexcept {
  auto* const cell = static_cast<Cell*>(manager);
  if (under_address_sanitizer) {
    delete cell;
    return;
  }
  cell->~Cell();
  m_free = new (cell) Place{m_free};
}
