#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "igs/support/export.h"

/// A walk along the dependencies between igsFixNodes: how deep it is, and how far it may still go.
class IGS_API igsTraveller {
 public:
  /// A walk of at most so many steps, each of them forward or back: in a graph with cycles it could take very long.
  explicit igsTraveller(std::size_t steps = SIZE_MAX) : m_steps_left(steps) {}

  /// How many nodes are entered and not left again.
  int distance_travelled() const { return m_distance; }
  /// One deeper, and one less deep.
  void enters() { ++m_distance; }
  /// Undoes enters().
  void exits() { --m_distance; }
  /// Takes one of the steps; false when none is left.
  bool goes_on() { return m_steps_left != 0 && --m_steps_left != 0; }
  std::size_t steps_left() const { return m_steps_left; }

 private:
  int m_distance = 0;
  std::size_t m_steps_left;
};

/// An entity with errors, or one that such errors concern, while the fixer finds out in what order to repair.
class IGS_API igsFixNode {
 public:
  /// `node`, which must outlive this one, is to be repaired before. Does not tell it that it is used.
  void depends_on(const igsFixNode* node);
  /// Some node depends on this one.
  void used() { m_used = true; }
  int is_used() const { return m_used ? 1 : 0; }
  /// Number of nodes that this one depends on.
  int num_children() const { return static_cast<int>(m_children.size()); }
  /// Length of the longest path without cycles that led here, counted in nodes from a node that nothing depends on, so
  /// that this has 1; 0 while none did. The greater it is, the earlier is the repair.
  int distance() const { return m_distance; }

  /// Walks from here to every node that the walk reaches on a longer path than any before, and notes the distance
  /// there. A node on the current path is passed over. Needs no more stack for long paths.
  void accept_traveller(igsTraveller& traveller) const;

 private:
  friend class igsFixGraph;

  std::vector<const igsFixNode*> m_children;
  std::size_t m_number = 0;  ///< in its graph
  bool m_used = false;
  // What walks note.
  mutable bool m_on_path = false;
  mutable int m_distance = 0;
};
