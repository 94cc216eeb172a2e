#include "igs/errors/igsError.h"

#include <cstdarg>

#include "igs/errors/igsSectionLog.h"
#include "igs/errors/private/igsErrorPool.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsObject.h"

igsErrorValueVisitor::~igsErrorValueVisitor() = default;

// NOLINTNEXTLINE(misc-new-delete-overloads): see the header
void* igsError::operator new(std::size_t size) { return igsErrorPool::take(size); }

void* igsError::operator new(std::size_t size, const std::nothrow_t& nothrow) noexcept {
  return igsErrorPool::take(size, nothrow);
}

void igsError::operator delete(void* memory, std::size_t size) noexcept { igsErrorPool::give_back(memory, size); }

void igsError::operator delete(void* memory, const std::nothrow_t&) noexcept { igsErrorPool::give_back(memory); }

igsError::~igsError() {
  leave_log();
  share(nullptr);
}

// The log looks at the key, which is still there.
igsIndexedError::~igsIndexedError() { leave_log(); }

void igsError::leave_log() {
  if (log() == nullptr) return;
  log()->forget(*this);
  m_shared = nullptr;
}

void igsError::share(const Shared* shared) {
  if (log() == nullptr) delete m_shared;
  m_shared = shared;
}

void igsError::set_message_stream(kelabsOutput* stream) {
  if (log() != nullptr) {
    m_shared = log()->shared_with(stream);
  } else {
    share(stream != nullptr ? new Shared{nullptr, stream} : nullptr);
  }
}

int igsError::fix() { return 0; }

void igsError::visit_values(igsErrorValueVisitor& /*visitor*/) const {}

void igsError::message(const char* format, ...) const {
  if (message_stream() == nullptr) return;
  std::va_list arguments;
  va_start(arguments, format);
  message_stream()->print_list(kel_iges_tag, format, arguments);
  va_end(arguments);
}

void igsIndexedError::set_key(int key) {
  if (log() != nullptr) log()->key_changes(*this, key);
  m_key = key;
}

// Errors are logged from the constructor of their kind, before the constructor of their class has stored any value.

igsObjectError::igsObjectError() { igsObjectSystem::error_created(this); }

igsStructureError::igsStructureError() { igsObjectSystem::error_created(this); }

igsStructureError::igsStructureError(int de) : igsTyped(de) { igsObjectSystem::error_created(this); }

igsGlobalError::igsGlobalError() { igsObjectSystem::error_created(this); }

igsStartError::igsStartError() { igsObjectSystem::error_created(this); }

igsTerminateError::igsTerminateError() { igsObjectSystem::error_created(this); }

int igsObjectError::obj() { return m_obj != 0 ? m_obj : key(); }

igsObject* igsObjectError::object_at(int de) const {
  const igsFile* const own_file = log() != nullptr ? log()->file() : nullptr;
  return (own_file != nullptr ? *own_file : igsObjectSystem::file()).entity(de);
}

int igsReferenceDataError::fix() {
  const igsObject* const referenced = object_at_obj();
  return referenced != nullptr && referenced->num_logged_errors() == 0 ? 1 : 0;
}
