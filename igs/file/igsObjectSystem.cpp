#include "igs/file/igsObjectSystem.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "igs/errors/igsErrorLog.h"
#include "igs/file/igsFile.h"
#include "igs/support/private/makeRoom.h"

utNeverDestroyed<std::vector<igsFile*>> igsObjectSystem::m_file_list;
utNeverDestroyed<std::vector<igsErrorLog*>> igsObjectSystem::m_error_log_list;
utNeverDestroyed<std::vector<int>> igsObjectSystem::m_file_free_list;
int igsObjectSystem::m_current_file = 0;
int igsObjectSystem::m_system_on_line = 0;
int igsObjectSystem::m_recurse_depth = 0;

igsObjectSystem::~igsObjectSystem() {
  bool is_empty = true;
  for (std::size_t i = 0; i < m_file_list->size(); ++i) {
    igsFile* const file = (*m_file_list)[i];
    if (file != nullptr && file->is_on_heap()) delete file;
    is_empty = is_empty && (*m_file_list)[i] == nullptr;
  }
  if (!is_empty) return;  // files that live elsewhere stay
  m_file_list->clear();
  m_error_log_list->clear();
  m_file_free_list->clear();
  m_current_file = m_system_on_line = m_recurse_depth = 0;
}

void igsObjectSystem::start_system() {
  m_system_on_line = 1;
  try {
    make_default_file();
  } catch (...) {  // out of memory: the next use tries again
    m_system_on_line = 0;
    throw;
  }
}

// It registers itself, and stays until someone deletes it.
igsFile& igsObjectSystem::make_default_file() { return *new igsFile; }

igsFile& igsObjectSystem::file() {
  initialize_system();
  igsFile* const current = (*m_file_list)[static_cast<std::size_t>(m_current_file)];
  // Someone has deleted every file, the default one too: there is always a current file.
  return current != nullptr ? *current : make_default_file();
}

igsErrorLog& igsObjectSystem::log() { return log_of(file()); }

igsErrorLog& igsObjectSystem::log_of(const igsFile& file) {
  return *(*m_error_log_list)[static_cast<std::size_t>(file.system_location())];
}

void igsObjectSystem::set_current_file(const igsFile& file) { m_current_file = file.system_location(); }

void igsObjectSystem::get_all_files(igsFilecoDynArr& files) {
  files.clear();
  std::copy_if(m_file_list->begin(), m_file_list->end(), std::back_inserter(files),
               [](const igsFile* file) { return file != nullptr; });
}

void igsObjectSystem::reentrant_start() {
  if (m_recurse_depth == 0) file().reset_visit_flags();
  ++m_recurse_depth;
}

void igsObjectSystem::reentrant_end() { --m_recurse_depth; }

// Whatever takes memory comes first, the room that the file's deletion needs included: running out changes nothing.
void igsObjectSystem::file_created(igsFile* file) {
  auto log = std::make_unique<igsErrorLog>(file);
  make_room(*m_file_list);
  make_room(*m_error_log_list);
  m_file_free_list->reserve(m_file_list->capacity());

  std::size_t location = m_file_list->size();
  if (m_file_free_list->empty()) {
    m_file_list->push_back(file);
    m_error_log_list->push_back(log.release());
  } else {
    location = static_cast<std::size_t>(m_file_free_list->back());
    m_file_free_list->pop_back();
    (*m_file_list)[location] = file;
    (*m_error_log_list)[location] = log.release();
  }
  m_current_file = static_cast<int>(location);
  file->set_system_location(m_current_file);
}

void igsObjectSystem::file_deleted(igsFile* file) {
  const auto location = static_cast<std::size_t>(file->system_location());
  if (location >= m_file_list->size() || (*m_file_list)[location] != file) return;
  (*m_file_list)[location] = nullptr;
  delete (*m_error_log_list)[location];
  (*m_error_log_list)[location] = nullptr;
  m_file_free_list->push_back(static_cast<int>(location));
  if (m_current_file != static_cast<int>(location)) return;
  const auto lowest =
      std::find_if(m_file_list->begin(), m_file_list->end(), [](const igsFile* other) { return other != nullptr; });
  m_current_file = lowest == m_file_list->end() ? 0 : static_cast<int>(lowest - m_file_list->begin());
}

igsTraversalScope::igsTraversalScope(const igsFile& file) {
  if (igsObjectSystem::m_recurse_depth == 0 || !igsObjectSystem::is_current(file)) m_file.emplace(file);
  igsObjectSystem::reentrant_start();
}

igsTraversalScope::~igsTraversalScope() { --igsObjectSystem::m_recurse_depth; }

void igsObjectSystem::object_created(igsObject* object) { file().object_created(object); }

void igsObjectSystem::ptr_created(igsObjectPtr* pointer, int slot) { file().ptr_created(pointer, slot); }

void igsObjectSystem::error_created(igsError* error) { log().receive_error(error); }

igsFileScope::igsFileScope(const igsFile& file) : m_previous(&igsObjectSystem::file()) {
  igsObjectSystem::set_current_file(file);
}

igsFileScope::~igsFileScope() {
  const std::vector<igsFile*>& files = *igsObjectSystem::m_file_list;
  if (std::find(files.begin(), files.end(), m_previous) != files.end()) igsObjectSystem::set_current_file(*m_previous);
}
