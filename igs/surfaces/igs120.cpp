#include "igs/surfaces/igs120.h"

#include <cmath>
#include <numbers>

#include "igs/curves/igs110.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/objects/igsCurve.h"
#include "igs/support/coResourceTable.h"
#include "igs/surfaces/igs120_errors.h"

namespace {
using AxisTest = igsReferenceTest<igs120NullAxis, igs120WrongAxisType, igs120InvalidAxis>;
using GeneratorTest = igsReferenceTest<igs120NullGenerator, igs120WrongGeneratorType, igs120InvalidGenerator>;
}  // namespace

igs120::igs120() { set_directory_entry_type(igsEntity120, 0); }

void igs120::check_pd() const {
  AxisTest::check(*this, m_axis, igsExactly<igs110>());
  GeneratorTest::check(*this, m_generator, igsKindOf<igsCurve>());
  if (igs_is_undefined_real(m_start_angle) || igs_is_undefined_real(m_terminate_angle)) {
    tag<igs120InvalidAngles>();
  } else {
    check_angles();
  }
}

void igs120::check_angles() const {
  const double tolerance = kel_resource_table_inquire().value(kelTolCoincAngles);
  const double range = m_terminate_angle - m_start_angle;
  if (std::abs(range) < tolerance) {
    tag<igs120CoincidentAngles>(m_start_angle, m_terminate_angle);
  } else if (range < 0) {
    tag<igs120AnglesOutOfSequence>(m_start_angle, m_terminate_angle);
  } else if (range > 2 * std::numbers::pi + tolerance) {
    tag<igs120AngleRangeTooLarge>(m_start_angle, m_terminate_angle);
  }
}
