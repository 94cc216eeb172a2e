#pragma once

#include <utility>

#include "igs/fields/igsEntity.h"
#include "igs/fields/igsNamedError.h"
#include "igs/structure/igsCompound.h"
#include "igs/support/utString.h"

using igs308BadNumEntities = igsCountErrors<"igs308", "Entities">::BadNum;

/// Subfigure Definition (IGES 5.3, type 308): entities of any class that instances (type 408) place in the model
/// together.
class IGS_API igs308 : public igsEntity<igs308, "igs308", igsCompound> {
 public:
  igs308();

  /// How deeply instances of other subfigures are nested within this one; 0: there are none. As the file says it: it is
  /// not compared with what the members are.
  int depth() const { return m_depth; }
  void set_depth(int depth) { m_depth = depth; }
  const utString& subfigure_name() const { return m_name; }
  void set_subfigure_name(utString name) { m_name = std::move(name); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Depth", entity.m_depth);
    visit("Name", entity.m_name);
    const int count = visit.count("NumberOfEntities", entity.entities().size());
    entity_list(entity, visit, count, igsBadCount<igs308BadNumEntities>());
  }

 private:
  int m_depth = 0;
  utString m_name;
};
