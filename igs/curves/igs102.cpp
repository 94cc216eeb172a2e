#include "igs/curves/igs102.h"

#include "igs/curves/igs102_errors.h"
#include "igs/curves/private/igsGeometryChecks.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsReferenceTest.h"

namespace {
using SubCurveTest = igsReferenceTest<igs102NullSubCurvePtr, igs102InvalidSubCurveType, igs102InvalidSubCurveData>;

bool is_point(const igsObject& object) { return object.isa(igs116::type()); }
}  // namespace

igs102::igs102() { set_directory_entry_type(igsEntity102, 0); }

int igs102::set_size(int size) { return igs_resize(sub_curves(), size); }

int igs102::sub_curve(int i, igsObjectPtr& sub_curve) const { return igs_get_element(sub_curves(), i, sub_curve); }

int igs102::set_sub_curve(int i, const igsObjectPtr& sub_curve) { return igs_set_element(sub_curves(), i, sub_curve); }

void igs102::check_pd() const {
  m_sub_curves.restart_index();
  if (number_of_sub_curves() < 1) tag<igs102NoSubCurves>();
  for (int i = 0; const igsObjectPtr& sub_curve : sub_curves()) {
    SubCurveTest::check(*this, sub_curve, igs_is_curve_or_point, i++);
  }
  check_points();
}

// Two points may stand side by side where they are the whole curve.
void igs102::check_points() const {
  bool after_point = false;
  for (int i = 0; const igsObjectPtr& sub_curve : sub_curves()) {
    const bool at_point = sub_curve.object() != nullptr && is_point(*sub_curve.object());
    if (at_point && number_of_sub_curves() == 1) tag<igs102OnlyPoint>();
    if (at_point && after_point && number_of_sub_curves() != 2) tag<igs102AdjacentPoints>(i - 1, i);
    after_point = at_point;
    ++i;
  }
}
