#pragma once

#include "igs/curves/igs116.h"
#include "igs/curves/igs123.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsCast.h"
#include "igs/support/coResourceTable.h"
#include "igs/surfaces/igsAnalyticSurface.h"

// What the analytic surfaces do. Private to the library: included by their source files.

template <class Self, igsName Name, int Form, bool HasAxis>
template <igsName AxisField>
void igsAnalyticSurface<Self, Name, Form, HasAxis>::check_references() const {
  igsReferenceErrors<Name, "Location">::Test::check(*this, m_location, igsExactly<igs116>());
  if constexpr (HasAxis) igsReferenceErrors<Name, AxisField>::Test::check(*this, m_axis, igsExactly<igs123>());
  if constexpr (Form == 1) {
    igsReferenceErrors<Name, "RefDirection">::Test::check(*this, m_ref_direction, igsExactly<igs123>());
  }
}

template <class Self, igsName Name, int Form, bool HasAxis>
template <igsName Field>
void igsAnalyticSurface<Self, Name, Form, HasAxis>::check_real(double value, bool valid) const {
  if (!valid) this->template tag<typename igsRealErrors<Name, Field>::Invalid>(value);
}

// Only of directions that are sound. One of length 0 counts as parallel: it tells no more than a parallel one.
template <class Self, igsName Name, int Form, bool HasAxis>
void igsAnalyticSurface<Self, Name, Form, HasAxis>::check_ref_direction() const {
  if constexpr (Form == 1) {
    const igs123* const axis = igs_cast<igs123>(m_axis.object());
    const igs123* const reference = igs_cast<igs123>(m_ref_direction.object());
    if (axis == nullptr || reference == nullptr || axis->check() == 0 || reference->check() == 0) return;
    giVector3 a = axis->direction(), b = reference->direction();
    a.unitize();
    b.unitize();
    const double sine = a.cross(b).length();
    if (sine < kel_resource_table_inquire().value(kelTolMinValue)) {
      this->template tag<igsNamedError<igs_joined(Name, igsName("ParallelRefDirection"))>>();
    }
  }
}
