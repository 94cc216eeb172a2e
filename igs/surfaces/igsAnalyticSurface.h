#pragma once

#include <type_traits>

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsSurface.h"

/// What the analytic surfaces (IGES 5.3, types 190 to 198) have in common: they are placed by points and directions,
/// and form 1 has parameters, whose origin a reference direction tells. Every reference is to an igs116 (location) or
/// to an igs123 (directions). Source files include igsAnalyticCheck.h, which defines the members declared here.
template <class Self, igsName Name, int Form, bool HasAxis = true>
class IGS_API_TEMPLATE igsAnalyticSurface
    : public igsEntity<Self, Name, std::conditional_t<Form == 1, igsParameterizedSurface, igsUnparameterizedSurface>> {
 public:
  const igsObjectPtr& location() const { return m_location; }
  void set_location(const igsObjectPtr& location) { m_location = location; }
  /// The axis; of a plane its normal.
  const igsObjectPtr& axis() const requires(HasAxis) { return m_axis; }
  void set_axis(const igsObjectPtr& axis) requires(HasAxis) { m_axis = axis; }
  /// Where u = 0: not parallel to the axis, but not necessarily square to it.
  const igsObjectPtr& ref_direction() const requires(Form == 1) { return m_ref_direction; }
  void set_ref_direction(const igsObjectPtr& direction) requires(Form == 1) { m_ref_direction = direction; }

 protected:
  explicit igsAnalyticSurface(igsEntityType type) { this->set_directory_entry_type(type, Form); }

  /// Checks every reference, in field order.
  template <igsName AxisField = "Axis">
  void check_references() const;
  /// Tags the error of the real `Field` unless it is `valid`.
  template <igsName Field>
  void check_real(double value, bool valid) const;
  void check_ref_direction() const;

  struct NoAxis {};
  struct NoRefDirection {};

  igsObjectPtr m_location;
  [[no_unique_address]] std::conditional_t<HasAxis, igsObjectPtr, NoAxis> m_axis;
  [[no_unique_address]] std::conditional_t<Form == 1, igsObjectPtr, NoRefDirection> m_ref_direction;
};
