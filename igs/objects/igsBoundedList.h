#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "igs/input/igsInStream.h"

/// Names the error class, constructed from the count, that an entity is tagged with when a list's count is unusable.
template <class Error>
struct igsBadCount {};

/// A count in a file is believed up to this many elements, whatever the record supplies ...
inline constexpr std::int64_t always_believed_count = 256;
/// ... and beyond it up to this many times the elements that the record supplies; in both cases as long as the file as
/// a whole is granted the elements that are missing (igsInStream::grant_missing).
inline constexpr std::int64_t believed_per_supplied = 4;

/// Makes `list` hold `count` elements. `read(element)` reads the next element from `in` into its argument, or returns
/// false where the record has ended; the elements that are then missing stay `unset`. Returns 1; returns 0, the list
/// empty, for a count that is negative or cannot be believed. Memory follows what the record supplies, not the count.
template <class Element, class Read>
int igs_read_bounded(igsInStream& in, std::int64_t count, std::vector<Element>& list, Read read,
                     const Element& unset = Element()) {
  list.clear();
  if (count > 0) list.reserve(static_cast<std::size_t>(std::min(count, always_believed_count)));
  for (std::int64_t supplied = 0; supplied < count; ++supplied) {
    Element element = unset;
    if (!read(element)) break;
    list.push_back(std::move(element));
  }
  const auto supplied = static_cast<std::int64_t>(list.size());
  const std::int64_t believed = std::max(always_believed_count, believed_per_supplied * supplied);
  if (count < 0 || count > believed || in.grant_missing(count - supplied) == 0) {
    list = std::vector<Element>();  // `= {}` would keep the memory
    return 0;
  }
  list.resize(static_cast<std::size_t>(count), unset);
  return 1;
}
