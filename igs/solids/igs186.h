#pragma once

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsSolid.h"
#include "igs/solids/igsOrientedShell.h"

using igs186BadNumInnerShells = igsCountErrors<"igs186", "InnerShells">::BadNum;

/// Manifold Solid B-Rep Object (IGES 5.3, type 186): a solid by its outer shell and the shells of the voids in it.
/// Positions are 0-based.
class IGS_API igs186 : public igsEntity<igs186, "igs186", igsSolid> {
 public:
  igs186();

  const igsOrientedShell& outer_shell() const { return m_outer_shell; }
  void set_outer_shell(const igsOrientedShell& shell) { m_outer_shell = shell; }

  int number_of_void_shells() const { return static_cast<int>(m_void_shells.size()); }
  /// Cuts the list of void shells, or lengthens it by null shells, and returns 1; 0 for a negative size.
  int set_size(int size) { return igs_resize(m_void_shells, size); }
  /// The whole list, which may be changed in place.
  const igsOrientedShellcoDynArr& void_shells() const { return m_void_shells; }
  igsOrientedShellcoDynArr& void_shells() { return m_void_shells; }
  /// Good until the size of the list changes; a null shell outside it.
  const igsOrientedShell& void_shell(int i) const { return igs_element(m_void_shells, i); }
  /// Stores void shell `i` and returns 1; 0 outside the list.
  int set_void_shell(int i, const igsOrientedShell& shell) { return igs_set_element(m_void_shells, i, shell); }

  void check_pd() const override;
  /// A solid is geometry of the model: its use flag may be neither 2D parametric nor a logical reference.
  void check_de() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("OuterShell", entity.m_outer_shell);
    const int count = visit.count("NumberOfVoidShells", entity.m_void_shells.size());
    visit.list("VoidShells", count, entity.m_void_shells, igsBadCount<igs186BadNumInnerShells>());
  }

 private:
  igsOrientedShell m_outer_shell;
  igsOrientedShellcoDynArr m_void_shells;
};
