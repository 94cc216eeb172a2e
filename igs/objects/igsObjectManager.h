#pragma once

#include <cstdint>

#include "igs/support/export.h"

class igsDirectoryEntry;
class igsFile;
class igsObject;
class igsObjectPtr;

/// The record that ties an object to its directory entry, its file and its slot there, and that knows every counted
/// pointer to the object. Owned by the file; it may exist before its object does, when pointers name a DE number ahead.
class IGS_API igsObjectManager {
 public:
  igsObjectManager() = default;
  igsObjectManager(const igsObjectManager&) = delete;
  igsObjectManager& operator=(const igsObjectManager&) = delete;
  /// Every pointer still registered becomes null.
  ~igsObjectManager();

  /// Set once the object was read, checked or printed in the current pass.
  int visited() const { return m_visited; }
  void set_visited(int visited) { m_visited = visited != 0 ? 1 : 0; }
  /// Result of the last check: 1 without logged errors. 1 before the first check, so that an entity met again on a
  /// cycle does not accuse itself.
  int validated() const { return m_validated; }
  void set_validated(int validated) { m_validated = validated != 0 ? 1 : 0; }
  /// True while the object gives up its references: no cascade deletes it meanwhile.
  bool unreferencing() const { return m_unreferencing; }
  void set_unreferencing(bool unreferencing) { m_unreferencing = unreferencing; }
  igsObject* object() const { return m_object; }
  void set_object(igsObject* object) { m_object = object; }
  igsDirectoryEntry* directory_entry() const { return m_directory_entry; }
  void set_directory_entry(igsDirectoryEntry* entry) { m_directory_entry = entry; }
  igsFile* file() const { return m_file; }
  void set_file(igsFile* file) { m_file = file; }
  /// Slot in the file's table, 0-based, -1 without one. The DE number is 2 x slot + 1. Without an object: the slot in
  /// which the entity that pointers name is missing.
  int system_location() const { return m_system_location; }
  void set_system_location(int location) { m_system_location = location; }

  /// Number of pointers that refer to the object.
  int num_references() const { return m_num_references; }

  /// Registers the pointer in the slot freed last, or in a new one, in constant time.
  void add_pointer(igsObjectPtr* pointer);
  /// Frees the pointer's slot. Does not touch the pointer itself.
  void delete_pointer(igsObjectPtr* pointer);
  /// Puts `to` in the place of the registered pointer `from`, which becomes null.
  void move_pointer(igsObjectPtr* from, igsObjectPtr* to);

 private:
  friend class igsObjectManagerIT;

  /// A slot holds a pointer, or, with the lowest bit set, the index of the slot that was freed before it.
  using Slot = std::uintptr_t;
  static constexpr int inline_slots = 2;

  Slot* slots() { return m_capacity == inline_slots ? m_inline : m_heap; }
  const Slot* slots() const { return m_capacity == inline_slots ? m_inline : m_heap; }
  igsObjectPtr* pointer_at(int index) const;
  void grow();

  igsObject* m_object = nullptr;
  igsDirectoryEntry* m_directory_entry = nullptr;
  igsFile* m_file = nullptr;
  int m_system_location = -1;
  int m_num_references = 0;
  int m_size = 0;  ///< slots in use or freed
  int m_capacity =
      inline_slots;  ///< most entities are referred to once or twice: their table needs no memory of its own
  int m_free = -1;   ///< slot freed last
  std::int8_t m_visited = 0;
  std::int8_t m_validated = 1;
  bool m_unreferencing = false;
  union {
    Slot m_inline[inline_slots] = {};
    Slot* m_heap;
  };
};

/// Walks the pointers registered on a manager in slot order. Starts before the first.
class IGS_API igsObjectManagerIT {
 public:
  explicit igsObjectManagerIT(const igsObjectManager* manager) : m_manager(manager) {}
  /// Moves to the next pointer and returns 1; returns 0 at the end, its position being -1 again.
  int operator++();
  /// The pointer at the current position; null before the first.
  igsObjectPtr* operator()() const;

 private:
  const igsObjectManager* m_manager;
  int m_position = -1;
};
