#include "igs/errors/igsSectionLog.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "igs/support/private/makeRoom.h"

igsSimpleSectionLog::igsSimpleSectionLog(const kluTypeInfo& accepted, igsFile* file)
    : m_accepted(accepted), m_file(file) {}

igsSimpleSectionLog::~igsSimpleSectionLog() { igsSimpleSectionLog::clear(); }

const igsError::Shared* igsSimpleSectionLog::shared_with(kelabsOutput* stream) {
  if (stream == nullptr) return &m_silent;
  if (stream == m_tagged.stream) return &m_tagged;
  const auto known = std::find_if(m_own_sinks.rbegin(), m_own_sinks.rend(),
                                  [stream](const auto& shared) { return shared->stream == stream; });
  if (known != m_own_sinks.rend()) return known->get();
  m_own_sinks.push_back(std::make_unique<igsError::Shared>(igsError::Shared{this, stream}));
  return m_own_sinks.back().get();
}

int igsSimpleSectionLog::next_slot() const {
  if (m_free_slot < 0) {
    m_slots.push_back(free_after(-1));
    m_free_slot = num_slots() - 1;
  }
  return m_free_slot;
}

void igsSimpleSectionLog::take_slot(igsError* error) const {
  std::uintptr_t& content = m_slots[static_cast<std::size_t>(m_free_slot)];
  error->set_log_position(std::exchange(m_free_slot, freed_before(content)));
  content = reinterpret_cast<std::uintptr_t>(error);
}

void igsSimpleSectionLog::free_slot(const igsError& error) {
  const int slot = error.log_position();
  m_slots[static_cast<std::size_t>(slot)] = free_after(std::exchange(m_free_slot, slot));
  --m_num_errors;
  slot_freed(error);
}

void igsSimpleSectionLog::drop_free_slots() {
  int slot = 0;
  for (int next = m_free_slot; next == slot; ++slot) next = freed_before(m_slots[static_cast<std::size_t>(slot)]);
  if (slot != num_slots()) return;
  m_slots.clear();
  m_free_slot = -1;
}

bool igsSimpleSectionLog::is_active(const igsError* error) const {
  return error_in_slot(error->log_position()) == error;
}

int igsSimpleSectionLog::receive_error(igsError* error) {
  if (!accepts(error)) return 0;
  next_slot();
  take_slot(error);
  ++m_num_errors;
  adopt(error);
  return 1;
}

int igsSimpleSectionLog::mark_as_fixed(igsError* error) {
  if (!accepts(error)) return 0;
  update_log();
  if (!is_active(error)) return 1;
  make_room(m_fixed);
  free_slot(*error);
  error->set_log_position(static_cast<int>(m_fixed.size()));
  m_fixed.push_back(error);
  return 1;
}

void igsSimpleSectionLog::delete_error(igsError* error) {
  if (error == nullptr || error->log() != this) return;
  error->leave_log();
  delete error;
}

bool igsSimpleSectionLog::forget(const igsError& error) {
  if (is_active(&error)) {
    free_slot(error);
    return true;
  }
  const auto position = static_cast<std::size_t>(error.log_position());
  if (position >= m_fixed.size() || m_fixed[position] != &error) return false;
  m_fixed.erase(m_fixed.begin() + error.log_position());
  for (std::size_t i = position; i < m_fixed.size(); ++i) m_fixed[i]->set_log_position(static_cast<int>(i));
  return true;
}

void igsSimpleSectionLog::destroy(igsError* error) {
  if (error != nullptr) error->m_shared = nullptr;
  delete error;
}

void igsSimpleSectionLog::clear() {
  for (int slot = 0; slot < num_slots(); ++slot) destroy(in_slot(slot));
  for (igsError* error : m_fixed) destroy(error);
  m_slots.clear();
  m_free_slot = -1;
  m_fixed = std::vector<igsError*>();
  m_own_sinks.clear();
  m_num_errors = 0;
}

int igsIndexedSectionLog::receive_error(igsError* error) {
  if (!accepts(error)) return 0;
  error->set_log_position(static_cast<int>(m_received.size()));
  m_received.push_back(error);
  ++m_num_errors;
  adopt(error);
  return 1;
}

igsIndexedSectionLog::~igsIndexedSectionLog() { igsIndexedSectionLog::clear(); }

void igsIndexedSectionLog::clear() {
  for (igsError* error : m_received) destroy(error);
  m_received.clear();
  igsSimpleSectionLog::clear();
  m_index = std::unordered_map<int, Bucket>();
}

