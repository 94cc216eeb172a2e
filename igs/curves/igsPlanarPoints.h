#pragma once

#include "igs/curves/igsCopiousData.h"
#include "igs/errors/igsRepairs.h"
#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsNamedError.h"

/// Copious data of the forms whose points are planar: dimensionality 1. Of points that a file gives with another
/// dimensionality, x and y are kept; the z level is then the z of the first. A class may keep points that have no
/// common z as they are, until its repair: it has dimensionality 2 or 3 then.
class IGS_API igsPlanarPoints : public igsCopiousData {
 public:
  /// What the file says; 1 is right. What is written is dimensionality().
  int told_dimensionality() const { return m_told_dimensionality; }
  void accept_dimensionality() { m_told_dimensionality = planar; }

  /// Makes this entity hold `count` undefined points and returns 1; returns 0 for a negative count.
  int set_size(int count);
  /// Puts a point behind the last one.
  void append_point(const giPoint2& point);
  /// Takes the last point away; nothing happens where there is none.
  void remove_last_point();

 protected:
  igsPlanarPoints() = default;

  /// As copious_fields; drops what is not planar, but for points without a common z where these are kept.
  template <class E, class V, class BadCount>
  static void planar_fields(E& data, V& visit, BadCount bad_count, bool keeps_space) {
    igsCopiousData::copious_fields(data, visit, bad_count);
    data.flatten(keeps_space);
  }

 private:
  bool has_common_z() const;
  void flatten(bool keeps_space);
  void flatten(bool) const {}

  int m_told_dimensionality = planar;
};

/// The faults that all such entities share: a dimensionality that is not 1 (carries it; it becomes 1), no z level, an
/// undefined point (carries its index, 0-based), and a number of points (carries it) that the entity cannot have or the
/// record cannot hold. `CountKind` is the kind of the last, `FlatKind` that of the first: they tell the repair.
template <class Owner, igsName Name, class CountKind = igsObjectError,
          class FlatKind = igsRepairedBy<Owner, &igsPlanarPoints::accept_dimensionality>>
struct igsPlanarPointsErrors {
  using InvalidDimensionality = igsNamedError<igs_joined(Name, igsName("InvalidDimensionality")), FlatKind, int>;
  using InvalidZLevel = igsNamedError<igs_joined(Name, igsName("InvalidZLevel"))>;
  using InvalidPoint = igsNamedError<igs_joined(Name, igsName("InvalidPoint")), igsObjectError, int>;
  using BadNumPoints = igsNamedError<igs_joined(Name, igsName("BadNumPoints")), CountKind, int>;
};

/// An entity class `Self` of planar points under `Parent`, which has igsPlanarPoints among its bases. `KeepsSpace`: it
/// keeps points without a common z.
template <class Self, igsName Name, class Parent, class Errors, bool KeepsSpace = false>
class IGS_API_TEMPLATE igsPlanarPointsEntity : public igsEntity<Self, Name, Parent> {
 public:
  template <class E, class V>
  static void fields(E& entity, V& visit) {
    igsPlanarPoints::planar_fields(entity, visit, igsBadCount<typename Errors::BadNumPoints>(), KeepsSpace);
  }

 protected:
  /// The parts of the check, in this order; the number of points is judged by the class.
  void check_plane() const;
  void check_number_of_points(bool valid) const;
  /// True when all points are defined.
  bool check_points() const;
};

template <class Self, igsName Name, class Parent, class Errors, bool KeepsSpace>
void igsPlanarPointsEntity<Self, Name, Parent, Errors, KeepsSpace>::check_plane() const {
  const int dimensionality = this->told_dimensionality();
  if (dimensionality != igsCopiousData::planar)
    this->template tag<typename Errors::InvalidDimensionality>(dimensionality);
  if (this->layout() == igsCopiousData::planar && igs_is_undefined_real(this->z_level())) {
    this->template tag<typename Errors::InvalidZLevel>();
  }
}

template <class Self, igsName Name, class Parent, class Errors, bool KeepsSpace>
void igsPlanarPointsEntity<Self, Name, Parent, Errors, KeepsSpace>::check_number_of_points(bool valid) const {
  if (!valid) this->template tag<typename Errors::BadNumPoints>(this->number_of_points());
}

template <class Self, igsName Name, class Parent, class Errors, bool KeepsSpace>
bool igsPlanarPointsEntity<Self, Name, Parent, Errors, KeepsSpace>::check_points() const {
  bool all_defined = true;
  for (int i = 0; i < this->number_of_points(); ++i) {
    if (!this->is_point_undefined(i)) continue;
    this->template tag<typename Errors::InvalidPoint>(i);
    all_defined = false;
  }
  return all_defined;
}
