#include "igs/errors/igsError.h"

#include <cstdarg>
#include <unordered_map>

#include "igs/errors/igsSectionLog.h"
#include "igs/errors/private/igsErrorPool.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsObjectPtr.h"

igsErrorValueVisitor::~igsErrorValueVisitor() = default;

namespace {
// A sink that has no number in the error's log, or whose error has no log, is kept here under its error.
std::unordered_map<const igsError*, kelabsOutput*>& streams_apart() {
  // never destroyed: errors are deleted at the end of the process, too
  static auto& streams = *new std::unordered_map<const igsError*, kelabsOutput*>;
  return streams;
}
}  // namespace

void* igsError::operator new(std::size_t size) { return igsErrorPool::take(size); }

void* igsError::operator new(std::size_t size, const std::nothrow_t& nothrow) noexcept {
  return igsErrorPool::take(size, nothrow);
}

void igsError::operator delete(void* memory) noexcept { igsErrorPool::give_back(memory); }

void igsError::operator delete(void* memory, const std::nothrow_t&) noexcept { igsErrorPool::give_back(memory); }

igsError::~igsError() {
  if (m_stream_number == kept_apart) streams_apart().erase(this);
}

igsSimpleSectionLog* igsError::log() const { return igsSimpleSectionLog::numbered(m_log_number); }

void igsError::set_log(igsSimpleSectionLog* log) {
  kelabsOutput* const stream = message_stream();
  set_message_stream(nullptr);
  m_log_number = log != nullptr ? log->number() & igsSimpleSectionLog::max_logs : 0U;
  set_message_stream(stream);
}

void igsError::set_message_stream(kelabsOutput* stream) {
  igsSimpleSectionLog* const owner = log();
  unsigned number = 0;
  if (stream != nullptr) number = owner != nullptr ? owner->number_of_stream(stream) : kept_apart;
  if (number == kept_apart) {
    streams_apart()[this] = stream;
  } else if (m_stream_number == kept_apart) {
    streams_apart().erase(this);
  }
  m_stream_number = number & kept_apart;
}

kelabsOutput* igsError::message_stream() const {
  if (m_stream_number == 0) return nullptr;
  return m_stream_number == kept_apart ? streams_apart().at(this) : log()->stream(m_stream_number);
}

int igsError::fix() { return 0; }

void igsError::visit_values(igsErrorValueVisitor& /*visitor*/) const {}

void igsError::message(const char* format, ...) const {
  kelabsOutput* const stream = message_stream();
  if (stream == nullptr) return;
  std::va_list arguments;
  va_start(arguments, format);
  stream->print_list(kel_iges_tag, format, arguments);
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

igsObject* igsObjectError::object_at_key() const { return igsObjectPtr(key()).object(); }

igsObject* igsObjectError::object_at_obj() { return igsObjectPtr(obj()).object(); }

int igsReferenceDataError::fix() {
  const igsObject* const referenced = object_at_obj();
  return referenced != nullptr && referenced->num_logged_errors() == 0 ? 1 : 0;
}
