#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/support/giXform3.h"

/// Transformation Matrix (IGES 5.3, type 124): a rotation and a translation, in model units, that take the coordinates
/// of definition space to model space. Form 0 is right-handed, form 1 left-handed.
class IGS_API igs124 : public igsWrittenEntity<igs124, "igs124", igsObject> {
 public:
  igs124();

  /// The identity until it is set.
  const giXform3& transform() const { return m_transform; }
  /// Copies the matrix out: rows R11 R12 R13 T1 / R21 R22 R23 T2 / R31 R32 R33 T3 / 0 0 0 1.
  void matrix(double elements[][4]) const;
  /// Copies four rows in.
  void set_matrix(const double elements[][4]);
  /// Makes the columns of the rotation square to each other and of length 1, keeping the direction of the first column
  /// and the plane of the first two; the third is their cross product, or its opposite in a `left_handed` matrix.
  /// Returns 1; returns 0 and changes nothing when the first two columns span no plane.
  int make_rigid(bool left_handed);

  int read_pd_data(igsInStream& in) override;
  void print_pd_data(utOstream& os) const override;
  void check_pd() const override;
  /// Examines the matrix of the entity's own, the status flags and the subscript, nothing else.
  void check_de() const override;

  /// States what is written: the first three rows.
  template <class V>
  static void fields(const igs124& matrix, V& visit) {
    constexpr const char* labels[rows_in_file][4] = {
        {"R11", "R12", "R13", "T1"}, {"R21", "R22", "R23", "T2"}, {"R31", "R32", "R33", "T3"}};
    visit.parametric([&] {
      for (int i = 0; i < rows_in_file; ++i) {
        for (int j = 0; j < 4; ++j) visit(labels[i][j], matrix.m_transform.element(i, j));
      }
    });
  }

 private:
  static constexpr int rows_in_file = 3;

  giXform3 m_transform;
};
