#pragma once

#include <vector>

#include "igs/objects/igsListAccess.h"

/// Gives element `i` (0-based) and returns 1; returns 0 and leaves `element` alone outside the list.
template <class Element>
int igs_get_element(const std::vector<Element>& list, int i, Element& element) {
  if (!igs_is_position(list, i)) return 0;
  element = list[static_cast<std::size_t>(i)];
  return 1;
}
