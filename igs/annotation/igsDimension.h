#pragma once

#include <type_traits>
#include <utility>
#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsReferenceList.h"
#include "igs/objects/igsAnnotation.h"
#include "igs/support/giPoint.h"
#include "igs/support/undefined.h"

class igsFieldPointers;

/// Base of the dimensions and of what is drawn like them: a text with lines that tie it to what it speaks of. All of it
/// lies in the plane of the dimension's own x and y, coordinates and lengths being model units. Texts are general notes
/// (igs212), leaders igs214 and witness lines igsWitnessLine, each of exactly that class.
class IGS_API igsDimension : public igsTyped<igsDimension, "igsDimension", igsAnnotation> {
 public:
  const igsObjectPtr& note() const { return m_note; }
  void set_note(const igsObjectPtr& note) { m_note = note; }

 protected:
  igsDimension() = default;

  /// The form number of the directory entry, which decides what fields there are.
  int form() const;

  igsObjectPtr m_note;
};

/// The lines of a dimension with two sides: a leader, and a witness line or null, to each.
class IGS_API igsTwoSidedLines {
 public:
  const igsObjectPtr& leader1() const { return m_leader1; }
  void set_leader1(const igsObjectPtr& leader) { m_leader1 = leader; }
  const igsObjectPtr& leader2() const { return m_leader2; }
  void set_leader2(const igsObjectPtr& leader) { m_leader2 = leader; }
  const igsObjectPtr& witness1() const { return m_witness1; }
  void set_witness1(const igsObjectPtr& witness_line) { m_witness1 = witness_line; }
  const igsObjectPtr& witness2() const { return m_witness2; }
  void set_witness2(const igsObjectPtr& witness_line) { m_witness2 = witness_line; }

 protected:
  igsTwoSidedLines() = default;

  igsObjectPtr m_leader1;
  igsObjectPtr m_leader2;
  igsObjectPtr m_witness1;
  igsObjectPtr m_witness2;
};

/// Any number of leaders. Positions are 0-based.
class IGS_API igsLeaderList {
 public:
  int number_of_leaders() const { return m_leaders.size(); }
  const std::vector<igsObjectPtr>& leaders() const { return std::as_const(m_leaders).elements(); }
  void set_leaders(std::vector<igsObjectPtr> leaders) { m_leaders.assign(std::move(leaders)); }
  /// Good until the list is changed; null outside it.
  const igsObjectPtr& leader(int i) const { return m_leaders.get(i); }
  /// Stores leader `i` and returns 1; 0 outside the list.
  int set_leader(int i, const igsObjectPtr& leader) { return m_leaders.set(i, leader); }
  /// Where the leader that was at `original` at the last check is now; -1 when it was taken out or never existed.
  int current_leader_index(int original) const { return m_leaders.current_index(original); }
  /// Takes the null leaders out. `original`: the position, at the last check, of one that was null.
  void remove_null_leaders(int original) { m_leaders.drop_nulls(original); }

 protected:
  igsLeaderList() = default;

  mutable igsReferenceList m_leaders;  // a check, which is const, starts the index list anew
};
