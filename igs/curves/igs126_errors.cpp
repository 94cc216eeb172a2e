#include "igs/curves/igs126_errors.h"

#include "igs/curves/igs126.h"
#include "igs/file/igsFile.h"
#include "igs/objects/igsCast.h"
#include "igs/objects/igsPlaceholders.h"
#include "igs/support/coResourceTable.h"

namespace {
template <class Repair>
int repair(igsObject* object, Repair repair_curve) {
  if (object != nullptr && object->isa(igsNull::type())) return 1;
  igs126* const curve = igs_cast<igs126>(object);
  return curve != nullptr ? repair_curve(*curve) : 0;
}

int reset_flag(igsObject* object, void (igs126::*set_flag)(int)) {
  return repair(object, [set_flag](igs126& curve) {
    (curve.*set_flag)(0);
    return 1;
  });
}

double knot_tolerance() { return kel_resource_table_inquire().value(kelTolCoincBreakPoints); }
}  // namespace

int igs126InvalidClosedFlag::fix() { return reset_flag(object_at_key(), &igs126::set_closed_flag); }

int igs126InvalidRationalFlag::fix() { return reset_flag(object_at_key(), &igs126::set_rational_flag); }

int igs126InvalidPeriodicFlag::fix() { return reset_flag(object_at_key(), &igs126::set_periodic_flag); }

int igs126KnotOutOfSequence::fix() {
  return repair(object_at_key(), [this](igs126& curve) {
    return curve.direction().raise_knot(value<0>(), value<2>(), knot_tolerance());
  });
}

int igs126MinParamOutOfRange::fix() {
  return repair(object_at_key(), [](igs126& curve) { return curve.direction().start_at_range(); });
}

int igs126MaxParamOutOfRange::fix() {
  return repair(object_at_key(), [](igs126& curve) { return curve.direction().end_at_range(); });
}

int igs126NoParamRange::fix() {
  return repair(object_at_key(), [this](igs126& curve) {
    curve.file().replace_entity(&curve, new igsNull);
    message("Warning : IGES 126 (Nurb Curve) DE %d has been removed.\n", key());
    return 0;
  });
}

int igs126KnotsTooClose::fix() {
  return repair(object_at_key(), [](igs126& curve) {
    curve.direction().snap_knots(knot_tolerance());
    return 1;
  });
}

int igs126WeightsAndRatFlagDisagree::fix() {
  return repair(object_at_key(), [](igs126& curve) {
    curve.set_rational_flag(curve.rational_flag() == 0 ? 1 : 0);
    return 1;
  });
}

int igs126TrimParamsOutOfSequence::fix() {
  return repair(object_at_key(), [](igs126& curve) { return curve.direction().limit_to_range(); });
}
