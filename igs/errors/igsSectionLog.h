#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <unordered_map>
#include <vector>

#include "igs/errors/igsError.h"
#include "igs/support/export.h"

class igsFile;

/// The errors of one kind in one file: active errors in slots (a freed slot is the next to be used) and fixed errors in
/// fixing order. Owns them all.
class IGS_API igsSimpleSectionLog {
 public:
  /// Accepts errors whose class is `accepted` or descends from it; the record must outlive the log.
  /// `file`: whose errors these are to be, null for no file's.
  explicit igsSimpleSectionLog(const kluTypeInfo& accepted, igsFile* file = nullptr);
  igsSimpleSectionLog(const igsSimpleSectionLog&) = delete;
  igsSimpleSectionLog& operator=(const igsSimpleSectionLog&) = delete;
  virtual ~igsSimpleSectionLog();

  /// Takes ownership of the error and returns 1; returns 0 for a class that this log does not accept.
  virtual int receive_error(igsError* error);
  /// Moves an active error to the fixed ones and returns 1; returns 0 for a class that this log does not accept.
  virtual int mark_as_fixed(igsError* error);
  /// Removes the error, active or fixed, and destroys it. An error of another log is left alone.
  virtual void delete_error(igsError* error);
  /// Destroys all errors, active and fixed.
  virtual void clear();
  /// Writes nothing: errors have no texts. Walk the log with its iterator and render each error from its class.
  virtual void print() const {}

  /// The file whose errors these are; null for a log that a host has made.
  igsFile* file() const { return m_file; }
  /// Tells the log which sink its file has now, null for none: the errors that have the file's sink follow.
  void set_message_stream(kelabsOutput* stream) { m_tagged.stream = stream; }
  /// The active error in slot `slot` (its log_position, 0-based); null for a slot that is free or does not exist.
  igsError* error_in_slot(int slot) const { return slot >= 0 && slot < num_slots() ? in_slot(slot) : nullptr; }
  /// Number of active errors.
  int num_errors() const { return m_num_errors; }
  /// The fixed errors in fixing order.
  const std::vector<igsError*>& fixed_errors() const { return m_fixed; }

 protected:
  /// True for an error of a class that this log takes; null is none.
  bool accepts(const igsError* error) const { return error != nullptr && error->typeof(m_accepted); }
  /// Brings whatever is kept lazily up to date.
  virtual void update_log() const {}
  /// The error, of this log, is about to get another key.
  virtual void key_changes(const igsIndexedError& /*error*/, int /*new_key*/) {}
  /// Makes this the log of an error that has none.
  void adopt(igsError* error) {
    if (error->log() == nullptr) error->share(shared_with(error->message_stream()));
  }
  /// Deletes an error of a list that goes as a whole.
  static void destroy(igsError* error);
  /// Takes the error out of whichever list it is in; false when it is in none.
  virtual bool forget(const igsError& error);
  /// The error leaves its slot.
  virtual void slot_freed(const igsError& /*error*/) const {}

  /// The slot that the next error gets; it stays free until take_slot, which takes no memory.
  int next_slot() const;
  void take_slot(igsError* error) const;
  void free_slot(const igsError& error);
  /// True for an error that is in its slot of this log.
  bool is_active(const igsError* error) const;
  /// Number of slots, free ones included.
  int num_slots() const { return static_cast<int>(m_slots.size()); }
  /// Gives the memory of the slots back where all are free and would be taken in their order.
  void drop_free_slots();

  mutable int m_num_errors = 0;

 private:
  friend class igsError;
  friend class igsIndexedError;
  friend class igsSimpleSectionLogIT;

  /// What errors of this log with this sink share.
  const igsError::Shared* shared_with(kelabsOutput* stream);

  // A slot holds an active error or, where it is free, 2n + 3 for the slot n that was freed before it (1: none).
  static constexpr std::uintptr_t free_after(int slot) { return 2 * static_cast<std::uintptr_t>(slot + 1) + 1; }
  static constexpr int freed_before(std::uintptr_t content) { return static_cast<int>(content / 2) - 1; }
  igsError* in_slot(int slot) const {
    const std::uintptr_t content = m_slots[static_cast<std::size_t>(slot)];
    // NOLINTNEXTLINE(performance-no-int-to-ptr): it was a pointer
    return content % 2 == 0 ? reinterpret_cast<igsError*>(content) : nullptr;
  }

  const kluTypeInfo& m_accepted;
  igsFile* m_file;
  mutable int m_free_slot = -1;  ///< the one freed last; -1 when none is free
  igsError::Shared m_silent{this, nullptr};
  igsError::Shared m_tagged{this, nullptr};                    ///< of errors that speak to the file's sink
  std::vector<std::unique_ptr<igsError::Shared>> m_own_sinks;  ///< of errors that were given another one
  mutable std::deque<std::uintptr_t> m_slots;                  // a deque grows without copies and without room to spare
  std::vector<igsError*> m_fixed;
};

/// A section log that also answers by key. Errors are indexed when they are first asked for, since they get their key
/// after they were received.
class IGS_API igsIndexedSectionLog : public igsSimpleSectionLog {
 public:
  using igsSimpleSectionLog::igsSimpleSectionLog;
  ~igsIndexedSectionLog() override;

  int receive_error(igsError* error) override;
  void clear() override;

  using igsSimpleSectionLog::num_errors;
  /// Number of active errors whose key is `key`.
  int num_errors(int key) const { return m_num_errors != 0 ? num_indexed(key) : 0; }
  /// Destroys the active errors whose key is `key`.
  void clear(int key) {
    if (m_num_errors != 0) clear_indexed(key);
  }

 protected:
  void update_log() const override;
  void key_changes(const igsIndexedError& error, int new_key) override;
  bool forget(const igsError& error) override;
  void slot_freed(const igsError& error) const override;

 private:
  /// Slots that were given to errors of one key one after the other.
  struct Run {
    int first, last;
  };
  /// Where the errors of one key are: slots among these runs. What has left its slot stays in them, so that an error
  /// leaves at once and takes no memory while it is here.
  struct Bucket {
    int size = 0;  ///< number of errors
    Run latest{0, -1};
    std::unique_ptr<std::vector<Run>> earlier;

    void add(int slot);
  };
  int num_indexed(int key) const;
  void clear_indexed(int key);
  void add(int key, int slot) const;
  void leave(int key) const;
  template <class Visit>
  void visit_latest_first(const Bucket& bucket, int key, Visit visit) const;
  void drop_stale_runs(Bucket& bucket, int key) const;

  mutable std::deque<igsError*> m_received;
  mutable std::unordered_map<int, Bucket> m_index;
};

/// Walks the active errors of a log in slot order. Starts before the first. The error at the current position may be
/// marked as fixed or deleted while the walk goes on.
class IGS_API igsSimpleSectionLogIT {
 public:
  explicit igsSimpleSectionLogIT(const igsSimpleSectionLog* log);
  explicit igsSimpleSectionLogIT(const igsSimpleSectionLog& log) : igsSimpleSectionLogIT(&log) {}

  /// Moves to the next error and returns 1; returns 0 at the end.
  int operator++();
  /// The error at the current position; null before the first and after the last.
  igsError* operator()() const;

 private:
  const igsSimpleSectionLog* m_log;
  int m_position = -1;
};
