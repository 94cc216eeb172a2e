#pragma once

#include <cstddef>
#include <deque>
#include <unordered_map>
#include <vector>

#include "igs/errors/igsFixNode.h"

class igsIndexedSectionLog;

/// Which entities have errors, which entities those depend on, and in what order they are to be repaired. Private to
/// the fixer.
class igsFixGraph {
 public:
  /// Slots in the object log, one after the other.
  struct Run {
    int first, last;
  };
  struct Entity {
    igsFixNode node;
    std::vector<Run> errors;  ///< where they are; each is looked up again when its turn comes

    void add_error(int slot);
  };

  explicit igsFixGraph(const igsIndexedSectionLog& log);

  /// The node of the entity with this DE number; null for an entity without errors that none concern.
  const igsFixNode* node(int de) const;
  /// Finds the distances.
  void schedule();
  /// The entities by falling distance, in order of first mention within a level; without those of distance 0.
  std::vector<const Entity*> order() const;

 private:
  Entity& entity(int de);
  bool order_depth_first(std::vector<const igsFixNode*>& finished) const;
  void note_longest_paths(const std::vector<const igsFixNode*>& finished) const;
  bool walk_cycles() const;

  std::unordered_map<int, Entity*> m_entity_of_de;
  std::deque<Entity> m_entities;  ///< in order of first mention
};
