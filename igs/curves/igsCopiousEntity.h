#pragma once

#include <cstddef>

#include "igs/curves/igsCopiousData.h"
#include "igs/errors/igsRepairs.h"
#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsNamedError.h"
#include "igs/file/igsDirectoryEntry.h"

/// Makes the dimensionality and the form say what the points really are.
template <class Owner>
void igs_adopt_layout(Owner& entity) {
  entity.adopt_layout();
}

/// The faults that these entities share: the dimensionality is none of 1, 2 and 3 (carries it; it becomes the one that
/// the form tells); the form tells another dimensionality than the data have (carries both; the form is set to match);
/// planar points without a z level; an undefined point (carries its index, 0-based); and a number of points that is
/// negative or out of proportion to the record (carries it).
template <class Owner, igsName Name>
struct igsCopiousErrors {
  /// The kind of the first two.
  using Repair = igsRepairedBy<Owner, &igs_adopt_layout<Owner>>;
  using InvalidDimensionality = igsNamedError<igs_joined(Name, igsName("InvalidDimensionality")), Repair, int>;
  using InconsistForm = igsNamedError<igs_joined(Name, igsName("InconsistForm")), Repair, int, int>;
  using InvalidZLevel = igsNamedError<igs_joined(Name, igsName("InvalidZLevel"))>;
  using InvalidPoint = igsNamedError<igs_joined(Name, igsName("InvalidPoint")), igsObjectError, int>;
  using BadNumPoints = igsNamedError<igs_joined(Name, igsName("BadNumPoints")), igsObjectError, int>;
};

/// What the Copious Data entities whose form tells the dimensionality have in common: their form is `BaseForm` plus the
/// dimensionality. `Errors` names the class's errors.
template <class Self, igsName Name, class Parent, int BaseForm, class Errors>
class IGS_API_TEMPLATE igsCopiousEntity : public igsEntity<Self, Name, Parent>, public igsCopiousData {
 public:
  /// Makes this entity hold `count` undefined points of a dimensionality, and sets its form. Returns 1; returns 0 and
  /// changes nothing for a dimensionality outside 1 to 3 or a negative count.
  int set_size(int dimensionality, int count);
  /// Takes points and z level over, and the form that goes with them.
  void set_data(const igsCopiousData& data);
  /// Makes the dimensionality and the form say what the points really are.
  void adopt_layout();

  int read_pd_data(igsInStream& in) override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    igsCopiousData::copious_fields(entity, visit, igsBadCount<typename Errors::BadNumPoints>());
  }

 protected:
  igsCopiousEntity() { adopt_layout(); }

  /// The first and the last part of the check; the number of points comes between them.
  void check_layout() const;
  void check_points() const;

 private:
  int form_of_layout() const { return BaseForm + layout(); }
};

template <class Self, igsName Name, class Parent, int BaseForm, class Errors>
int igsCopiousEntity<Self, Name, Parent, BaseForm, Errors>::set_size(int dimensionality, int count) {
  if (dimensionality < planar || dimensionality > with_vectors || count < 0) return 0;
  clear(dimensionality);
  resize(static_cast<std::size_t>(count));
  adopt_layout();
  return 1;
}

template <class Self, igsName Name, class Parent, int BaseForm, class Errors>
void igsCopiousEntity<Self, Name, Parent, BaseForm, Errors>::set_data(const igsCopiousData& data) {
  igsCopiousData::operator=(data);
  adopt_layout();
}

template <class Self, igsName Name, class Parent, int BaseForm, class Errors>
void igsCopiousEntity<Self, Name, Parent, BaseForm, Errors>::adopt_layout() {
  m_dimensionality = layout();
  this->set_directory_entry_type(igsEntity106, form_of_layout());
}

template <class Self, igsName Name, class Parent, int BaseForm, class Errors>
int igsCopiousEntity<Self, Name, Parent, BaseForm, Errors>::read_pd_data(igsInStream& in) {
  clear(this->directory_entry().form_number() - BaseForm);
  return igsEntity<Self, Name, Parent>::read_pd_data(in);
}

template <class Self, igsName Name, class Parent, int BaseForm, class Errors>
void igsCopiousEntity<Self, Name, Parent, BaseForm, Errors>::check_layout() const {
  const int form = this->directory_entry().form_number();
  if (m_dimensionality != layout()) this->template tag<typename Errors::InvalidDimensionality>(m_dimensionality);
  if (form != form_of_layout()) this->template tag<typename Errors::InconsistForm>(form, layout());
}

template <class Self, igsName Name, class Parent, int BaseForm, class Errors>
void igsCopiousEntity<Self, Name, Parent, BaseForm, Errors>::check_points() const {
  if (layout() == planar && igs_is_undefined_real(m_z_level)) this->template tag<typename Errors::InvalidZLevel>();
  for (int i = 0; i < number_of_points(); ++i) {
    if (is_point_undefined(i)) this->template tag<typename Errors::InvalidPoint>(i);
  }
}
