#include "igs/objects/igsObjectPtr.h"

#include <vector>

#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsObjectManager.h"

igsObjectPtr::igsObjectPtr(igsObject* object) {
  if (object == nullptr || object->manager() == nullptr) return;
  igsObjectSystem::initialize_system();
  object->manager()->add_pointer(this);
}

igsObjectPtr::igsObjectPtr(int de_number) {
  if (de_number < 1 || de_number % 2 == 0) return;
  igsObjectSystem::initialize_system();
  igsObjectSystem::ptr_created(this, (de_number - 1) / 2);
}

igsObjectPtr::igsObjectPtr(const igsObjectPtr& other) {
  // What changes is the manager's list, not `other`. NOLINTNEXTLINE(cert-oop58-cpp)
  if (other.m_manager != nullptr) other.m_manager->add_pointer(this);
}

igsObjectPtr::igsObjectPtr(igsObjectPtr&& other) noexcept {
  if (other.m_manager != nullptr) other.m_manager->move_pointer(&other, this);
}

// Giving up a reference deletes nothing, so that a pointer may be assigned to itself.
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
igsObjectPtr& igsObjectPtr::operator=(const igsObjectPtr& other) {
  igsObjectManager* const target = other.m_manager;
  release();
  if (target != nullptr) target->add_pointer(this);
  return *this;
}

igsObjectPtr& igsObjectPtr::operator=(igsObjectPtr&& other) noexcept {
  if (this == &other) return *this;
  release();
  if (other.m_manager != nullptr) other.m_manager->move_pointer(&other, this);
  return *this;
}

igsObjectPtr::~igsObjectPtr() { release(); }

void igsObjectPtr::release() {
  if (m_manager == nullptr) return;
  m_manager->delete_pointer(this);
  m_manager = nullptr;
  m_index = -1;
}

igsObject* igsObjectPtr::object() const { return m_manager != nullptr ? m_manager->object() : nullptr; }

igsObjectPtr::operator void*() const { return object(); }

int igsObjectPtr::de_number() const {
  const igsObject* const target = object();
  return target != nullptr ? target->de_number() : 0;
}

namespace {
// A cascade runs on the call stack as far as that is surely deep enough; below that, entities wait here for their turn.
constexpr int max_cascade_depth = 200;
int cascade_depth = 0;

std::vector<igsObject*>& doomed_entities() {
  static std::vector<igsObject*> waiting;
  return waiting;
}

/// One level of a cascade. At the end of the outermost one nothing waits any more, unless memory ran out: then the
/// entities that waited stay.
struct Cascade {
  Cascade() { ++cascade_depth; }
  ~Cascade() {
    if (--cascade_depth == 0) doomed_entities().clear();
  }
  Cascade(const Cascade&) = delete;
  Cascade& operator=(const Cascade&) = delete;
};

void remove(igsObject* object) {
  object->unreference_children();
  delete object;
}
}  // namespace

// This pointer gives its target up first: then nothing refers to the target any more, so that no cycle can lead back to
// it. The entity that holds this pointer may itself be deleted by the cascade; nothing of it is touched afterwards.
void igsObjectPtr::unreference() {
  igsObject* const target = object();
  const bool is_last = target != nullptr && m_manager->num_references() == 1 && !m_manager->unreferencing();
  release();
  if (!is_last) return;
  std::vector<igsObject*>& waiting = doomed_entities();
  if (cascade_depth >= max_cascade_depth) {
    waiting.push_back(target);
    return;
  }
  const bool outermost = cascade_depth == 0;
  const Cascade cascade;
  remove(target);
  while (outermost && !waiting.empty()) {
    igsObject* const next = waiting.back();
    waiting.pop_back();
    remove(next);
  }
}
