#include "igs/objects/igsObjectPtr.h"

#include <vector>

#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsObjectManager.h"

igsObjectPtr::igsObjectPtr(igsObject* object) {
  if (object != nullptr && object->manager() != nullptr) object->manager()->add_pointer(this);
}

igsObjectPtr::igsObjectPtr(int de_number) {
  if (de_number >= 1 && de_number % 2 == 1) igsObjectSystem::ptr_created(this, (de_number - 1) / 2);
}

void igsObjectPtr::join(const igsObjectPtr& other) { other.m_manager->add_pointer(this); }

void igsObjectPtr::replace(igsObjectPtr& other) noexcept { other.m_manager->move_pointer(&other, this); }

// Giving up a reference deletes nothing, so that a pointer may be assigned to itself.
void igsObjectPtr::assign(const igsObjectPtr& other) {
  igsObjectManager* const target = other.m_manager;
  if (m_manager != nullptr) release();
  if (target != nullptr) target->add_pointer(this);
}

void igsObjectPtr::release() {
  m_manager->delete_pointer(this);
  m_manager = nullptr;
  m_index = -1;
}

namespace {
// A cascade of deletions runs on the call stack as far as that is surely deep enough; below that, entities wait here
// for their turn. When memory runs out, those that wait stay.
constexpr int max_cascade_depth = 200;

struct Cascade {
  Cascade();
  ~Cascade();
  Cascade(const Cascade&) = delete;
  Cascade& operator=(const Cascade&) = delete;

  int depth = 0;
  std::vector<igsObject*> waiting;
};

constinit thread_local Cascade* cascade = nullptr;

Cascade::Cascade() { cascade = this; }
Cascade::~Cascade() { cascade = nullptr; }

void remove(igsObject* object) {
  ++cascade->depth;
  object->unreference_children();
  delete object;
  --cascade->depth;
}
}  // namespace

// This pointer gives its target up first: then nothing refers to the target any more, so that no cycle can lead back to
// it. The entity that holds this pointer may itself be deleted by the cascade; nothing of it is touched afterwards.
void igsObjectPtr::unreference() {
  igsObject* const target = object();
  const bool is_last = target != nullptr && m_manager->num_references() == 1 && !m_manager->unreferencing();
  if (m_manager != nullptr) release();
  if (!is_last) return;
  if (cascade != nullptr) {
    cascade->depth < max_cascade_depth ? remove(target) : cascade->waiting.push_back(target);
    return;
  }
  Cascade outermost;
  remove(target);
  while (!outermost.waiting.empty()) {
    igsObject* const next = outermost.waiting.back();
    outermost.waiting.pop_back();
    remove(next);
  }
}
