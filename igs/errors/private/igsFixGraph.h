#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

class igsIndexedSectionLog;

/// Which entities have errors, which entities those depend on, and in what order they are to be repaired. Private to
/// the fixer. Nodes are indices into `nodes()`, in order of first mention.
class igsFixGraph {
 public:
  /// Slots in the object log, one after the other.
  struct Run {
    int first, last;
  };
  struct Node {
    int used = 0;  ///< some other node depends on this one
    int distance =
        0;  ///< longest cycle-free path from a node that nothing depends on, which itself has 1; 0: unreachable
    std::vector<int> dependencies;
    std::vector<Run> errors;  ///< where they are; each is looked up again when its turn comes

    void add_error(int slot);
  };

  explicit igsFixGraph(const igsIndexedSectionLog& log);

  std::vector<Node>& nodes() { return m_nodes; }
  /// Node numbers by falling distance, in order of first mention within a level; without those of distance 0.
  std::vector<int> schedule();

 private:
  int node(int de);
  bool order_depth_first(std::vector<int>& finished) const;
  std::vector<int> longest_paths(const std::vector<int>& finished) const;
  bool walk_cycles();
  bool walk_from(int root, std::vector<char>& on_path, std::size_t& steps_left);

  std::unordered_map<int, int> m_node_of_de;
  std::vector<Node> m_nodes;
};
