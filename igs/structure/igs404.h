#pragma once

#include <type_traits>
#include <utility>
#include <vector>

#include "igs/fields/igsEntity.h"
#include "igs/fields/igsIndexedList.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/structure/igsCompound.h"
#include "igs/support/giPoint.h"
#include "igs/support/undefined.h"

using igs404BadNumEntities = igsCountErrors<"igs404", "Entities">::BadNum;
using igs404BadNumViews = igsCountErrors<"igs404", "Views">::BadNum;

/// One view of a drawing, and where it lies on the sheet.
class IGS_API igs404View {
 public:
  const igsObjectPtr& view() const { return m_view; }
  void set_view(const igsObjectPtr& view) { m_view = view; }
  /// Where the origin of the view lies, in drawing coordinates; undefined at first.
  giPoint2 origin() const { return {m_x_origin, m_y_origin}; }
  void set_origin(const giPoint2& origin) { m_x_origin = origin.x(), m_y_origin = origin.y(); }
  /// How far the view is turned on the sheet, in radians, counterclockwise. In drawings of form 1 alone.
  double angle() const { return m_angle; }
  void set_angle(double angle) { m_angle = angle; }

  template <class E, class V>
  static void fields(E& view, V& visit) {
    place_fields(view, visit);
    visit("Angle", view.m_angle);
  }

 protected:
  template <class E, class V>
  static void place_fields(E& view, V& visit) {
    visit("View", view.m_view);
    visit("XOrigin", view.igs404View::m_x_origin);
    visit("YOrigin", view.igs404View::m_y_origin);
  }

 private:
  igsObjectPtr m_view;
  double m_x_origin = igs_undefined_real;
  double m_y_origin = igs_undefined_real;
  double m_angle = 0;
};

/// Drawing (IGES 5.3, type 404): views (igs410_0) placed on a sheet, and the members, which are the annotation drawn on
/// the sheet itself. In form 1 the views may be turned, in form 0 they are upright. Positions are 0-based.
class IGS_API igs404 : public igsEntity<igs404, "igs404", igsCompound> {
 public:
  /// Form 0.
  igs404();

  /// Of the list of views.
  int number_of_views() const { return static_cast<int>(views().size()); }
  const std::vector<igs404View>& views() const { return std::as_const(m_views).elements(); }
  /// Good until the list is changed; a null view outside it.
  const igs404View& view(int i) const { return igs_element(views(), i); }
  /// Stores view `i` and returns 1; 0 outside the list.
  int set_view(int i, const igs404View& view) { return igs_set_element(m_views.elements(), i, view); }
  /// Replaces the whole list of views.
  void set_views(std::vector<igs404View> views);
  /// Where the view that was at `original` at the last check is now; -1 when it was taken out or never existed.
  int get_current_view_index(int original) const { return m_views.current_index(original); }
  /// Takes the null views out, the others keeping their order, and notes where they went. `original`: the position, at
  /// the last check, of one that was null. A thousand calls for one list cost no more than one.
  void drop_null_views(int original);

  void check_pd() const override;
  void visit_pointers(igsPointerVisitor& visitor) override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    auto& views = entity.m_views.elements();
    const int number_of_views = visit.count("NumberOfViews", views.size());
    if (entity.has_turned_views()) {
      visit.list("Views", number_of_views, views, igsBadCount<igs404BadNumViews>());
    } else {
      std::vector<UprightView> upright(views.begin(), views.end());
      visit.list("Views", number_of_views, upright, igsBadCount<igs404BadNumViews>());
      if constexpr (!std::is_const_v<E>) views.assign(upright.begin(), upright.end());
    }
    const int count = visit.count("NumberOfEntities", entity.entities().size());
    entity_list(entity, visit, count, igsBadCount<igs404BadNumEntities>());
  }

 private:
  /// As form 0 has it, without an angle.
  class UprightView : public igs404View {
   public:
    UprightView() = default;
    explicit UprightView(const igs404View& view) : igs404View(view) {}

    template <class E, class V>
    static void fields(E& view, V& visit) {
      place_fields(view, visit);
    }
  };
  bool has_turned_views() const;

  mutable igsIndexedList<igs404View> m_views;  // a check, which is const, starts the index list anew
};
