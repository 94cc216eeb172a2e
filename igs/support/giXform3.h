#pragma once

#include "igs/support/export.h"

class utOstream;

/// A transform of space as a 4 x 4 matrix that is multiplied from the left to column vectors: rows 1 to 3 hold the
/// rotation R and the translation T (R11 R12 R13 T1, ...), row 4 is 0 0 0 1 in a sound transform. The identity by
/// default.
class IGS_API giXform3 {
 public:
  giXform3();
  explicit giXform3(const double (&elements)[4][4]);

  /// Element in row `i`, column `j`, both 0-based and below 4.
  double element(int i, int j) const { return m_elements[i][j]; }
  /// Copies all elements out.
  void matrix(double (&elements)[4][4]) const;
  /// Replaces all elements.
  void set_matrix(const double (&elements)[4][4]);

  /// True when some element is undefined, infinite or not a number.
  bool invalid() const;
  /// Determinant of the rotation part.
  double rotation_determinant() const;

  /// Prints one "(a, b, c, d)" line a row.
  void print(utOstream& os) const;
  bool operator==(const giXform3&) const = default;

 private:
  double m_elements[4][4];
};
