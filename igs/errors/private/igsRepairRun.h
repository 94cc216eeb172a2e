#pragma once

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <utility>

#include "igs/objects/igsObjectPtr.h"

/// What the repairs of one run of the fixer have to know of each other; lives as long as the run. Private to the
/// library.
///
/// A repair that converts an entity which others go on using makes a copy. A file can name one large entity in a great
/// many places: once the copies of a run have taken `room_for_copies`, further places share one copy of an entity.
class igsRepairRun {
 public:
  igsRepairRun() : m_outer(m_current) { m_current = this; }
  ~igsRepairRun() { m_current = m_outer; }
  igsRepairRun(const igsRepairRun&) = delete;
  igsRepairRun& operator=(const igsRepairRun&) = delete;

  /// The run that is going on in this thread; null for a repair that is made by itself.
  static igsRepairRun* current() { return m_current; }

  static constexpr std::size_t room_for_copies = std::size_t{8} * 1024 * 1024;

  /// The conversion of the entity with this DE number that is to be shared; null when there is none.
  igsObject* shared_conversion(int de) const;
  /// Notes a new conversion that takes about `bytes`.
  void converted(int de, igsObject* conversion, std::size_t bytes);
  /// The entity is gone.
  void forget(int de) { m_shared.erase(de); }

  /// Least and largest value of a parameter, and where it lies on the surfaces by their DE numbers.
  using Range = std::pair<double, double>;
  using Ranges = std::unordered_map<int, Range>;
  /// In which angles the curves lie that trim surfaces of revolution; unset until a repair has asked for one of them.
  std::optional<Ranges> trimmed_angles;

 private:
  static inline constinit thread_local igsRepairRun* m_current = nullptr;

  igsRepairRun* m_outer;
  std::unordered_map<int, igsObjectPtr> m_shared;  ///< by the DE number of the entity converted
  std::size_t m_copied = 0;
};
