#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "diff/reals.h"
#include "diff/references.h"

/// What two entities have in common when their hashes of this kind are equal, from little to much.
enum class Likeness : std::size_t {
  parameters,  ///< the type and the parameters that are no references
  own,         ///< and the attributes that are no references
  below,       ///< and the entities that they refer to, and so on for a while
  around       ///< and the entities that refer to them, and so on for a while
};

/// The entities of a file with their references, and how much each is like others.
class EntityGraph : public ReferenceGraph {
 public:
  EntityGraph(const igsFile& file, const RealRule& reals);

  std::uint64_t hash(Likeness likeness, Node node) const { return hashes(likeness)[node]; }

 private:
  using Hashes = std::vector<std::uint64_t>;

  Hashes& hashes(Likeness likeness) { return m_hashes[static_cast<std::size_t>(likeness)]; }
  const Hashes& hashes(Likeness likeness) const { return m_hashes[static_cast<std::size_t>(likeness)]; }
  void read_fields(const RealRule& reals, const igsObject& entity, Targets& targets);
  void refine();
  std::uint64_t hash_of_references(const Hashes& hashes, Node node) const;
  std::uint64_t hash_of_referrers(const Hashes& hashes, Node node) const;

  std::array<Hashes, 4> m_hashes;
};
