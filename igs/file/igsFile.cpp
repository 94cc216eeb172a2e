#include "igs/file/igsFile.h"

#include <memory>

#include "igs/errors/igsErrorLog.h"
#include "igs/errors/igsFixer.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/file/private/igsEntityPool.h"
#include "igs/file/private/igsFileMemory.h"
#include "igs/objects/igsKeptParts.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsObjectManager.h"
#include "igs/structure/private/igsViewNumbers.h"
#include "igs/support/private/makeRoom.h"
#include "igs/support/utOstream.h"

namespace {
// operator new notes here where the next file will stand.
constinit thread_local void* newest_on_heap = nullptr;

std::size_t index(int slot) { return static_cast<std::size_t>(slot); }
}  // namespace

void* igsFile::operator new(std::size_t size) {
  newest_on_heap = ::operator new(size);
  return newest_on_heap;
}

void igsFile::operator delete(void* memory) { ::operator delete(memory); }

igsFile::igsFile() : igsFile(utString()) {}

igsFile::igsFile(const utString& pathname)
    : m_pathname(pathname),
      m_start_section(this),
      m_global_section(this),
      m_terminate_section(this),
      m_pool(std::make_unique<igsEntityPool>()),
      m_on_heap(newest_on_heap == this) {
  newest_on_heap = nullptr;
  igsObjectSystem::initialize_system();
  igsObjectSystem::file_created(this);
}

igsFile::~igsFile() {
  for (std::size_t i = 0; i < m_slots.size(); ++i) {
    if (m_slots[i] != nullptr) delete m_slots[i]->object();
  }
  for (const auto& [slot, manager] : m_pending) m_pool->destroy(manager);
  igsObjectSystem::file_deleted(this);
}

void igsFile::set_start_section(const igsStartSection& section) {
  m_start_section.become(section);
  m_start_section.set_owner(this);
}

void igsFile::set_global_section(const igsGlobalSection& section) {
  m_global_section.become(section);
  m_global_section.set_owner(this);
}

void igsFile::set_message_stream(kelabsOutput* stream) {
  m_message_stream = stream;
  error_log().set_message_stream(stream);
}

int igsFile::num_entities() const { return static_cast<int>(m_slots.size() - m_free_slots.size()) - m_num_holes; }

igsObject* igsFile::entity(int de_number) const {
  if (de_number < 1 || de_number % 2 == 0) return nullptr;
  const std::size_t slot = index((de_number - 1) / 2);
  return slot < m_slots.size() && m_slots[slot] != nullptr ? m_slots[slot]->object() : nullptr;
}

int igsFile::dropped_type(int de_number) const {
  const auto found = m_dropped_types.find(de_number);
  return found != m_dropped_types.end() ? found->second : 0;
}

igsEntityLines igsFile::lines(int de_number) const {
  const std::size_t slot = de_number > 0 && de_number % 2 != 0 ? index(de_number / 2) : m_lines.size();
  return slot < m_lines.size() ? m_lines[slot] : igsEntityLines();
}

// Whatever takes memory comes first, the room that the object's deletion needs included: running out changes nothing.
void igsFile::object_created(igsObject* object) {
  make_room(m_slots);
  m_free_slots.reserve(m_slots.capacity());
  const int slot = m_free_slots.empty() ? static_cast<int>(m_slots.size()) : m_free_slots.back();
  igsObjectManager* manager;
  const auto waiting = m_pending.find(slot);
  // A pointer to an entity that the input does not have finds no other in its place.
  const bool is_awaited = waiting != m_pending.end() && waiting->second->system_location() < 0;
  manager = is_awaited ? waiting->second : m_pool->make_manager();
  if (waiting != m_pending.end()) {
    if (!is_awaited) m_pool->destroy(waiting->second);
    m_pending.erase(waiting);
  }
  if (m_free_slots.empty()) {
    m_slots.push_back(nullptr);
  } else {
    m_free_slots.pop_back();
  }
  igsEntityPool::make_entry(manager)->set_manager(manager);
  manager->set_object(object);
  manager->set_file(this);
  manager->set_system_location(slot);
  object->set_manager(manager);
  m_slots[index(slot)] = manager;
}

void igsFile::ptr_created(igsObjectPtr* pointer, int slot) {
  igsObjectManager* manager = index(slot) < m_slots.size() ? m_slots[index(slot)] : nullptr;
  if (manager == nullptr) {
    const auto waiting = m_pending.find(slot);
    manager = waiting != m_pending.end() ? waiting->second : add_pending(slot);
  }
  manager->add_pointer(pointer);
}

igsObjectManager* igsFile::add_pending(int slot) {
  igsObjectManager*& manager = m_pending[slot];
  try {
    manager = m_pool->make_manager();
  } catch (...) {
    m_pending.erase(slot);
    throw;
  }
  manager->set_file(this);
  return manager;
}

void igsFile::object_deleted(igsObject* object) {
  igsObjectManager* const manager = object->manager();
  const int slot = manager->system_location();
  if (!m_kept.empty()) m_kept.erase(manager);
  m_slots[index(slot)] = nullptr;
  free_slot(slot);
  m_pool->destroy(manager);
}

