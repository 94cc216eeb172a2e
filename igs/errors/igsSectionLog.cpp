#include "igs/errors/igsSectionLog.h"

igsSimpleSectionLog::~igsSimpleSectionLog() { igsSimpleSectionLog::clear(); }

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
  m_active[static_cast<std::size_t>(slot)] = nullptr;
  m_free_slots.push_back(slot);
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
  m_free_slots.clear();
  m_fixed.clear();
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
  update_log();
  igsSimpleSectionLog::clear();
  m_links.clear();
  m_index.clear();
}

void igsIndexedSectionLog::update_log() const {
  for (igsError* const error : m_received) {
    const int slot = take_slot(error);
    link(slot, static_cast<const igsIndexedError*>(error)->key());
  }
  m_received.clear();
}

void igsIndexedSectionLog::link(int slot, int key) const {
  if (m_links.size() <= static_cast<std::size_t>(slot)) m_links.resize(static_cast<std::size_t>(slot) + 1);
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
    if (bucket == m_index.end()) return;
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
