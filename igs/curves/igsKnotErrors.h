#pragma once

#include <functional>

#include "igs/curves/igsKnotVector.h"
#include "igs/errors/igsRepairs.h"
#include "igs/fields/igsNamedError.h"
#include "igs/support/coResourceTable.h"

// The errors of numbers that must not fall, in families: the knots and limits of B-splines, the break points of
// parametric splines. `T` is the entity class with the name `Owner`. Indices are 0-based.

/// The value of kelTolCoincBreakPoints.
inline double igs_knot_tolerance() { return kel_resource_table_inquire().value(kelTolCoincBreakPoints); }

// The repairs, by what `Raise` does to the entity or what a direction's igsKnotVector does.
template <auto Raise, class T>
int igs_raise_break_point(T& spline, int i, double /*found*/, double previous) {
  return std::invoke(Raise, spline, i, previous, igs_knot_tolerance());
}
template <auto Direction, class T>
int igs_raise_knot_of(T& spline, int i, double /*found*/, double previous) {
  return std::invoke(Direction, spline).raise_knot(i, previous, igs_knot_tolerance());
}
template <auto Direction, class T>
void igs_snap_knots_of(T& spline) {
  std::invoke(Direction, spline).snap_knots(igs_knot_tolerance());
}
template <auto Direction, auto Repair, class T>
int igs_repair_limits_of(T& spline) {
  return std::invoke(Repair, std::invoke(Direction, spline));
}

/// Of a sequence of numbers; `Number` and `Numbers` is what one and many are called in the names of the errors.
template <igsName Owner, igsName Number, igsName Numbers, class RaisedKind, class TooCloseKind = igsObjectError>
struct igsSequenceErrors {
  /// A number is unset; carries its index.
  using UnsetKnot = igsNamedError<igs_joined(Owner, igsName("Unset"), Number), igsObjectError, int>;
  /// A number is below the largest one before it; carries its index, its value and that one. The repair raises it to
  /// that one; 0 when it is not less than kelTolCoincBreakPoints below.
  using KnotOutOfSequence =
      igsNamedError<igs_joined(Owner, Number, igsName("OutOfSequence")), RaisedKind, int, double, double>;
  /// Two different neighbours are closer than kelTolCoincBreakPoints, or the same where they must not be.
  using KnotsTooClose = igsNamedError<igs_joined(Owner, Numbers, igsName("TooClose")), TooCloseKind>;
};

/// Of the break points of a parametric spline. `Raise` raises one.
template <igsName Owner, igsName Letter, class T, int (T::*Raise)(int, double, double)>
using igsBreakPointErrors =
    igsSequenceErrors<Owner, igs_joined(Letter, igsName("BreakPoint")), igs_joined(Letter, igsName("BreakPoints")),
                      igsRepairedBy<T, &igs_raise_break_point<Raise, T>>>;

/// Of one direction of a B-spline, which `Direction` gives: its size, its knots, whose range is from T(0) to T(N), and
/// its limits within that range. `Letter` stands for the direction in the names of the errors.
template <igsName Owner, igsName Letter, class T, igsKnotVector& (T::*Direction)()>
struct igsKnotErrors
    : igsSequenceErrors<Owner, igs_joined(igsName("Knot"), Letter), igs_joined(Letter, igsName("Knots")),
                        igsRepairedBy<T, &igs_raise_knot_of<Direction, T>>,
                        igsRepairedBy<T, &igs_snap_knots_of<Direction, T>>> {
  template <int (igsKnotVector::*Repair)()>
  using Limits = igsRepairedBy<T, &igs_repair_limits_of<Direction, Repair, T>>;

  /// Fewer than two control points, or a size that the record cannot hold; carries K. The size ends the read.
  using BadSumIndex =
      igsNamedError<igs_joined(Owner, igsName("Bad"), Letter, igsName("SumIndex")), igsObjectError, int>;
  /// A degree below 1; carries it.
  using BadDegree = igsNamedError<igs_joined(Owner, igsName("Bad"), Letter, igsName("Degree")), igsObjectError, int>;
  /// Fewer control points than the degree needs; carries K and M.
  using SumIndexLessThanDegree =
      igsNamedError<igs_joined(Owner, Letter, igsName("SumIndexLessThan"), Letter, igsName("Degree")), igsObjectError,
                    int, int>;
  /// The first limit is outside the range; carries it and the range. It becomes T(0); 0 when the second is below that.
  using MinParamOutOfRange = igsNamedError<igs_joined(Owner, igsName("MinParam"), Letter, igsName("OutOfRange")),
                                           Limits<&igsKnotVector::start_at_range>, double, double, double>;
  /// The second limit is outside the range; carries it and the range. It becomes T(N); 0 when the first is above that.
  using MaxParamOutOfRange = igsNamedError<igs_joined(Owner, igsName("MaxParam"), Letter, igsName("OutOfRange")),
                                           Limits<&igsKnotVector::end_at_range>, double, double, double>;
  /// T(N) is not above T(0); carries T(0).
  using NoParamRange =
      igsNamedError<igs_joined(Owner, igsName("No"), Letter, igsName("ParamRange")), igsObjectError, double>;
  /// The second limit is not above the first; carries both. They become the range; 0 when that is out of sequence, too.
  using TrimParamsOutOfSequence =
      igsNamedError<igs_joined(Owner, igsName("TrimParams"), Letter, igsName("OutOfSequence")),
                    Limits<&igsKnotVector::limit_to_range>, double, double>;
};
