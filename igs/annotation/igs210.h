#pragma once

#include "igs/annotation/igs208.h"
#include "igs/fields/igsNamedError.h"

using igs210BadNumLeaders = igsCountErrors<"igs210", "Leaders">::BadNum;

/// General Label (IGES 5.3, type 210): a note with at least one leader. It has no frame: corner and angle are neither
/// read nor written.
class IGS_API igs210 : public igsEntity<igs210, "igs210", igs208> {
 public:
  igs210();

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    auto& leaders = entity.m_leaders.elements();
    visit("Note", entity.m_note);
    const int count = visit.count("NumberOfLeaders", leaders.size());
    visit.list("Leaders", count, leaders, igsBadCount<igs210BadNumLeaders>());
  }
};
