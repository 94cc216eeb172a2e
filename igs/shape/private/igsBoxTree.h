#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "igs/shape/igsVec.h"

/// Finds boxes among many. Boxes that follow each other should be neighbours, as those along a curve are. Positions are
/// 0-based, in the list given. The depth is the logarithm of their number.
class igsBoxTree {
 public:
  igsBoxTree() = default;
  explicit igsBoxTree(const std::vector<igsBox>& boxes) {
    while (m_first_leaf < boxes.size()) m_first_leaf *= 2;
    m_nodes.resize(2 * m_first_leaf);
    std::copy(boxes.begin(), boxes.end(), m_nodes.begin() + static_cast<std::ptrdiff_t>(m_first_leaf));
    for (std::size_t i = m_first_leaf; i-- > 1;) {
      m_nodes[i] = m_nodes[2 * i];
      m_nodes[i].add(m_nodes[2 * i + 1]);
    }
  }

  /// Calls `visit` with the positions of boxes nearer to the point than `bound`, near ones first as a rule; it returns
  /// the bound from then on.
  template <class Visit>
  void visit_near(const igsVec3& point, double bound, Visit visit) const {
    if (!m_nodes.empty()) visit_near(1, point, bound, visit);
  }
  /// Calls `visit` with the positions of the boxes that `meets`, a test of a box, lets pass.
  template <class Meets, class Visit>
  void visit_if(Meets meets, Visit visit) const {
    if (!m_nodes.empty()) visit_if(1, meets, visit);
  }
  /// Calls `visit` with pairs of boxes that meet, the first of this tree, the second of the other, which may be this
  /// one: each pair comes once then. False when `steps`, which are counted down, ended it.
  template <class Visit>
  bool visit_pairs(const igsBoxTree& other, std::size_t& steps, Visit visit) const {
    return m_nodes.empty() || other.m_nodes.empty() || visit_pairs(1, other, 1, steps, visit);
  }

 private:
  bool is_leaf(std::size_t node) const { return node >= m_first_leaf; }

  static double distance(const igsBox& box, const igsVec3& p) {
    const igsVec3 away{std::max({box.low.x - p.x, 0.0, p.x - box.high.x}),
                       std::max({box.low.y - p.y, 0.0, p.y - box.high.y}),
                       std::max({box.low.z - p.z, 0.0, p.z - box.high.z})};
    return std::sqrt(away.dot(away));
  }
  static bool meet(const igsBox& a, const igsBox& b) {
    return a.low.x <= b.high.x && b.low.x <= a.high.x && a.low.y <= b.high.y && b.low.y <= a.high.y &&
           a.low.z <= b.high.z && b.low.z <= a.high.z;
  }

  template <class Visit>
  void visit_near(std::size_t node, const igsVec3& point, double& bound, Visit& visit) const {
    if (is_leaf(node)) {
      bound = visit(node - m_first_leaf);
      return;
    }
    std::pair<double, std::size_t> children[2];
    for (std::size_t i = 0; i < 2; ++i) {
      children[i] = {m_nodes[2 * node + i].is_empty() ? bound : distance(m_nodes[2 * node + i], point), 2 * node + i};
    }
    if (children[1] < children[0]) std::swap(children[0], children[1]);
    for (const auto& [gap, child] : children) {
      if (gap < bound) visit_near(child, point, bound, visit);
    }
  }

  template <class Meets, class Visit>
  void visit_if(std::size_t node, Meets& meets, Visit& visit) const {
    if (m_nodes[node].is_empty() || !meets(m_nodes[node])) return;
    if (is_leaf(node)) return visit(node - m_first_leaf);
    visit_if(2 * node, meets, visit);
    visit_if(2 * node + 1, meets, visit);
  }

  template <class Visit>
  bool visit_pairs(std::size_t node, const igsBoxTree& other, std::size_t other_node, std::size_t& steps,
                   Visit& visit) const {
    if (steps == 0) return false;
    --steps;
    const bool is_same = this == &other && node == other_node;
    if (!meet(m_nodes[node], other.m_nodes[other_node])) return true;
    if (is_leaf(node) && other.is_leaf(other_node)) {
      if (!is_same) visit(node - m_first_leaf, other_node - other.m_first_leaf);
      return true;
    }
    const auto below = [&](std::size_t a, std::size_t b) { return visit_pairs(a, other, b, steps, visit); };
    if (is_same) return below(2 * node, 2 * node) && below(2 * node, 2 * node + 1) && below(2 * node + 1, 2 * node + 1);
    if (is_leaf(node)) return below(node, 2 * other_node) && below(node, 2 * other_node + 1);
    if (other.is_leaf(other_node)) return below(2 * node, other_node) && below(2 * node + 1, other_node);
    return below(2 * node, 2 * other_node) && below(2 * node, 2 * other_node + 1) &&
           below(2 * node + 1, 2 * other_node) && below(2 * node + 1, 2 * other_node + 1);
  }

  std::size_t m_first_leaf = 1;
  std::vector<igsBox> m_nodes;  ///< node i has the children 2i and 2i + 1; the root is 1
};
