#include "igs/file/igsObjectSystem.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "igs/errors/igsErrorLog.h"
#include "igs/file/igsFile.h"
#include "igs/file/private/igsEntityPool.h"
#include "igs/objects/private/igsPrototypeScope.h"
#include "igs/support/private/makeRoom.h"

namespace {
struct Registry {
  std::vector<igsFile*> files;      ///< by location; null where none is
  std::vector<int> free_locations;  ///< the one freed last is the last
  int current = 0;                  ///< location
  igsFile* default_file = nullptr;  ///< null once someone has deleted it

  std::size_t num_files() const { return files.size() - free_locations.size(); }
  igsFile* current_file() const { return files[static_cast<std::size_t>(current)]; }
};

/// Needs no constructor and no destructor, so that looking at it costs next to nothing. Files may be deleted after any
/// destructor of the thread has run, those of static storage in an order that nobody knows; the registry is therefore
/// deleted with the last file.
struct ThreadState {
  Registry* registry = nullptr;  ///< null until the system is up
  int traversals = 0;            ///< within each other
  bool has_ended = false;
};

constinit thread_local ThreadState this_thread;
/// The state of the thread that loaded the library.
const ThreadState* const loading_thread = &this_thread;

void delete_registry() { delete std::exchange(this_thread.registry, nullptr); }

/// The default file and the registry of a thread that has ended go with the last file of its host.
void clear_up() {
  const Registry& left = *this_thread.registry;
  if (left.num_files() == 0) {
    delete_registry();
  } else if (left.num_files() == 1 && left.default_file != nullptr) {
    igsFile* const last = left.default_file;  // `left` goes with it
    delete last;                              // which leads here again
  }
}

class EndOfThread {
 public:
  EndOfThread() = default;
  ~EndOfThread() {
    if (&this_thread == loading_thread) return;
    this_thread.has_ended = true;
    if (this_thread.registry != nullptr) clear_up();
  }
  EndOfThread(const EndOfThread&) = delete;
  EndOfThread& operator=(const EndOfThread&) = delete;
};

void watch_for_end_of_thread() {
  if (&this_thread == loading_thread || this_thread.has_ended) return;
  thread_local const EndOfThread end;
  static_cast<void>(end);
}

// It registers itself, and stays until someone deletes it.
igsFile& make_default_file() { return *(this_thread.registry->default_file = new igsFile); }

void start_system() {
  watch_for_end_of_thread();
  this_thread.registry = new Registry;
  try {
    make_default_file();
  } catch (...) {  // out of memory: the next use tries again
    delete_registry();
    throw;
  }
}

// What is exported is called, not inlined, even here; for each entity and pointer that counts.
igsFile& current_file() {
  if (this_thread.registry == nullptr) start_system();
  igsFile* const current = this_thread.registry->current_file();
  // Someone has deleted every file, the default one too: there is always a current file.
  return current != nullptr ? *current : make_default_file();
}
}  // namespace

igsObjectSystem::~igsObjectSystem() {
  for (std::size_t i = 0; this_thread.registry != nullptr && i < this_thread.registry->files.size(); ++i) {
    igsFile* const file = this_thread.registry->files[i];
    if (file != nullptr && file->is_on_heap()) delete file;
  }
  if (this_thread.registry == nullptr || this_thread.registry->num_files() != 0) return;  // other files stay
  delete_registry();
  this_thread.traversals = 0;
}

void igsObjectSystem::initialize_system() {
  if (this_thread.registry == nullptr) start_system();
}

igsFile& igsObjectSystem::file() { return current_file(); }

igsErrorLog& igsObjectSystem::log() { return current_file().error_log(); }

void igsObjectSystem::set_current_file(const igsFile& file) { this_thread.registry->current = file.system_location(); }

void igsObjectSystem::get_all_files(igsFilecoDynArr& files) {
  files.clear();
  if (this_thread.registry == nullptr) return;
  const igsFilecoDynArr& all = this_thread.registry->files;
  std::copy_if(all.begin(), all.end(), std::back_inserter(files), [](const igsFile* file) { return file != nullptr; });
}

void igsObjectSystem::reentrant_start() {
  if (this_thread.traversals == 0) current_file().reset_visit_flags();
  ++this_thread.traversals;
}

void igsObjectSystem::reentrant_end() { --this_thread.traversals; }

// Whatever takes memory comes first, the room that the file's deletion needs included: running out changes nothing.
void igsObjectSystem::file_created(igsFile* file) {
  Registry& registry = *this_thread.registry;
  auto log = std::make_unique<igsErrorLog>(file);
  make_room(registry.files);
  registry.free_locations.reserve(registry.files.capacity());

  std::size_t location = registry.files.size();
  if (registry.free_locations.empty()) {
    registry.files.push_back(file);
  } else {
    location = static_cast<std::size_t>(registry.free_locations.back());
    registry.free_locations.pop_back();
    registry.files[location] = file;
  }
  registry.current = static_cast<int>(location);
  file->set_system_location(registry.current);
  file->m_error_log = log.release();
}

// What is not known here is a file of static storage that goes in another thread, the one that ends the process.
void igsObjectSystem::file_deleted(igsFile* file) {
  if (this_thread.registry == nullptr) return;
  Registry& registry = *this_thread.registry;
  const auto location = static_cast<std::size_t>(file->system_location());
  if (location >= registry.files.size() || registry.files[location] != file) return;
  registry.files[location] = nullptr;
  delete file->m_error_log;
  registry.free_locations.push_back(static_cast<int>(location));
  if (registry.default_file == file) registry.default_file = nullptr;
  if (registry.current == static_cast<int>(location)) {
    const auto lowest = std::find_if(registry.files.begin(), registry.files.end(),
                                     [](const igsFile* other) { return other != nullptr; });
    registry.current = lowest == registry.files.end() ? 0 : static_cast<int>(lowest - registry.files.begin());
  }
  if (this_thread.has_ended) clear_up();
}

igsTraversalScope::igsTraversalScope(const igsFile& file) : m_depth(this_thread.traversals) {
  if (m_depth == 0 || this_thread.registry->current_file() != &file) m_file.emplace(file);
  if (m_depth == 0) {
    igsObjectSystem::reentrant_start();
  } else {
    ++m_depth;
  }
}

bool igsTraversalScope::is_going_on() { return this_thread.traversals > 0; }

igsTraversalScope::~igsTraversalScope() { --m_depth; }

igsBlockMemory& igsObjectSystem::memory() {
  if (!igsPrototypeScope::is_going_on()) return current_file().m_pool->memory();
  static igsBlockMemory& of_prototypes = *new igsBlockMemory;  // never destroyed, as they are not
  return of_prototypes;
}

void igsObjectSystem::object_created(igsObject* object) {
  if (!igsPrototypeScope::is_going_on()) current_file().object_created(object);
}

void igsObjectSystem::ptr_created(igsObjectPtr* pointer, int slot) { current_file().ptr_created(pointer, slot); }

void igsObjectSystem::error_created(igsError* error) { log().receive_error(error); }

igsFileScope::igsFileScope(const igsFile& file) : m_previous(&current_file()) {
  igsObjectSystem::set_current_file(file);
}

igsFileScope::~igsFileScope() {
  if (this_thread.registry == nullptr) return;
  const igsFilecoDynArr& files = this_thread.registry->files;
  if (std::find(files.begin(), files.end(), m_previous) != files.end()) igsObjectSystem::set_current_file(*m_previous);
}
