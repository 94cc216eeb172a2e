#pragma once

#include <unordered_set>
#include <vector>

#include "igs/objects/igsObject.h"
#include "igs/support/undefined.h"

using igsObjectPtrcoDynArr = std::vector<igsObjectPtr>;

/// Base of the entities whose parameter data are a list of other entities: subfigure definitions, groups, drawings. All
/// positions are 0-based. The index list remembers where each original member went when repairs dropped some.
class IGS_API igsCompound : public igsTyped<igsCompound, "igsCompound", igsObject> {
 public:
  /// -2147483647 until a count was set, to tell an entity whose count was never read from an empty one.
  int number_of_entities() const { return m_number_of_entities; }
  /// Stores the count and, when it is not negative, replaces the list by that many null pointers.
  void set_number_of_entities(int count);
  /// Member `position`; null outside the list.
  igsObjectPtr get_entity(int position) const;
  /// Stores member `position` and returns 1; 0 outside the list.
  int set_entity(int position, const igsObjectPtr& entity);
  /// Replaces the whole list.
  void set_entities(igsObjectPtrcoDynArr entities);

  /// Starts the index list anew: every member at its own position, as is also taken for granted before the first call.
  /// Does nothing while the count is unset.
  void set_index_list();
  /// Notes that original position `original` is now at `value` (-1: dropped).
  void set_index(int original, int value);
  /// Where original position `original` is now; -1 when it was dropped or never existed.
  int get_current_index(int original) const;
  /// The first original position that is now at `value`, or -1.
  int get_original_index(int value) const;

  /// Replaces every group among the members, nested ones too, by its own members, in order. A group that contains
  /// itself gives its members once.
  void flatten_groups();
  /// Number of curves on a surface among the members, those in groups and in the subfigures of singular instances too.
  int count_142() const;

  void visit_pointers(igsPointerVisitor& visitor) override;

 protected:
  igsCompound() = default;
  /// Number of members, 0 while the count is unset.
  int size() const { return static_cast<int>(m_entities.size()); }

 private:
  void replace_groups(const std::unordered_set<const igsCompound*>& flattened);

  int m_number_of_entities = unset_int;
  igsObjectPtrcoDynArr m_entities;
  std::vector<int> m_index_list;
};
