#include "igs/structure/private/igsViewNumbers.h"

#include <algorithm>
#include <climits>
#include <new>
#include <unordered_set>

#include "igs/objects/igsObjectManager.h"
#include "igs/structure/igs410_0.h"
#include "igs/structure/igs410_0_errors.h"

namespace {
/// Numbers that no view has: those above the largest, and when these are used up the lowest ones.
class FreeNumbers {
 public:
  explicit FreeNumbers(const std::vector<const igs410_0*>& views) {
    for (const igs410_0* const view : views) m_used.insert(view->view_number());
    for (const int number : m_used) m_largest = std::max(m_largest, number);
  }
  int take() {
    if (m_largest < INT_MAX) return ++m_largest;
    while (m_used.contains(m_lowest)) ++m_lowest;
    return m_lowest++;
  }

 private:
  std::unordered_set<int> m_used;
  int m_largest = 0;
  int m_lowest = 1;
};
}  // namespace

void igs_note_view(const igsObject& entity, std::vector<const igs410_0*>& views) {
  if (entity.isa(igs410_0::type())) views.push_back(static_cast<const igs410_0*>(&entity));
}

std::vector<igsViewNumberFault> igs_view_number_faults(const std::vector<const igs410_0*>& views) {
  FreeNumbers free_numbers(views);
  std::unordered_set<int> seen;
  std::vector<igsViewNumberFault> faults;
  for (const igs410_0* const view : views) {
    const int number = view->view_number();
    if (number == igs_unset_int) {
      faults.push_back({view, igsViewNumberFault::none_defined, free_numbers.take()});
    } else if (number < 0) {
      faults.push_back({view, igsViewNumberFault::invalid, free_numbers.take()});
    } else if (!seen.insert(number).second) {
      faults.push_back({view, igsViewNumberFault::repeated, free_numbers.take()});
    }
  }
  return faults;
}

namespace {
igsObjectError* error_of(const igsViewNumberFault& fault) {
  switch (fault.kind) {
    case igsViewNumberFault::none_defined:
      return new (std::nothrow) igs410_0NoViewNumberDefined(fault.replacement);
    case igsViewNumberFault::invalid:
      return new (std::nothrow) igs410_0InvalidViewNumber(fault.replacement);
    case igsViewNumberFault::repeated:
      return new (std::nothrow) igs410_0RepeatedView(fault.replacement);
  }
  return nullptr;
}
}  // namespace

void igs_tag_view_numbers(const std::vector<igsViewNumberFault>& faults) {
  for (const igsViewNumberFault& fault : faults) {
    fault.view->tag_error(error_of(fault));
    fault.view->manager()->set_validated(0);
  }
}
