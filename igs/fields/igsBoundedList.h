#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

#include "igs/input/igsInStream.h"

/// Names the error class, constructed from the count, that an entity is tagged with when a list's count is unusable.
template <class Error>
struct igsBadCount {
  /// The count that the record gives, where the list has another number of elements.
  std::optional<int> in_record = {};
};

/// A count in a file is believed up to this many elements, whatever the record supplies ...
inline constexpr std::int64_t igs_always_believed_count = 256;
/// ... and beyond it up to this many times the elements that the record supplies; in both cases as long as the file as
/// a whole is granted the elements that are missing (igsInStream::grant_missing).
inline constexpr std::int64_t igs_believed_per_supplied = 4;

/// What a record has for an element of a list.
enum class igsSupply {
  ended,  ///< nothing: the record has ended
  empty,  ///< fields of which none holds a value
  given
};

/// As how many elements one counts: a group of reals, whose class gives their number as `size`, as that many.
template <class Element>
constexpr std::int64_t igs_weight_of_element() {
  if constexpr (requires { Element::size > 1; }) {
    return Element::size;
  } else {
    return 1;
  }
}

/// Where an element costs little more than its fields have taken in the file, empty ones are not paid for.
template <class Element>
inline constexpr bool igs_is_cheap_element = std::is_arithmetic_v<Element> ||
                                             std::is_constructible_v<Element, double, double> ||
                                             std::is_constructible_v<Element, double, double, double> ||
                                             igs_weight_of_element<Element>() != 1;

/// Makes `list` hold `count` elements. `read(element)` reads the next element from `in` into its argument; where the
/// record has ended, the elements that are then missing stay `unset`. Returns 1; returns 0, the list empty, for a count
/// that is negative or cannot be believed. Elements whose fields are all empty are not supplied. Memory follows what
/// the record has, not the count.
template <class Element, class Memory, class Read>
int igs_read_bounded(igsInStream& in, std::int64_t count, std::vector<Element, Memory>& list, Read read,
                     const Element& unset = Element()) {
  constexpr std::int64_t weight = igs_weight_of_element<Element>();
  list.clear();
  if (count > 0) list.reserve(static_cast<std::size_t>(std::min(count, igs_always_believed_count / weight)));
  std::int64_t supplied = 0;
  for (std::int64_t i = 0; i < count; ++i) {
    Element element = unset;
    const igsSupply supply = read(element);
    if (supply == igsSupply::ended) break;
    if (supply == igsSupply::given) ++supplied;
    list.push_back(std::move(element));
  }
  const std::int64_t believed = std::max(igs_always_believed_count / weight, igs_believed_per_supplied * supplied);
  const std::int64_t paid = igs_is_cheap_element<Element> ? static_cast<std::int64_t>(list.size()) : supplied;
  if (count < 0 || count > believed || in.grant_missing((count - paid) * weight) == 0) {
    list = std::vector<Element, Memory>();  // `= {}` would keep the memory
    return 0;
  }
  list.resize(static_cast<std::size_t>(count), unset);
  if constexpr (std::is_trivially_copyable_v<Element>) list.shrink_to_fit();
  return 1;
}
