#include "igs/objects/igsObjectManager.h"

#include <algorithm>

#include "igs/objects/igsObjectPtr.h"

namespace {
// Pointers are aligned, so the lowest bit of a slot tells a freed slot from a used one.
static_assert(alignof(igsObjectPtr) > 1);

constexpr bool is_free(std::uintptr_t slot) { return (slot & 1) != 0; }
// Index -1 ends the list of freed slots: it is stored as 0.
constexpr std::uintptr_t free_slot_before(int index) { return (static_cast<std::uintptr_t>(index + 1) << 1) | 1; }
constexpr int freed_before(std::uintptr_t slot) { return static_cast<int>(slot >> 1) - 1; }
}  // namespace

igsObjectManager::~igsObjectManager() {
  for (int i = 0; i < m_size && m_num_references > 0; ++i) {
    igsObjectPtr* const pointer = pointer_at(i);
    if (pointer == nullptr) continue;
    pointer->m_manager = nullptr;
    pointer->m_index = -1;
    --m_num_references;
  }
  if (m_capacity != inline_slots) delete[] m_heap;
}

igsObjectPtr* igsObjectManager::pointer_at(int index) const {
  const Slot slot = slots()[index];
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the slot was made from this pointer
  return is_free(slot) ? nullptr : reinterpret_cast<igsObjectPtr*>(slot);
}

void igsObjectManager::grow() {
  const int capacity = m_capacity * 2;
  Slot* const grown = new Slot[static_cast<std::size_t>(capacity)];
  std::copy_n(slots(), m_size, grown);
  if (m_capacity != inline_slots) delete[] m_heap;
  m_heap = grown;
  m_capacity = capacity;
}

void igsObjectManager::add_pointer(igsObjectPtr* pointer) {
  int index = m_free;
  if (index >= 0) {
    m_free = freed_before(slots()[index]);
  } else {
    if (m_size == m_capacity) grow();
    index = m_size++;
  }
  slots()[index] = reinterpret_cast<Slot>(pointer);
  pointer->m_manager = this;
  pointer->m_index = index;
  ++m_num_references;
}

void igsObjectManager::delete_pointer(igsObjectPtr* pointer) {
  slots()[pointer->m_index] = free_slot_before(m_free);
  m_free = pointer->m_index;
  --m_num_references;
}

void igsObjectManager::move_pointer(igsObjectPtr* from, igsObjectPtr* to) {
  slots()[from->m_index] = reinterpret_cast<Slot>(to);
  to->m_manager = this;
  to->m_index = from->m_index;
  from->m_manager = nullptr;
  from->m_index = -1;
}

int igsObjectManagerIT::operator++() {
  while (++m_position < m_manager->m_size) {
    if (m_manager->pointer_at(m_position) != nullptr) return 1;
  }
  m_position = -1;
  return 0;
}

igsObjectPtr* igsObjectManagerIT::operator()() const {
  return m_position < 0 ? nullptr : m_manager->pointer_at(m_position);
}
