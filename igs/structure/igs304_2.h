#pragma once

#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsStructure.h"
#include "igs/support/undefined.h"
#include "igs/support/utString.h"

using igs304_2BadNumSegments = igsCountErrors<"igs304_2", "Segments">::BadNum;

/// Line Font Definition (IGES 5.3, type 304), form 2: segments, each visible or blank, that a line repeats. Positions
/// are 0-based, lengths model units.
class IGS_API igs304_2 : public igsEntity<igs304_2, "igs304_2", igsStructure> {
 public:
  igs304_2();

  int number_of_segments() const { return static_cast<int>(m_lengths.size()); }
  const std::vector<double>& lengths() const { return m_lengths; }
  void set_lengths(std::vector<double> lengths);
  /// Undefined (-DBL_MAX) outside the list.
  double length(int i) const { return igs_is_position(m_lengths, i) ? igs_element(m_lengths, i) : igs_undefined_real; }
  /// Stores length `i` and returns 1; 0 outside the list.
  int set_length(int i, double length) { return igs_set_element(m_lengths, i, length); }
  /// Which segments are visible: hexadecimal digits, one bit a segment, as they stand in the file.
  const utString& pattern() const { return m_pattern; }
  void set_pattern(const utString& digits) { m_pattern = digits; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    const int count = visit.count("NumberOfSegments", entity.m_lengths.size());
    visit.list("Lengths", count, entity.m_lengths, igsBadCount<igs304_2BadNumSegments>());
    visit("Pattern", entity.m_pattern);
  }

 private:
  std::vector<double> m_lengths;
  utString m_pattern;
};