void igsFile::take_slot(int slot) {
  if (slot < m_num_fixed_slots) {
    --m_num_holes;
  } else {
    m_free_slots.pop_back();
  }
}

void igsFile::free_slot(int slot) {
  if (slot < m_num_fixed_slots) {
    ++m_num_holes;
  } else {
    m_free_slots.push_back(slot);
  }
}

// Where the slot freed last was the last to be made: taking it back leaves no trace.
void igsFile::give_back_slot(int slot) {
  if (index(slot) + 1 != m_slots.size()) return;
  m_slots.pop_back();
  m_free_slots.pop_back();
}

void igsFile::release_prototype(igsObject* object) {
  const int slot = object->manager()->system_location();
  object_deleted(object);
  object->set_manager(nullptr);
  give_back_slot(slot);
}

void igsFile::reset_visit_flags() const {
  for (igsObjectManager* const manager : m_slots) {
    if (manager != nullptr) manager->set_visited(0);
  }
}

void igsFile::compress() {
  m_lines.clear();
  m_section_lines = {};
  if (m_num_fixed_slots != 0 && !holds_kept_numbers()) m_num_fixed_slots = m_num_holes = 0;
  std::size_t used = index(m_num_fixed_slots);
  for (std::size_t i = used; i < m_slots.size(); ++i) {
    igsObjectManager* const manager = m_slots[i];
    if (manager == nullptr) continue;
    manager->set_system_location(static_cast<int>(used));
    m_slots[used++] = manager;
  }
  m_slots.resize(used);
  m_free_slots.clear();
}

void igsFile::tag_error(igsError* error) const {
  if (error != nullptr && m_message_stream != nullptr) error->set_message_stream(m_message_stream);
}

void igsFile::check() const {
  const igsFileScope current(*this);
  within_memory([this] { return check_entities(), 1; });
}

void igsFile::check_entities() const {
  m_global_section.check();
  std::vector<const igs410_0*> views;
  {
    const igsTraversalScope traversal(*this);
    igsFileIT entities(this);
    while (++entities) {
      entities()->check();
      igs_note_view(*entities(), views);
    }
  }
  igs_tag_view_numbers(igs_view_number_faults(views));
}

void igsFile::clean(int delete_faulty) {
  const igsFileScope current(*this);
  within_memory([=, this] { return repair(delete_faulty), 1; });
}

void igsFile::repair(int delete_faulty) {
  check_entities();
  igsFixer().fix(igsObjectSystem::log(), 1);
  igsObjectSystem::log().print();
  if (delete_faulty == 0) return;
  igsFileIT entities(this);
  while (++entities) {
    const igsObject* const entity = entities();
    if (entity->num_logged_errors() != 0) delete entity;
  }
}

int igsFile::replace_entity(igsObject* old, igsObject* replacement) {
  if (old == nullptr || replacement == nullptr || old == replacement) return 0;
  igsObjectManager* const manager = replacement->manager();
  if (&old->file() != this || manager->file() != this) return 0;

  std::vector<igsObjectPtr*> references;
  igsObjectManagerIT pointers(old->manager());
  while (++pointers) references.push_back(pointers());
  for (igsObjectPtr* const reference : references) *reference = igsObjectPtr(replacement);

  if (auto kept = m_kept.extract(old->manager())) {
    kept.key() = manager;
    m_kept.insert(std::move(kept));
  }
  const int slot = old->manager()->system_location();
  delete old;
  take_slot(slot);  // which the deletion has just freed
  m_slots[index(slot)] = manager;
  m_slots[index(manager->system_location())] = nullptr;
  free_slot(manager->system_location());
  manager->set_system_location(slot);
  return 1;
}

void igsFile::print(utOstream& os) const {
  const igsFileScope current(*this);
  const igsTraversalScope traversal(*this);
  os << "IgesFile = {" << utEndl;
  utOstream inner(os, 1);
  inner << "Pathname = \"" << m_pathname << '"' << utEndl;
  m_start_section.print(inner);
  m_global_section.print(inner);
  inner << "NoOfEntities = " << static_cast<int>(m_slots.size()) << utEndl;
  inner << "Entities = {" << utEndl;
  utOstream entity_stream(inner, 1);
  igsFileIT entities(this);
  while (++entities) entities()->print(entity_stream);
  inner << '}' << utEndl;
  m_terminate_section.print(inner);
  os << '}' << utEndl;
}

int igsFileIT::operator++() {
  const auto& slots = m_file->m_slots;
  while (index(++m_position) < slots.size()) {
    const igsObjectManager* const manager = slots[index(m_position)];
    if (manager != nullptr && (m_roots_only == 0 || manager->num_references() == 0)) return 1;
  }
  m_position = -1;
  return 0;
}

igsObject* igsFileIT::operator()() const {
  const auto& slots = m_file->m_slots;
  if (m_position < 0 || index(m_position) >= slots.size() || slots[index(m_position)] == nullptr) return nullptr;
  return slots[index(m_position)]->object();
}

int igsFileTypeIT::operator++() {
  while (++m_entities) {
    if (m_entities()->isa(m_type)) return 1;
  }
  return 0;
}
