#pragma once

#include <vector>

#include "igs/objects/igsObjectPtr.h"
#include "igs/support/export.h"

class utOstream;

/// A shell (igs514) as a solid uses it: with the direction of its faces (orientation 1) or against it (0).
class IGS_API igsOrientedShell {
 public:
  igsOrientedShell() = default;
  igsOrientedShell(const igsObjectPtr& shell, int orientation) : m_shell(shell), m_orientation(orientation) {}

  const igsObjectPtr& shell() const { return m_shell; }
  void set_shell(const igsObjectPtr& shell) { m_shell = shell; }
  int orientation() const { return m_orientation; }
  void set_orientation(int orientation) { m_orientation = orientation; }

  /// There is a shell, and the orientation is 0 or 1.
  bool valid() const;
  void become(const igsOrientedShell& other) { *this = other; }
  void print_pd_data(utOstream& os) const;

  template <class E, class V>
  static void fields(E& shell, V& visit) {
    visit("Shell", shell.m_shell);
    visit("Orientation", shell.m_orientation);
  }

 private:
  [[no_unique_address]] igsObjectPtr m_shell;
  int m_orientation = 0;
};

using igsOrientedShellcoDynArr = std::vector<igsOrientedShell>;
