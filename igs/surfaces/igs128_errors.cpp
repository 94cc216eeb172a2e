#include "igs/surfaces/igs128_errors.h"

#include "igs/objects/igsCast.h"
#include "igs/support/coResourceTable.h"
#include "igs/surfaces/igs128.h"

namespace {
int reset_flag(igsObject* object, void (igs128::*set_flag)(int)) {
  igs128* const surface = igs_cast<igs128>(object);
  if (surface == nullptr) return 0;
  (surface->*set_flag)(0);
  return 1;
}

igsKnotVector* direction_u(igsObject* object) {
  igs128* const surface = igs_cast<igs128>(object);
  return surface != nullptr ? &surface->direction_u() : nullptr;
}

igsKnotVector* direction_v(igsObject* object) {
  igs128* const surface = igs_cast<igs128>(object);
  return surface != nullptr ? &surface->direction_v() : nullptr;
}

double surface_knot_tolerance() { return kel_resource_table_inquire().value(kelTolCoincBreakPoints); }

int raise_knot(igsKnotVector* direction, int i, double previous) {
  return direction != nullptr ? direction->raise_knot(i, previous, surface_knot_tolerance()) : 0;
}

int start_at_range(igsKnotVector* direction) { return direction != nullptr ? direction->start_at_range() : 0; }

int end_at_range(igsKnotVector* direction) { return direction != nullptr ? direction->end_at_range() : 0; }

int limit_to_range(igsKnotVector* direction) { return direction != nullptr ? direction->limit_to_range() : 0; }

int snap_knots(igsKnotVector* direction) {
  if (direction == nullptr) return 0;
  direction->snap_knots(surface_knot_tolerance());
  return 1;
}
}  // namespace

int igs128InvalidClosedUFlag::fix() { return reset_flag(object_at_key(), &igs128::set_closed_flag_u); }
int igs128InvalidClosedVFlag::fix() { return reset_flag(object_at_key(), &igs128::set_closed_flag_v); }
int igs128InvalidRationalFlag::fix() { return reset_flag(object_at_key(), &igs128::set_rational_flag); }
int igs128InvalidPeriodicUFlag::fix() { return reset_flag(object_at_key(), &igs128::set_periodic_flag_u); }
int igs128InvalidPeriodicVFlag::fix() { return reset_flag(object_at_key(), &igs128::set_periodic_flag_v); }
int igs128WeightsAndRatFlagDisaggree::fix() { return reset_flag(object_at_key(), &igs128::set_rational_flag); }

int igs128KnotUOutOfSequence::fix() { return raise_knot(direction_u(object_at_key()), value<0>(), value<2>()); }
int igs128KnotVOutOfSequence::fix() { return raise_knot(direction_v(object_at_key()), value<0>(), value<2>()); }

int igs128MinParamUOutOfRange::fix() { return start_at_range(direction_u(object_at_key())); }
int igs128MinParamVOutOfRange::fix() { return start_at_range(direction_v(object_at_key())); }
int igs128MaxParamUOutOfRange::fix() { return end_at_range(direction_u(object_at_key())); }
int igs128MaxParamVOutOfRange::fix() { return end_at_range(direction_v(object_at_key())); }

int igs128TrimParamsUOutOfSequence::fix() { return limit_to_range(direction_u(object_at_key())); }
int igs128TrimParamsVOutOfSequence::fix() { return limit_to_range(direction_v(object_at_key())); }

int igs128UKnotsTooClose::fix() { return snap_knots(direction_u(object_at_key())); }
int igs128VKnotsTooClose::fix() { return snap_knots(direction_v(object_at_key())); }
