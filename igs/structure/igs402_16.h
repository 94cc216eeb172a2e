#pragma once

#include <vector>

#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/structure/igsGroup.h"

using igs402_16BadNumEntities = igsCountErrors<"igs402_16", "Entities">::BadNum;
using igs402_16BadNumTransforms = igsCountErrors<"igs402_16", "Transforms">::BadNum;

/// Planar Associativity (IGES 5.3, type 402 form 16): a group of entities that lie in one plane, the XY plane of the
/// space that a matrix (igs124) maps to model space.
class IGS_API igs402_16 : public igsEntity<igs402_16, "igs402_16", igsGroup> {
 public:
  /// One transform, the identity.
  igs402_16();

  /// As it stands in the file; 1 in a sound entity.
  int number_of_transforms() const { return static_cast<int>(m_matrices.size()); }
  /// Cuts the list of matrices, or lengthens it by null ones, and returns 1; 0 for a negative number.
  int set_number_of_transforms(int number) { return igs_resize(m_matrices, number); }
  /// Null for the identity. Good until the number of transforms changes.
  const igsObjectPtr& matrix() const { return igs_element(m_matrices, 0); }
  /// Stores the matrix and returns 1; 0 while the number of transforms is 0.
  int set_matrix(const igsObjectPtr& matrix) { return igs_set_element(m_matrices, 0, matrix); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    const int transforms = visit.count("NumberOfTransforms", entity.m_matrices.size());
    const int count = visit.count("NumberOfEntities", entity.entities().size());
    if (transforms == 1 && entity.m_matrices.size() == 1) {
      visit("Matrix", entity.m_matrices.front());
    } else {
      visit.list("Matrices", transforms, entity.m_matrices, igsBadCount<igs402_16BadNumTransforms>());
    }
    entity_list(entity, visit, count, igsBadCount<igs402_16BadNumEntities>());
  }

 private:
  std::vector<igsObjectPtr> m_matrices;
};
