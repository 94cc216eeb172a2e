#pragma once

#include <cstddef>

#include "igs/curves/igsCopiousData.h"
#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/file/igsDirectoryEntry.h"

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

/// The repair of a dimensionality or form that contradicts the data: 1, or 0 for a null `entity`.
template <class CopiousEntity>
int igs_adopt_layout(CopiousEntity* entity) {
  if (entity == nullptr) return 0;
  entity->adopt_layout();
  return 1;
}
