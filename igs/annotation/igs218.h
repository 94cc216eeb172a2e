#pragma once

#include "igs/annotation/igsDimension.h"

/// Ordinate Dimension (IGES 5.3, type 218): a distance from a common base line, with a witness line or a leader (form
/// 0) or with both (form 1).
class IGS_API igs218 : public igsEntity<igs218, "igs218", igsDimension> {
 public:
  /// Form 0.
  igs218();

  /// Form 0: a witness line or a leader. Form 1: a witness line.
  const igsObjectPtr& witness_or_leader() const { return m_witness_or_leader; }
  void set_witness_or_leader(const igsObjectPtr& line) { m_witness_or_leader = line; }
  /// Form 1 only; form 0 does not have this field.
  const igsObjectPtr& leader() const { return m_leader; }
  void set_leader(const igsObjectPtr& leader) { m_leader = leader; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    const bool has_both = entity.form() == 1;
    visit("Note", entity.m_note);
    visit(has_both ? "Witness" : "WitnessOrLeader", entity.m_witness_or_leader);
    if (has_both || std::is_same_v<V, igsFieldPointers>) visit("Leader", entity.m_leader);
  }

 private:
  igsObjectPtr m_witness_or_leader;
  igsObjectPtr m_leader;
};
