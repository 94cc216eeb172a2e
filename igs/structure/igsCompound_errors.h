#pragma once

#include "igs/errors/igsError.h"

/// A fault of one member of a compound entity.
class IGS_API igsCompoundEntityError
    : public igsTyped<igsCompoundEntityError, "igsCompoundEntityError", igsObjectError> {
 public:
  /// `member`: the member's original position, 0-based.
  explicit igsCompoundEntityError(int member) : m_member(member) {}

  void visit_values(igsErrorValueVisitor& visitor) const override { visitor.value(m_member); }
  /// The member's DE number, or the key when the member is null.
  int obj() override;
  /// Rebuilds the compound's member list without null and faulty members and records where each original position went.
  /// Changes nothing and returns 1 while the compound has more than one logged error, or when all members are sound;
  /// returns 0 when there is no compound at the key.
  int fix() override;

 private:
  int m_member;
};
