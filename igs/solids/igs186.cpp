#include "igs/solids/igs186.h"

#include "igs/curves/private/igsGeometryChecks.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/solids/igs186_errors.h"
#include "igs/solids/igs514.h"

namespace {
using OuterShellTest =
    igsReferenceTest<igs186OuterShellNullShell, igs186OuterShellWrongShellType, igs186OuterShellInvalidShell>;
using InnerShellTest =
    igsReferenceTest<igs186InnerShellNullShell, igs186InnerShellWrongShellType, igs186InnerShellInvalidShell>;
}  // namespace

bool igsOrientedShell::valid() const { return m_shell && igs_is_flag(m_orientation); }

void igsOrientedShell::print_pd_data(utOstream& os) const {
  igsFieldPrinter printer(os);
  fields(*this, printer);
}

igs186::igs186() { set_directory_entry_type(igsEntity186, 0); }

void igs186::check_pd() const {
  OuterShellTest::check(*this, m_outer_shell.shell(), igsExactly<igs514>());
  if (!igs_is_flag(m_outer_shell.orientation())) tag<igs186OuterShellInvalidOrientation>();
  for (int i = 0; const igsOrientedShell& shell : m_void_shells) {
    InnerShellTest::check(*this, shell.shell(), igsExactly<igs514>(), i);
    if (!igs_is_flag(shell.orientation())) tag<igs186InnerShellInvalidOrientation>(i);
    ++i;
  }
}

void igs186::check_de() const { directory_entry().shape_check(false); }
