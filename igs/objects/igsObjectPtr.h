#pragma once

#include "igs/objects/igsObjectManager.h"
#include "igs/support/export.h"

class igsObject;

/// A counted pointer from one entity to another. It never owns its target, and becomes null by itself when the target
/// is deleted. Built from a DE number it may also wait for an entity that is yet to be made.
class IGS_API igsObjectPtr {
 public:
  igsObjectPtr() = default;
  /// Null for null.
  igsObjectPtr(igsObject* object);  // NOLINT(google-explicit-constructor): a pointer stands for its object
  /// Binds to the entity with this DE number in the current file, now or when that entity comes into being. A number
  /// that is no DE number (even, or below 1) makes a null pointer.
  explicit igsObjectPtr(int de_number);
  igsObjectPtr(const igsObjectPtr& other) {
    if (other.m_manager != nullptr) join(other);
  }
  igsObjectPtr(igsObjectPtr&& other) noexcept {
    if (other.m_manager != nullptr) replace(other);
  }
  /// Assigning a pointer to itself registers it anew; its slot in the target's table may change.
  // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): giving up a reference deletes nothing
  igsObjectPtr& operator=(const igsObjectPtr& other) {
    if (m_manager != nullptr || other.m_manager != nullptr) assign(other);
    return *this;
  }
  /// Takes the place of `other` in the target's table; `other` becomes null.
  igsObjectPtr& operator=(igsObjectPtr&& other) noexcept {
    if (this == &other) return *this;
    if (m_manager != nullptr) release();
    if (other.m_manager != nullptr) replace(other);
    return *this;
  }
  ~igsObjectPtr() {
    if (m_manager != nullptr) release();
  }

  /// The target; null for a null pointer and for one whose entity does not exist yet.
  igsObject* object() const { return m_manager != nullptr ? m_manager->object() : nullptr; }
  /// True for a pointer to an entity, also where that does not exist yet.
  bool is_bound() const { return m_manager != nullptr; }
  /// Null exactly where object() is.
  // NOLINTNEXTLINE(google-explicit-constructor): pointers are tested and compared like raw ones
  operator void*() const { return object(); }
  /// True where object() is not null.
  explicit operator bool() const { return object() != nullptr; }
  /// Makes `delete pointer` ambiguous, so that it does not compile. Nothing else chooses it.
  // NOLINTNEXTLINE(google-explicit-constructor): only implicit ones count there
  operator igsObjectPtr*() const volatile = delete;
  /// Not to be applied to a null pointer.
  igsObject* operator->() const { return object(); }
  /// The target's DE number, 0 for a null pointer: what is written to a file. Where the file has no such entity, but
  /// keeps what it reads (igsFileOptions::keep), the number that was read, until an entity that was there is deleted.
  int de_number() const {
    const int slot = m_manager != nullptr ? m_manager->system_location() : -1;
    return slot >= 0 ? 2 * slot + 1 : 0;
  }

  /// Same target. Two null pointers are equal.
  bool operator==(const igsObjectPtr& other) const { return object() == other.object(); }
  /// True when the target is `other`; for null, when there is no target.
  bool operator==(const igsObject* other) const { return object() == other; }

  /// Gives the target up: when this is its only reference, the target's own references are given up and it is deleted;
  /// otherwise this pointer becomes null and the target lives on. The depth of such a cascade is not bounded by the
  /// stack.
  void unreference();

 private:
  friend class igsObjectManager;
  void release();
  void assign(const igsObjectPtr& other);
  /// This null pointer comes to refer to the other's target, beside it or in its place.
  void join(const igsObjectPtr& other);
  void replace(igsObjectPtr& other) noexcept;

  igsObjectManager* m_manager = nullptr;
  int m_index = -1;
};
