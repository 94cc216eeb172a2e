#pragma once

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>
#include <vector>

/// A list that remembers where its original positions are while repairs take elements out, so that errors which name
/// elements by position stay true. All positions are 0-based. The original positions are those of the last call of
/// restart_index(). Elements may be taken out one by one in constant time: the list closes its gaps when it is next
/// looked at as a whole.
template <class Element>
class igsIndexedList {
 public:
  /// The elements in their present order.
  std::vector<Element>& elements() {
    close_gaps();
    m_purged = false;
    return m_elements;
  }
  const std::vector<Element>& elements() const {
    close_gaps();
    return m_elements;
  }

  /// Makes the present positions the original ones.
  void restart_index() {
    close_gaps();
    m_index.clear();
    m_purged = false;
  }
  /// Notes that original position `original` is now at `current` (-1: taken out).
  void set_index(int original, int current) {
    close_gaps();
    make_index();
    if (is_position(original, m_index)) m_index[position(original)] = current;
  }
  /// Where original position `original` is now; -1 when it was taken out or never existed.
  int current_index(int original) const {
    close_gaps();
    return place_of(original);
  }
  /// The first original position that is now at `current`; -1 when there is none.
  int original_index(int current) const {
    close_gaps();
    if (m_index.empty()) return place_of(current);
    const auto found = std::find(m_index.begin(), m_index.end(), current);
    return current < 0 || found == m_index.end() ? -1 : static_cast<int>(found - m_index.begin());
  }

  /// Number of original positions.
  int number_of_originals() const { return static_cast<int>(m_index.empty() ? m_elements.size() : m_index.size()); }

  /// The element whose original position is `original`; null when it was taken out or never existed.
  Element* at_original(int original) {
    m_purged = false;
    return element_of(original);
  }
  /// Hands that element to `change` and returns 1; 0 when there is none. For changes that make no difference to
  /// purge().
  template <class Change>
  int change_original(int original, Change change) {
    Element* const element = element_of(original);
    if (element == nullptr) return 0;
    change(*element);
    return 1;
  }
  /// Takes that element out and returns 1; 0 when there is none.
  int take_out(int original) {
    Element* const element = at_original(original);
    if (element == nullptr) return 0;
    *element = Element();
    make_index();
    m_gaps.push_back(m_index[position(original)]);
    m_index[position(original)] = -1;
    return 1;
  }
  /// For the repair of a fault at original position `original`: takes out every element that `keep` refuses, the others
  /// keep their order. When an earlier purge of an unchanged list has seen to that position, nothing is looked at
  /// again, so that a thousand faults in one list cost no more than one. A list is always purged with the same `keep`.
  template <class Keep>
  void purge(int original, Keep keep) {
    const Element* const own = element_of(original);
    if (m_purged && (own == nullptr || keep(*own))) return;
    close_gaps();
    close_up([this, &keep](std::size_t place) { return keep(std::as_const(m_elements[place])); });
    m_purged = true;
  }

 private:
  static std::size_t position(int number) { return static_cast<std::size_t>(number); }
  template <class List>
  static bool is_position(int number, const List& list) {
    return number >= 0 && position(number) < list.size();
  }

  // The place in m_elements, gaps counted.
  int place_of(int original) const {
    if (m_index.empty()) return is_position(original, m_elements) ? original : -1;
    return is_position(original, m_index) ? m_index[position(original)] : -1;
  }
  Element* element_of(int original) {
    const int place = place_of(original);
    return is_position(place, m_elements) ? &m_elements[position(place)] : nullptr;
  }
  void make_index() {
    if (!m_index.empty()) return;
    m_index.resize(m_elements.size());
    std::iota(m_index.begin(), m_index.end(), 0);
  }
  void close_gaps() const {
    if (m_gaps.empty()) return;
    std::vector<bool> is_gap(m_elements.size(), false);
    for (const int gap : m_gaps) is_gap[position(gap)] = true;
    close_up([&is_gap](std::size_t place) { return !is_gap[place]; });
    m_gaps = std::vector<int>();
  }
  // Takes out the elements whose places `keep` refuses. A list that loses most of them gives their memory back.
  // Whatever takes memory comes first.
  template <class Keep>
  void close_up(Keep keep) const {
    std::vector<int> new_place(m_elements.size());
    std::size_t size = 0;
    for (std::size_t i = 0; i < new_place.size(); ++i) new_place[i] = keep(i) ? static_cast<int>(size++) : -1;
    std::vector<Element> kept;
    const bool is_copied = size < m_elements.size() / 2;
    if (is_copied) kept.resize(size);
    std::vector<Element>& target = is_copied ? kept : m_elements;
    for (std::size_t i = 0; i < new_place.size(); ++i) {
      if (new_place[i] < 0 || (!is_copied && position(new_place[i]) == i)) continue;
      target[position(new_place[i])] = std::move(m_elements[i]);
    }
    is_copied ? m_elements.swap(kept) : m_elements.resize(size);
    if (m_index.empty()) {
      m_index.swap(new_place);
      return;
    }
    for (int& place : m_index) {
      if (is_position(place, new_place)) place = new_place[position(place)];
    }
  }

  // Closing the gaps changes nothing that can be seen from outside: it is done on reading, too.
  mutable std::vector<Element> m_elements;
  mutable std::vector<int> m_index;  ///< by original position: the place in m_elements; empty: all at their own
  mutable std::vector<int> m_gaps;   ///< places in m_elements
  bool m_purged = false;
};
