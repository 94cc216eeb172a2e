#pragma once

#include <cstddef>
#include <vector>

#include "igs/objects/igsInFileMemory.h"

/// Gives lists memory beside that of the entities whose they are.
template <class Element>
struct igsListMemory {
  using value_type = Element;  ///< as containers ask for it

  igsListMemory() = default;
  /// All are alike.
  template <class Other>
  igsListMemory(const igsListMemory<Other>&) {}  // NOLINT(google-explicit-constructor): allocators are converted

  /// Memory for `count` elements in a row; std::bad_alloc where there is none.
  Element* allocate(std::size_t count) {
    return static_cast<Element*>(igsInFileMemory::operator new(count * sizeof(Element)));
  }
  /// `memory`: of allocate(count).
  void deallocate(Element* memory, std::size_t count) noexcept {
    igsInFileMemory::operator delete(memory, count * sizeof(Element));
  }
  /// True: what one has allocated any other takes back.
  bool operator==(const igsListMemory&) const { return true; }
};

/// A list that most entities of a kind have, and that is mostly short.
template <class Element>
using igsList = std::vector<Element, igsListMemory<Element>>;
