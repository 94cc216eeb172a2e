#include "igs/errors/igsFixNode.h"

void igsFixNode::depends_on(const igsFixNode* node) {
  if (node != nullptr && (m_children.empty() || m_children.back() != node)) m_children.push_back(node);
}

void igsFixNode::accept_traveller(igsTraveller& traveller) const {
  struct Step {
    const igsFixNode* node;
    std::size_t next_child;
  };
  std::vector<Step> path;
  const auto enter = [&](const igsFixNode& node) {
    if (node.m_on_path || traveller.distance_travelled() + 1 <= node.m_distance) return;
    path.push_back({&node, 0});
    traveller.enters();
    node.m_distance = traveller.distance_travelled();
    node.m_on_path = true;
  };
  enter(*this);
  while (!path.empty()) {
    Step& step = path.back();
    if (traveller.goes_on() && step.next_child < step.node->m_children.size()) {
      enter(*step.node->m_children[step.next_child++]);
    } else {
      step.node->m_on_path = false;
      path.pop_back();
      traveller.exits();
    }
  }
}
