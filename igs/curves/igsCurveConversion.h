#pragma once

#include "igs/errors/igsError.h"
#include "igs/objects/igsCast.h"
#include "igs/objects/igsObjectPtr.h"

/// Base of the errors which say that a reference is to something else than the curve it should be. A point set can be
/// made a curve, a polyline; since that has to be sound first, obj() is then the point set.
class IGS_API igsCurveTypeError : public igsObjectError {
 public:
  int obj() override;
  /// Converts the entity referred to with igsConvert::to_curve when it has no logged errors. If nothing else refers to
  /// it, it is replaced in its file; otherwise only this reference is set to the curve, and the others keep the old
  /// entity. References that the fixer repairs after the curves of its run have taken igsRepairRun::room_for_copies
  /// share one curve for each entity. 0 when there is nothing that can be converted.
  int fix() override;

 protected:
  igsCurveTypeError() = default;

  /// What fix() does, whatever errors the entity referred to has.
  int convert();
  /// The reference as it is now; null when there is none any more.
  virtual igsObjectPtr reference() const = 0;
  virtual void set_reference(const igsObjectPtr& curve) const = 0;
};

/// The same for a reference that is a field of a `T`, with its getter and its setter. To be named as the kind of an
/// igsErrorClass.
template <class T, const igsObjectPtr& (T::*Get)() const, void (T::*Set)(const igsObjectPtr&)>
class igsCurveFieldError : public igsCurveTypeError {
 protected:
  igsCurveFieldError() = default;

  igsObjectPtr reference() const override {
    const T* const entity = igs_cast<T>(object_at_key());
    return entity != nullptr ? (entity->*Get)() : igsObjectPtr();
  }
  void set_reference(const igsObjectPtr& curve) const override {
    if (T* const entity = igs_cast<T>(object_at_key())) (entity->*Set)(curve);
  }
};
