#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/fields/igsNamedError.h"
#include "igs/structure/igsCompound.h"

using igsGroupBadNumEntities = igsCountErrors<"igsGroup", "Entities">::BadNum;

/// Group (IGES 5.3, type 402): entities of any class that belong together, for reasons of the sender's. This class
/// stands for the ordered ones, forms 14 (the members point back to the group) and 15 (they do not), and is the base of
/// the others. A group is a list and no more: whether its members are sound or point back does not matter to it.
class IGS_API igsGroup : public igsEntity<igsGroup, "igsGroup", igsCompound> {
 public:
  /// Form 15.
  igsGroup();

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    const int count = visit.count("NumberOfEntities", entity.entities().size());
    entity_list(entity, visit, count, igsBadCount<igsGroupBadNumEntities>());
  }
};
