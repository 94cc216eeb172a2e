#pragma once

#include <cstddef>
#include <vector>

// Access to the lists of entities by position, as hosts see it: 0-based, and any int may be asked for. Of references to
// entities, copies count as references, too: what is returned by reference should be kept as one.

template <class Element, class Memory>
bool igs_is_position(const std::vector<Element, Memory>& list, int i) {
  return i >= 0 && static_cast<std::size_t>(i) < list.size();
}

/// Element `i`, good until the list is changed; a default-made one outside the list.
template <class Element, class Memory>
const Element& igs_element(const std::vector<Element, Memory>& list, int i) {
  static const Element none{};
  return igs_is_position(list, i) ? list[static_cast<std::size_t>(i)] : none;
}

/// Gives element `i` and returns 1; returns 0 and leaves `element` alone outside the list.
template <class Element, class Memory>
int igs_get_element(const std::vector<Element, Memory>& list, int i, Element& element) {
  if (!igs_is_position(list, i)) return 0;
  element = list[static_cast<std::size_t>(i)];
  return 1;
}

/// Stores element `i` and returns 1; 0 outside the list.
template <class Element, class Memory>
int igs_set_element(std::vector<Element, Memory>& list, int i, const Element& element) {
  if (!igs_is_position(list, i)) return 0;
  list[static_cast<std::size_t>(i)] = element;
  return 1;
}

/// The place of element `i`, good until the list is changed; null outside the list.
template <class Element, class Memory>
Element* igs_place(std::vector<Element, Memory>& list, int i) {
  return igs_is_position(list, i) ? &list[static_cast<std::size_t>(i)] : nullptr;
}

/// Cuts the list, or lengthens it by default-made elements, and returns 1; 0 for a negative size.
template <class Element, class Memory>
int igs_resize(std::vector<Element, Memory>& list, int size) {
  if (size < 0) return 0;
  list.resize(static_cast<std::size_t>(size));
  return 1;
}
