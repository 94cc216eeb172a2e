#pragma once

#include <cstdint>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsReferenceList.h"
#include "igs/objects/igsObject.h"
#include "igs/support/undefined.h"

class igsFieldReader;

using igsObjectPtrcoDynArr = std::vector<igsObjectPtr>;

/// Base of the entities whose parameter data are a list of other entities: subfigure definitions, groups, drawings. All
/// positions are 0-based. The index list remembers where each original member went when repairs dropped some.
class IGS_API igsCompound : public igsTyped<igsCompound, "igsCompound", igsObject> {
 public:
  /// -2147483647 until a count was set, to tell an entity whose count was never read from an empty one.
  int number_of_entities() const { return m_number_of_entities; }
  /// Stores the count and, when it is not negative, replaces the list by that many null pointers.
  void set_number_of_entities(int count);
  /// Member `position`, good until the list is changed; null outside the list.
  const igsObjectPtr& get_entity(int position) const;
  /// Stores member `position` and returns 1; 0 outside the list.
  int set_entity(int position, const igsObjectPtr& entity);
  /// The members in their present order.
  const igsObjectPtrcoDynArr& entities() const { return std::as_const(m_entities).elements(); }
  /// Replaces the whole list.
  void set_entities(igsObjectPtrcoDynArr entities);
  /// Takes the null members out, the others keeping their order, and notes where they went. `original`: the original
  /// position of one that was null. A thousand calls for one list cost no more than one.
  void drop_null_entities(int original);

  /// Starts the index list anew: every member at its own position, as is also taken for granted before the first call.
  /// Does nothing while the count is unset.
  void set_index_list();
  /// Notes that original position `original` is now at `value` (-1: dropped).
  void set_index(int original, int value);
  /// Where original position `original` is now; -1 when it was dropped or never existed.
  int get_current_index(int original) const;
  /// The first original position that is now at `value`, or -1.
  int get_original_index(int value) const;

  /// Replaces every group among the members by its own members, in order, after the same has been done to that group. A
  /// group that contains itself gives its members once. Groups within groups can make lists without end from a small
  /// file: once the lists together would grow by more than flattened_per_entity members for each entity of the file
  /// (and by more than always_flattened), a group too many stays what it is, a member, and nothing is lost.
  void flatten_groups();
  /// The limits of flatten_groups and explode_solids.
  static constexpr std::int64_t flattened_per_entity = 16;
  static constexpr std::int64_t always_flattened = 10'000;
  /// Number of curves on a surface (igs142) among the members, and among those of groups and of the subfigures of
  /// singular instances (igs408), however deeply nested. Each group and subfigure is looked into once; subfigures that
  /// are members themselves, and other compounds, are not.
  int count_142() const;
  /// Replaces every solid (igs186) and shell (igs514) among the members by the faces of its shells, in order, those of
  /// voids too. A list may name one shell again and again: the first solid or shell with which the shells and faces
  /// together would be more than flatten_groups allows stays a member, and so do those after it.
  void explode_solids();
  /// Appends the faces of a shell (igs514) to `list`, null ones not; nothing for anything else. Every igs510 among them
  /// is told the orientation that the shell gives it, and `solid_de`, the DE number of its solid or 0.
  static void add_514_faces(const igsObjectPtr& shell, igsObjectPtrcoDynArr& list, int solid_de);

  void visit_pointers(igsPointerVisitor& visitor) override;

 protected:
  igsCompound() = default;
  /// Number of members, 0 while the count is unset.
  int size() const { return static_cast<int>(entities().size()); }
  /// As set_index_list(), for checks.
  void restart_index() const { m_entities.restart_index(); }
  /// The field "Entities", the list of the members, for the `fields` of the derived class `E`; `count`: their number.
  template <class E, class V, class Error>
  static void entity_list(E& entity, V& visit, int count, igsBadCount<Error> bad_count) {
    visit.list("Entities", count, entity.igsCompound::m_entities.elements(), bad_count);
    if constexpr (std::is_same_v<V, igsFieldReader>) entity.igsCompound::m_number_of_entities = entity.size();
  }

 private:
  std::int64_t growth_limit() const;
  void replace_groups(const std::unordered_set<const igsCompound*>& flattened, std::int64_t& members_left);

  int m_number_of_entities = igs_unset_int;
  mutable igsReferenceList m_entities;  // a check, which is const, starts the index list anew
};