// Whatever takes memory comes first, so that each error is in one list.
void igsIndexedSectionLog::update_log() const {
  while (!m_received.empty()) {
    igsError* const error = m_received.front();
    add(static_cast<const igsIndexedError*>(error)->key(), next_slot());
    take_slot(error);
    m_received.pop_front();
  }
}

void igsIndexedSectionLog::Bucket::add(int slot) {
  const bool has_runs = latest.first <= latest.last;
  if (has_runs && slot != latest.last + 1) {
    if (earlier == nullptr) earlier = std::make_unique<std::vector<Run>>();
    earlier->push_back(latest);
  }
  if (!has_runs || slot != latest.last + 1) latest.first = slot;
  latest.last = slot;
  ++size;
}

void igsIndexedSectionLog::add(int key, int slot) const {
  constexpr std::size_t few = 16;
  Bucket& bucket = m_index[key];
  if (bucket.earlier != nullptr && bucket.earlier->size() > few + 2 * static_cast<std::size_t>(bucket.size)) {
    drop_stale_runs(bucket, key);
  }
  bucket.add(slot);
}

void igsIndexedSectionLog::leave(int key) const {
  const auto bucket = m_index.find(key);
  if (bucket != m_index.end() && --bucket->second.size == 0) m_index.erase(bucket);
}

// A slot that the same key has had before is visited again.
template <class Visit>
void igsIndexedSectionLog::visit_latest_first(const Bucket& bucket, int key, Visit visit) const {
  const auto visit_run = [&](const Run& run) {
    for (int slot = run.last; slot >= run.first; --slot) {
      const auto* const error = static_cast<const igsIndexedError*>(error_in_slot(slot));
      if (error != nullptr && error->key() == key) visit(slot);
    }
  };
  visit_run(bucket.latest);
  if (bucket.earlier != nullptr) std::for_each(bucket.earlier->rbegin(), bucket.earlier->rend(), visit_run);
}

void igsIndexedSectionLog::drop_stale_runs(Bucket& bucket, int key) const {
  std::vector<int> slots;
  std::unordered_set<int> seen;
  visit_latest_first(bucket, key, [&](int slot) {
    if (seen.insert(slot).second) slots.push_back(slot);
  });
  Bucket kept;
  std::for_each(slots.rbegin(), slots.rend(), [&kept](int slot) { kept.add(slot); });
  bucket = std::move(kept);
}

void igsIndexedSectionLog::slot_freed(const igsError& error) const {
  leave(static_cast<const igsIndexedError&>(error).key());
}

void igsIndexedSectionLog::key_changes(const igsIndexedError& error, int new_key) {
  if (!is_active(&error) || new_key == error.key()) return;  // not active: received but not indexed yet, or fixed
  add(new_key, error.log_position());
  leave(error.key());
}

// Who makes errors of his own destroys the latest first.
bool igsIndexedSectionLog::forget(const igsError& error) {
  if (igsSimpleSectionLog::forget(error)) return true;
  const auto received = std::find(m_received.rbegin(), m_received.rend(), &error);
  if (received == m_received.rend()) return false;
  m_received.erase(std::next(received).base());
  --m_num_errors;
  return true;
}

int igsIndexedSectionLog::num_indexed(int key) const {
  update_log();
  const auto bucket = m_index.find(key);
  return bucket == m_index.end() ? 0 : bucket->second.size;
}

void igsIndexedSectionLog::clear_indexed(int key) {
  update_log();
  const auto found = m_index.find(key);
  if (found == m_index.end()) return;
  const Bucket bucket = std::move(found->second);
  m_index.erase(found);
  visit_latest_first(bucket, key, [this](int slot) { delete_error(error_in_slot(slot)); });
  if (bucket.size > num_slots() / 2) drop_free_slots();  // in time that follows what has been deleted
}

igsSimpleSectionLogIT::igsSimpleSectionLogIT(const igsSimpleSectionLog* log) : m_log(log) {}

int igsSimpleSectionLogIT::operator++() {
  m_log->update_log();
  const int end = m_log->num_slots();
  for (++m_position; m_position < end; ++m_position) {
    if (m_log->error_in_slot(m_position) != nullptr) return 1;
  }
  m_position = -1;
  return 0;
}

igsError* igsSimpleSectionLogIT::operator()() const {
  return m_position < 0 ? nullptr : m_log->error_in_slot(m_position);
}
