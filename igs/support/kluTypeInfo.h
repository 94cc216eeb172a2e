#pragma once

#include <cstddef>
#include <cstdint>

#include "igs/support/export.h"
#include "igs/support/utString.h"

/// The run-time type record of a class: its name and its parent's record. One immutable record stands for each class of
/// the object system and of the error hierarchy; the library's are built at compile time, so they exist before any
/// constructor of a static object runs.
class IGS_API kluTypeInfo {
 public:
  /// `name` is the class's name and must outlive the record (a literal); `parent` is null for a root class.
  constexpr explicit kluTypeInfo(const char* name, const kluTypeInfo* parent = nullptr)
      : m_name(name), m_parent(parent), m_hash(hash(name)) {}

  /// For a class with any number of parents: `parents` ends with null, or is null for a root class. The name and the
  /// list are copied; the copies live as long as the process.
  explicit kluTypeInfo(const utString& name, const kluTypeInfo* const* parents = nullptr);

  /// The class name, letter by letter.
  utString id_string() const { return m_name; }
  /// As id_string(), without a copy.
  constexpr const char* name() const { return m_name; }
  /// The (first) parent's record; null for a root class.
  constexpr const kluTypeInfo* parent() const { return m_parent; }

  /// True when this record is `other` or descends from it.
  bool childof(const kluTypeInfo& other) const;

  /// Same class. Records are compared by name: a host linked to a shared library may hold its own copy of a record.
  bool operator==(const kluTypeInfo& other) const {
    return m_hash == other.m_hash && (this == &other || has_name_of(other));
  }

 private:
  bool has_name_of(const kluTypeInfo& other) const;
  static constexpr std::uint64_t hash(const char* text) {
    std::uint64_t value = 14695981039346656037ULL;  // FNV-1a
    for (; *text != '\0'; ++text) value = (value ^ static_cast<unsigned char>(*text)) * 1099511628211ULL;
    return value;
  }

  const char* m_name;
  const kluTypeInfo* m_parent;
  std::uint64_t m_hash;
  const kluTypeInfo* const* m_other_parents = nullptr;  ///< ends with null; null for none
};
