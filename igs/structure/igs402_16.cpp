#include "igs/structure/igs402_16.h"

#include "igs/curves/igs124.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/structure/igs402_16_errors.h"
#include "igs/structure/igsGroup_errors.h"

namespace {
using MatrixTest = igsReferenceTest<igsNullIsLegal, igs402_16WrongMatrixType, igs402_16InvalidMatrix>;
}  // namespace

igs402_16::igs402_16() : m_matrices(1) { set_directory_entry_type(igsEntity402, 16); }

void igs402_16::check_pd() const {
  if (number_of_transforms() != 1) tag<igs402_16InvalidNumberOfTransforms>(number_of_transforms());
  MatrixTest::check(*this, matrix(), igsKindOf<igs124>());
  igsGroup::check_pd();
}
