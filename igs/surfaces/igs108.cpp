#include "igs/surfaces/igs108.h"

#include <cmath>

#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsCurve.h"
#include "igs/support/coResourceTable.h"
#include "igs/surfaces/igs108_errors.h"

igs108::igs108() { set_directory_entry_type(igsEntity108, 0); }

void igs108::set_coefficients(double a, double b, double c, double d) {
  m_a = a;
  m_b = b;
  m_c = c;
  m_d = d;
}

void igs108::check_pd() const {
  if (igs_is_undefined_real(m_a) || igs_is_undefined_real(m_b) || igs_is_undefined_real(m_c) ||
      igs_is_undefined_real(m_d)) {
    tag<igs108InvalidCoefficients>();
  }
  if (gi_hypot(m_a, m_b, m_c) < kel_resource_table_inquire().value(kelTolMinValue)) tag<igs108ZeroNormal>();
  check_boundary();
  if (m_symbol_size < 0) tag<igs108InvalidSymbolSize>(m_symbol_size);
}

void igs108::check_boundary() const {
  using BoundaryTest = igsReferenceTest<igs108NullBoundary, igs108WrongBoundaryType, igs108InvalidBoundary>;
  if (directory_entry().form_number() != 0) {
    BoundaryTest::check(*this, m_boundary, igsKindOf<igsCurve>());
  } else if (m_boundary.object() != nullptr) {
    if (m_boundary->typeof(igsCurve::type())) m_boundary->check();  // a sound curve will be kept
    tag_reference<igs108UnexpectedBoundary>(m_boundary);
  }
}
