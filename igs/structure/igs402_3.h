#pragma once

#include <utility>
#include <vector>

#include "igs/fields/igsEntity.h"
#include "igs/fields/igsNamedError.h"
#include "igs/structure/igsCompound.h"

using igs402_3BadNumEntities = igsCountErrors<"igs402_3", "Entities">::BadNum;
using igs402_3BadNumViews = igsCountErrors<"igs402_3", "Views">::BadNum;

/// Views Visible Associativity (IGES 5.3, type 402 form 3): the views (igs410_0) in which its members are shown. The
/// list of members may be empty: the entities then name this one in the view field of their directory entries.
/// Positions are 0-based.
class IGS_API igs402_3 : public igsEntity<igs402_3, "igs402_3", igsCompound> {
 public:
  igs402_3();

  /// Of the list of views.
  int number_of_views() const { return static_cast<int>(views().size()); }
  const std::vector<igsObjectPtr>& views() const { return std::as_const(m_views).elements(); }
  /// Replaces the whole list of views.
  void set_views(std::vector<igsObjectPtr> views) { m_views.assign(std::move(views)); }
  /// Where the view that was at `original` at the last check is now; -1 when it was taken out or never existed.
  int get_current_view_index(int original) const { return m_views.current_index(original); }
  /// Takes out what is no view (null, or no igs410_0), the others keeping their order, and notes where they went.
  /// `original`: the position, at the last check, of one of these. A thousand calls for one list cost no more than one.
  void drop_unusable_views(int original);

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    auto& views = entity.m_views.elements();
    const int number_of_views = visit.count("NumberOfViews", views.size());
    const int count = visit.count("NumberOfEntities", entity.entities().size());
    visit.list("Views", number_of_views, views, igsBadCount<igs402_3BadNumViews>());
    entity_list(entity, visit, count, igsBadCount<igs402_3BadNumEntities>());
  }

 private:
  mutable igsReferenceList m_views;  // a check, which is const, starts the index list anew
};
