#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

/// Makes room for one more element, so that the next push_back cannot fail. Grows as push_back does.
template <class T>
void make_room(std::vector<T>& list) {
  constexpr std::size_t least = 4;
  if (list.size() == list.capacity()) list.reserve(std::max(least, 2 * list.size()));
}
