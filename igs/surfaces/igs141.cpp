#include "igs/surfaces/igs141.h"

#include "igs/curves/private/igsGeometryChecks.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/objects/igsCurve.h"
#include "igs/surfaces/igs108.h"
#include "igs/surfaces/igs141_errors.h"

namespace {
using ModelSpaceCurveTest =
    igsReferenceTest<igs141NullModelSpaceCurvePtr, igs141InvalidModelSpaceCurveType, igs141InvalidModelSpaceCurveData>;
using ParameterCurveTest =
    igsReferenceTest<igs141NullParameterCurvePtr, igs141InvalidParameterCurveType, igs141InvalidParameterCurveData>;
}  // namespace

igs141::igs141() { set_directory_entry_type(igsEntity141, 0); }

int igs141::model_space_curve(int i, igsModelSpaceCurve** curve) {
  igsModelSpaceCurve* const place = igs_place(m_model_space_curves, i);
  if (place != nullptr) *curve = place;
  return place != nullptr ? 1 : 0;
}

int igs141::set_model_space_curve(int i, const igsModelSpaceCurve* curve) {
  return curve != nullptr ? igs_set_element(m_model_space_curves, i, *curve) : 0;
}

int igs141::read_pd_data(igsInStream& in) {
  igsFieldReader reader(in, *this);
  leading_fields(*this, reader);
  return read_model_space_curves(in);
}

int igs141::read_model_space_curves(igsInStream& in) {
  const int count = igsFieldReader(in, *this).count(nullptr, 0);
  bool usable = true;
  const auto read = [this, &in, &usable, i = 0](igsModelSpaceCurve& curve) mutable {
    if (in.frozen()) return igsSupply::ended;
    const igsSupply supply = read_model_space_curve_data(in, i++, curve);
    usable = supply != igsSupply::ended;
    return supply;
  };
  const int believed = igs_read_bounded(in, count, m_model_space_curves, read);
  if (usable && believed == 0) tag<igs141BadNumModelSpaceCurves>(count);
  return usable ? believed : 0;
}

igsSupply igs141::read_model_space_curve_data(igsInStream& in, int i, igsModelSpaceCurve& curve) const {
  igsFieldReader reader(in, *this);
  igsModelSpaceCurve::leading_fields(curve, reader);
  const int count = reader.count(nullptr, 0);
  const auto read = [this, &in](igsObjectPtr& parameter_curve) {
    if (in.frozen()) return igsSupply::ended;
    igsFieldReader pointer(in, *this);
    pointer(nullptr, parameter_curve);
    return pointer.given() ? igsSupply::given : igsSupply::empty;
  };
  if (igs_read_bounded(in, count, curve.m_parameter_curves, read) != 0) {
    return reader.given() ? igsSupply::given : igsSupply::empty;
  }
  tag<igs141BadNumAssocParamCurves>(i, count);
  return igsSupply::ended;
}

void igs141::print_model_space_curves(utOstream& os) const {
  igsFieldPrinter printer(os);
  curve_fields(*this, printer);
}

void igs141::check_pd() const {
  using SurfaceTest = igsReferenceTest<igs141NullSurfacePtr, igs141InvalidSurfaceType, igs141InvalidSurfaceData>;
  const int type = m_bounded_surface_representation, preference = m_preferred_representation;
  if (!igs_is_flag(type)) tag<igs141InvalidBoundedSurfRep>(type);
  if (preference < 0 || preference > 3) tag<igs141InvalidPreferrenceFlag>(preference);
  SurfaceTest::check(*this, m_surface, igsKindOf<igsSurface>());
  if (m_model_space_curves.empty()) tag<igs141BadNumModelSpaceCurves>(0);
  for (int i = 0; const igsModelSpaceCurve& curve : m_model_space_curves) check_model_space_curve(i++, curve);
}

void igs141::check_model_space_curve(int i, const igsModelSpaceCurve& curve) const {
  if (curve.sense() != igsModelSpaceCurve::agrees && curve.sense() != igsModelSpaceCurve::reversed) {
    tag<igs141InvalidReversalFlag>(i, curve.sense());
  }
  ModelSpaceCurveTest::check(*this, curve.curve(), igs_is_curve_or_point, i);
  if (m_bounded_surface_representation == 0 && curve.number_of_parameter_curves() > 0) {
    tag<igs141UnexpectedParamCurves>(i);
  }
  check_parameter_curves(i, curve);
}

void igs141::check_parameter_curves(int i, const igsModelSpaceCurve& curve) const {
  const igsObject* const surface = m_surface.object();
  const bool on_plane = surface != nullptr && surface->isa(igs108::type());
  for (int j = 0; const igsObjectPtr& parameter_curve : curve.parameter_curves()) {
    if (on_plane && parameter_curve.object() != nullptr) tag<igs141Trim2DNonParametricSurface>();
    ParameterCurveTest::check(*this, parameter_curve, igsKindOf<igsCurve>(), i, j++);
  }
}
