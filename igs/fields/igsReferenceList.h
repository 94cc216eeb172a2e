#pragma once

#include <utility>
#include <vector>

#include "igs/fields/igsIndexedList.h"
#include "igs/fields/igsListAccess.h"
#include "igs/objects/igsObjectPtr.h"

/// A list of references to other entities. Positions are 0-based.
class igsReferenceList : public igsIndexedList<igsObjectPtr> {
 public:
  /// Number of references, null ones too.
  int size() const { return static_cast<int>(elements().size()); }
  /// Reference `i`, good until the list is changed; a null pointer outside the list.
  const igsObjectPtr& get(int i) const { return igs_element(elements(), i); }
  /// Stores reference `i` and returns 1; 0 outside the list.
  int set(int i, const igsObjectPtr& reference) { return igs_set_element(elements(), i, reference); }
  /// Replaces the whole list.
  void assign(std::vector<igsObjectPtr> references) {
    elements() = std::move(references);
    restart_index();
  }
  /// The repair of a null pointer at original position `original`: takes all null pointers out, the others keep their
  /// order. A thousand calls for one list cost no more than one.
  void drop_nulls(int original) {
    purge(original, [](const igsObjectPtr& reference) { return reference.object() != nullptr; });
  }
};
