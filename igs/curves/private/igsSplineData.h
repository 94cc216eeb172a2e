#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "igs/curves/igsKnotVector.h"
#include "igs/curves/private/igsGeometryChecks.h"
#include "igs/fields/igsListAccess.h"
#include "igs/objects/igsList.h"
#include "igs/objects/igsObject.h"
#include "igs/support/giPoint.h"

// What the spline curves and surfaces do alike with their data. Private to the library: included by their source files.

/// The next real of the record; -DBL_MAX where the record supplies none.
double igs_read_supplied(igsInStream& in);
/// Reads `count` reals, -DBL_MAX for those that the record does not supply. Returns 1; returns 0 for a count that
/// cannot be believed. `read_before`: how many values the record is known to have supplied, from which the memory set
/// aside at once follows.
int igs_read_reals(igsInStream& in, std::int64_t count, igsList<double>& reals, std::size_t read_before = 0);
/// As above for points: an empty field is 0, and the points behind the record's end are undefined.
int igs_read_points(igsInStream& in, std::int64_t count, igsList<giPoint3>& points, std::size_t read_before);
/// Prints "label = 1(True)"; `true_value` is the value that means so, 0 or 1.
void igs_print_flag(utOstream& os, const char* label, int value, int true_value = 1);
/// What PROP3 holds for a rational spline: 0, and 1 for a polynomial one.
inline constexpr int rational_means_true = 0;

/// How far weights agree with the first one.
struct igsWeightSpread {
  bool all_exact = true;
  bool all_close = true;
};
igsWeightSpread igs_weight_spread(const igsList<double>& weights, double tolerance);

enum class igsWeightFault { none, zero, unset, negative };
inline igsWeightFault igs_weight_fault(double weight, double tolerance) {
  if (std::abs(weight) < tolerance) return igsWeightFault::zero;
  if (igs_is_undefined_real(weight)) return igsWeightFault::unset;
  return weight < 0 ? igsWeightFault::negative : igsWeightFault::none;
}

/// Tags `entity` with the faults of the knots themselves: unset ones and those below the largest one before them.
template <class Errors, class Reals>
void igs_check_knot_sequence(const igsObject& entity, const Reals& knots) {
  double previous = igs_undefined_real;
  for (std::size_t i = 0; i < knots.size(); ++i) {
    const double knot = knots[i];
    if (igs_is_undefined_real(knot)) entity.tag<typename Errors::UnsetKnot>(static_cast<int>(i));
    if (knot < previous) {
      entity.tag<typename Errors::KnotOutOfSequence>(static_cast<int>(i), knot, previous);
    } else {
      previous = knot;
    }
  }
}

/// As above for break points, which have to be apart, too: equal ones and those closer than `tolerance` are one fault
/// of the whole list. `Errors` names the three error classes.
template <class Errors>
void igs_check_break_points(const igsObject& entity, const std::vector<double>& points, double tolerance) {
  igs_check_knot_sequence<Errors>(entity, points);
  double previous = igs_undefined_real;
  for (const double point : points) {
    if (!(point >= previous)) continue;
    if (!igs_is_undefined_real(previous) && point - previous < tolerance) {
      entity.tag<typename Errors::KnotsTooClose>();
      break;
    }
    previous = point;
  }
}

/// Raises knot or break point `i` to `previous`, the largest one before it, and returns 1; returns 0 and changes
/// nothing where it is not less than `tolerance` below.
template <class Reals>
int igs_raise_knot(Reals& knots, int i, double previous, double tolerance) {
  double* const knot = igs_place(knots, i);
  if (knot == nullptr || !(previous - *knot < tolerance)) return 0;
  *knot = previous;
  return 1;
}

/// Tags `entity` with the faults of one direction: of the knots, of the limits in respect of the range, and of the
/// spans of the range. `Errors` names the six error classes.
template <class Errors>
void igs_check_knots(const igsObject& entity, const igsKnotVector& direction, double tolerance) {
  const igsList<double>& knots = direction.knots();
  if (knots.empty()) return;
  igs_check_knot_sequence<Errors>(entity, knots);

  const auto first = static_cast<std::size_t>(direction.order() - 1);
  const std::size_t last = knots.size() - static_cast<std::size_t>(direction.order());
  const double low = knots[first], high = knots[last];
  const auto outside = [low, high](double limit) { return limit < low || limit > high; };
  if (direction.order() > 1) {
    if (outside(direction.start())) entity.tag<typename Errors::MinParamOutOfRange>(direction.start(), low, high);
    if (outside(direction.end())) entity.tag<typename Errors::MaxParamOutOfRange>(direction.end(), low, high);
    if (high <= low) entity.tag<typename Errors::NoParamRange>(low);
  }
  for (std::size_t i = first; i < last; ++i) {
    const double distance = std::abs(knots[i + 1] - knots[i]);
    if (distance > 0 && distance < tolerance) {
      entity.tag<typename Errors::KnotsTooClose>();
      break;
    }
  }
}
