#include "igs/curves/igs130.h"

#include <cmath>

#include "igs/curves/igs130_errors.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/support/coResourceTable.h"

namespace {
using BaseCurveTest = igsReferenceTest<igs130NullBaseCurve, igs130WrongBaseCurveType, igs130InvalidBaseCurve>;
using OffsetFunctionTest =
    igsReferenceTest<igs130NullOffsetFunction, igs130WrongOffsetFunctionType, igs130InvalidOffsetFunction>;

// FLAG
constexpr int constant_distance = 1;
constexpr int linear_distance = 2;
constexpr int distance_function = 3;
}  // namespace

igs130::igs130() { set_directory_entry_type(igsEntity130, 0); }

void igs130::check_pd() const {
  BaseCurveTest::check(*this, m_base_curve, igsKindOf<igsCurve>());
  check_offset();
  check_normal();
  if (m_end_parameter <= m_start_parameter) tag<igs130ParamsOutOfSequence>(m_start_parameter, m_end_parameter);
}

void igs130::check_offset() const {
  if (m_offset_type < constant_distance || m_offset_type > distance_function) {
    tag<igs130InvalidOffsetType>(m_offset_type);
    return;
  }
  if (m_offset_type == distance_function) {
    OffsetFunctionTest::check(*this, m_offset_function, igsKindOf<igsCurve>());
    if (m_coordinate < 1 || m_coordinate > 3) tag<igs130InvalidCoordinate>(m_coordinate);
  }
  if (m_offset_type >= linear_distance && (m_taper_type < 1 || m_taper_type > 2)) {
    tag<igs130InvalidTaperType>(m_taper_type);
  }
}

void igs130::check_normal() const {
  const coResourceTable& table = kel_resource_table_inquire();
  const double length = m_normal.is_undefined() ? 0 : m_normal.length();
  if (m_normal.is_undefined() || length < table.value(kelTolMinValue)) {
    tag<igs130ZeroNormal>();
  } else if (!(std::abs(length - 1) <= table.value(kelTolZeroLength))) {  // also where it is no number
    tag<igs130NormalNotUnit>(length);
  }
}
