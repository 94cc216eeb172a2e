#pragma once

#include <cstddef>
#include <new>
#include <utility>

#include "igs/support/export.h"
#include "igs/support/igsTyped.h"
#include "igs/support/kelabsOutput.h"
#include "igs/support/kluTypeInfo.h"
#include "igs/support/undefined.h"
#include "igs/support/utString.h"

class igsGlobalSection;
class igsObject;
class igsSimpleSectionLog;
class igsTerminateSection;

/// Is handed the values that an error carries, one by one, in the order of the error's constructor. The key (a DE
/// number) is not among them.
class IGS_API igsErrorValueVisitor {
 public:
  virtual ~igsErrorValueVisitor();
  /// Is called once a value, by its type.
  virtual void value(int number) = 0;
  virtual void value(double number) = 0;
  virtual void value(const utString& text) = 0;
};

/// A deviation from the standard, found while reading or checking. Its class is its identity: errors carry values,
/// never texts. Constructing an error of one of the five kinds below hands it to the error log of the current file,
/// which owns it from then on: create errors with igs_report, or with `new`, and leave their deletion to the log. An
/// error that is destroyed by someone else, one on the stack for example, leaves its log.
class IGS_API igsError : public igsTypedRoot<"igsError"> {
 public:
  igsError(const igsError&) = delete;
  igsError& operator=(const igsError&) = delete;

  /// Errors made with `new` share blocks of memory; nothing is to be known of it where they are made.
  static void* operator new(std::size_t size);  // NOLINT(misc-new-delete-overloads): deleted with its size
  static void* operator new(std::size_t size, const std::nothrow_t&) noexcept;
  static void* operator new(std::size_t size, std::align_val_t alignment) { return ::operator new(size, alignment); }
  static void* operator new(std::size_t /*size*/, void* place) noexcept { return place; }
  static void operator delete(void* memory, std::size_t size) noexcept;
  static void operator delete(void* memory, const std::nothrow_t&) noexcept;
  static void operator delete(void* memory, std::align_val_t alignment) noexcept {
    ::operator delete(memory, alignment);
  }
  static void operator delete(void* /*memory*/, void* /*place*/) noexcept {}

  /// Repairs the condition. Returns 1 when it is repaired (or was a mere warning), 0 when it cannot be repaired and the
  /// model is as it was.
  virtual int fix();
  virtual ~igsError();
  /// True when the error is of the class `t` or of one derived from it.
  virtual bool typeof(const kluTypeInfo& t) const { return id.childof(t); }
  /// The type record of the error's class, which has its name.
  virtual const kluTypeInfo& objtype() const { return id; }
  /// True when the error is of exactly the class `t`.
  virtual bool isa(const kluTypeInfo& t) const { return id == t; }
  /// Hands every carried value to `visitor`.
  virtual void visit_values(igsErrorValueVisitor& visitor) const;

  /// The section log that holds the error, and the error's place in its list of active or fixed errors (0-based); null
  /// and -1 when no log took it.
  igsSimpleSectionLog* log() const { return m_shared != nullptr ? m_shared->log : nullptr; }
  int log_position() const { return m_log_position; }

  /// The sink for the texts that `fix` prints; null (the default) keeps it silent. Not owned. An error that was given
  /// its file's sink (igsFile::message_stream) speaks to whatever sink the file has later, and is silent without one.
  void set_message_stream(kelabsOutput* stream);
  kelabsOutput* message_stream() const { return m_shared != nullptr ? m_shared->stream : nullptr; }

 protected:
  igsError() = default;
  /// Prints a text to the message stream, with the library's tag; nothing without a stream.
  IGS_PRINTF(2, 3) void message(const char* format, ...) const;

 private:
  friend class igsIndexedError;
  friend class igsSimpleSectionLog;
  friend class igsIndexedSectionLog;

  /// What errors of one log with one sink have in common, so that it takes one pointer an error. It is the log's, or,
  /// for an error without a log, the error's own.
  struct Shared {
    igsSimpleSectionLog* log;
    kelabsOutput* stream;
  };

  void share(const Shared* shared);
  void set_log_position(int position) { m_log_position = position; }
  void leave_log();

  const Shared* m_shared = nullptr;
  int m_log_position = -1;
};

/// Makes an error of the class `Error` from these values, which files it in the log of the current file. The log owns
/// it; the answer is for tagging it.
template <class Error, class... Values>
Error* igs_report(Values&&... values) {
  return new Error(std::forward<Values>(values)...);
}

/// An error with an integer key: for object and structure errors the DE number of the entity.
class IGS_API igsIndexedError : public igsTyped<igsIndexedError, "igsIndexedError", igsError> {
 public:
  /// -2147483647 until it is set.
  virtual int key() const { return m_key; }
  virtual void set_key(int key);
  ~igsIndexedError() override;

 protected:
  igsIndexedError() = default;
  explicit igsIndexedError(int key) : m_key(key) {}

 private:
  int m_key = igs_unset_int;
};

/// A fault of one entity. The key is set when the entity tags the error.
class IGS_API igsObjectError : public igsTyped<igsObjectError, "igsObjectError", igsIndexedError> {
 public:
  /// The DE number of the entity that the fault concerns and that has to be repaired first: the key unless a subclass
  /// knows better.
  virtual int obj();
  /// Makes obj() answer `de` (0: the key again).
  void set_obj(int de) { m_obj = de; }

 protected:
  igsObjectError();

  /// The live entity at the key's (or obj()'s) DE number in the file whose log holds the error; null when there is
  /// none.
  igsObject* object_at_key() const { return object_at(key()); }
  igsObject* object_at_obj() { return object_at(obj()); }

  int m_obj = 0;  ///< 0: not known

 private:
  igsObject* object_at(int de) const;
};

/// Says that an entity which this one refers to fails its own check. obj() is the referenced entity, so that the fixer
/// repairs it first. `fix` changes nothing: it answers 1 exactly when the referenced entity has no logged errors any
/// more.
class IGS_API igsReferenceDataError : public igsObjectError {
 public:
  int fix() override;
};

/// A fault of the file's structure; the key is the DE number (or record number) given to the constructor.
class IGS_API igsStructureError : public igsTyped<igsStructureError, "igsStructureError", igsIndexedError> {
 protected:
  igsStructureError();
  explicit igsStructureError(int de);
};

/// A fault of the Global section.
class IGS_API igsGlobalError : public igsTyped<igsGlobalError, "igsGlobalError", igsError> {
 public:
  /// The section concerned, not owned; null until tagged.
  igsGlobalSection* key() const { return m_section; }
  virtual void set_key(igsGlobalSection* section) { m_section = section; }
  /// True for what a check of the section found: the next check drops it and looks again. Errors met while reading
  /// stay.
  bool found_by_check() const { return m_found_by_check; }
  void set_found_by_check() { m_found_by_check = true; }

 protected:
  igsGlobalError();

 private:
  igsGlobalSection* m_section = nullptr;
  bool m_found_by_check = false;
};

/// A fault of the Start section.
class IGS_API igsStartError : public igsTyped<igsStartError, "igsStartError", igsError> {
 protected:
  igsStartError();
};

/// A fault of the Terminate section or of the file as a whole.
class IGS_API igsTerminateError : public igsTyped<igsTerminateError, "igsTerminateError", igsError> {
 public:
  /// The section concerned, not owned; null until tagged.
  igsTerminateSection* key() const { return m_section; }
  virtual void set_key(igsTerminateSection* section) { m_section = section; }

 protected:
  igsTerminateError();

 private:
  igsTerminateSection* m_section = nullptr;
};
