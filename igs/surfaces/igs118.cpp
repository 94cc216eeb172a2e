#include "igs/surfaces/igs118.h"

#include "igs/curves/igs116.h"
#include "igs/curves/private/igsGeometryChecks.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/surfaces/igs118_errors.h"

namespace {
using FirstCurveTest = igsReferenceTest<igs118NullFirstCurve, igs118WrongFirstCurveType, igs118InvalidFirstCurve>;
using SecondCurveTest = igsReferenceTest<igs118NullSecondCurve, igs118WrongSecondCurveType, igs118InvalidSecondCurve>;

bool is_a_point(const igsObject& object) { return object.isa(igs116::type()); }
}  // namespace

igs118::igs118() { set_directory_entry_type(igsEntity118, 0); }

void igs118::check_pd() const {
  const igsObject* const first = FirstCurveTest::check(*this, m_first_curve, igs_is_curve_or_point);
  const igsObject* const second = SecondCurveTest::check(*this, m_second_curve, igs_is_curve_or_point);
  if (!igs_is_flag(m_direction_flag)) tag<igs118InvalidDirectionFlag>(m_direction_flag);
  if (!igs_is_flag(m_developable_flag)) tag<igs118InvalidDevelopableFlag>(m_developable_flag);
  if (first != nullptr && second != nullptr && is_a_point(*first) && is_a_point(*second)) tag<igs118OnlyPoints>();
}
