#include "igs/errors/igsSectionLog.h"

#include <algorithm>
#include <new>

#include "igs/support/makeRoom.h"

namespace {
/// All logs by their number less 1; null where a number is free.
struct Registry {
  std::vector<igsSimpleSectionLog*> logs;
  std::vector<unsigned> free_numbers;
};

Registry& registry() {
  static Registry& logs = *new Registry;  // never destroyed: the last logs are, at the end of the process
  return logs;
}
}  // namespace

igsSimpleSectionLog::igsSimpleSectionLog(const kluTypeInfo& accepted) : m_accepted(accepted) {
  auto& [logs, free_numbers] = registry();
  if (free_numbers.empty()) {
    if (logs.size() == max_logs) throw std::bad_alloc();
    make_room(logs);
    free_numbers.reserve(logs.capacity());
    logs.push_back(this);
    m_number = static_cast<unsigned>(logs.size());
  } else {
    m_number = free_numbers.back();
    free_numbers.pop_back();
    logs[m_number - 1] = this;
  }
}

igsSimpleSectionLog::~igsSimpleSectionLog() {
  igsSimpleSectionLog::clear();
  registry().logs[m_number - 1] = nullptr;
  registry().free_numbers.push_back(m_number);
}

igsSimpleSectionLog* igsSimpleSectionLog::numbered(unsigned number) {
  return number != 0 ? registry().logs[number - 1] : nullptr;
}

unsigned igsSimpleSectionLog::number_of_stream(kelabsOutput* stream) {
  const auto found = std::find(m_streams.begin(), m_streams.end(), stream);
  if (found == m_streams.end() && m_streams.size() == max_streams) return igsError::kept_apart;
  const auto number = static_cast<unsigned>(found - m_streams.begin()) + 1;
  if (found == m_streams.end()) m_streams.push_back(stream);
  return number;
}

int igsSimpleSectionLog::take_slot(igsError* error) const {
  int slot;
  if (m_free_slots.empty()) {
    slot = static_cast<int>(m_active.size());
    m_active.push_back(error);
  } else {
    slot = m_free_slots.back();
    m_free_slots.pop_back();
    m_active[static_cast<std::size_t>(slot)] = error;
  }
  error->set_log_position(slot);
  return slot;
}

void igsSimpleSectionLog::free_slot(int slot) {
  m_free_slots.push_back(slot);
  m_active[static_cast<std::size_t>(slot)] = nullptr;
  --m_num_errors;
  slot_freed(slot);
}

bool igsSimpleSectionLog::is_active(const igsError* error) const {
  const auto position = static_cast<std::size_t>(error->log_position());
  return error->log_position() >= 0 && position < m_active.size() && m_active[position] == error;
}

int igsSimpleSectionLog::receive_error(igsError* error) {
  if (!accepts(error)) return 0;
  take_slot(error);
  ++m_num_errors;
  if (error->log() == nullptr) error->set_log(this);
  return 1;
}

int igsSimpleSectionLog::mark_as_fixed(igsError* error) {
  if (!accepts(error)) return 0;
  update_log();
  if (!is_active(error)) return 1;
  make_room(m_fixed);
  free_slot(error->log_position());
  error->set_log_position(static_cast<int>(m_fixed.size()));
  m_fixed.push_back(error);
  return 1;
}

void igsSimpleSectionLog::delete_error(igsError* error) {
  if (error == nullptr || error->log() != this) return;
  update_log();
  if (is_active(error)) {
    free_slot(error->log_position());
  } else {
    std::erase(m_fixed, error);
    for (std::size_t i = 0; i < m_fixed.size(); ++i) m_fixed[i]->set_log_position(static_cast<int>(i));
  }
  delete error;
}

void igsSimpleSectionLog::clear() {
  for (const igsError* error : m_active) delete error;
  for (const igsError* error : m_fixed) delete error;
  m_active.clear();
  m_free_slots = std::vector<int>();
  m_fixed = std::vector<igsError*>();
  m_streams.clear();
  m_num_errors = 0;
}

int igsIndexedSectionLog::receive_error(igsError* error) {
  if (!accepts(error)) return 0;
  error->set_log_position(static_cast<int>(m_received.size()));
  m_received.push_back(error);
  ++m_num_errors;
  if (error->log() == nullptr) error->set_log(this);
  return 1;
}

igsIndexedSectionLog::~igsIndexedSectionLog() { igsIndexedSectionLog::clear(); }

void igsIndexedSectionLog::clear() {
  for (const igsError* error : m_received) delete error;
  m_received.clear();
  igsSimpleSectionLog::clear();
  m_links.clear();
  m_index = std::unordered_map<int, Bucket>();
}

// Whatever takes memory comes first, so that each error is in one list.
void igsIndexedSectionLog::update_log() const {
  while (!m_received.empty()) {
    igsError* const error = m_received.front();
    const int key = static_cast<const igsIndexedError*>(error)->key();
    m_index.try_emplace(key);
    if (m_links.size() <= num_slots()) m_links.emplace_back();
    link(take_slot(error), key);
    m_received.pop_front();
  }
}

void igsIndexedSectionLog::link(int slot, int key) const {
  Bucket& bucket = m_index[key];
  m_links[static_cast<std::size_t>(slot)] = {key, -1, bucket.first};
  if (bucket.first >= 0) m_links[static_cast<std::size_t>(bucket.first)].previous = slot;
  bucket.first = slot;
  ++bucket.size;
}

void igsIndexedSectionLog::slot_freed(int slot) const {
  const Link& freed = m_links[static_cast<std::size_t>(slot)];
  const auto bucket = m_index.find(freed.key);
  if (freed.previous >= 0) {
    m_links[static_cast<std::size_t>(freed.previous)].next = freed.next;
  } else {
    bucket->second.first = freed.next;
  }
  if (freed.next >= 0) m_links[static_cast<std::size_t>(freed.next)].previous = freed.previous;
  if (--bucket->second.size == 0) m_index.erase(bucket);
}

void igsIndexedSectionLog::key_changed(igsIndexedError* error) {
  if (!is_active(error)) return;  // received but not indexed yet, or fixed
  const int former = m_links[static_cast<std::size_t>(error->log_position())].key;
  if (error->key() == former) return;
  m_index.try_emplace(error->key());  // what takes memory comes first
  slot_freed(error->log_position());
  link(error->log_position(), error->key());
}

int igsIndexedSectionLog::num_errors(int key) const {
  update_log();
  const auto bucket = m_index.find(key);
  return bucket == m_index.end() ? 0 : bucket->second.size;
}

void igsIndexedSectionLog::clear(int key) {
  update_log();
  while (true) {
    const auto bucket = m_index.find(key);
    if (bucket == m_index.end() || bucket->second.size == 0) return;
    delete_error(error_in_slot(bucket->second.first));
  }
}

igsSimpleSectionLogIT::igsSimpleSectionLogIT(const igsSimpleSectionLog* log) : m_log(log) {}

int igsSimpleSectionLogIT::operator++() {
  m_log->update_log();
  const int end = static_cast<int>(m_log->m_active.size());
  for (++m_position; m_position < end; ++m_position) {
    if (m_log->error_in_slot(m_position) != nullptr) return 1;
  }
  m_position = -1;
  return 0;
}

igsError* igsSimpleSectionLogIT::operator()() const {
  return m_position < 0 ? nullptr : m_log->error_in_slot(m_position);
}
