#include "igs/support/giPoint.h"
#include "igs/support/giVector.h"
#include "igs/support/giXform3.h"
#include "igs/support/utOstream.h"

void giPoint2::print(utOstream& os) const { os << '(' << m_x << ", " << m_y << ')'; }

void giPoint3::print(utOstream& os) const { os << '(' << m_x << ", " << m_y << ", " << m_z << ')'; }

void giVector2::print(utOstream& os) const { os << '(' << m_x << ", " << m_y << ')'; }

void giVector3::print(utOstream& os) const { os << '(' << m_x << ", " << m_y << ", " << m_z << ')'; }

int giVector3::unitize() {
  const double norm = length();
  if (!(norm > 0) || !std::isfinite(norm)) return 0;
  *this = giVector3(m_x / norm, m_y / norm, m_z / norm);
  return 1;
}

giUnitVec3::giUnitVec3(const giVector3& direction) : m_vector(direction) {
  if (m_vector.unitize() == 0) m_vector = giVector3();
}

void giUnitVec3::print(utOstream& os) const { m_vector.print(os); }

giXform3::giXform3() : m_elements{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}} {}

giXform3::giXform3(const double (&elements)[4][4]) : m_elements{} { set_matrix(elements); }

void giXform3::matrix(double (&elements)[4][4]) const {
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) elements[i][j] = m_elements[i][j];
  }
}

void giXform3::set_matrix(const double (&elements)[4][4]) {
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) m_elements[i][j] = elements[i][j];
  }
}

bool giXform3::invalid() const {
  for (const auto& row : m_elements) {
    for (const double element : row) {
      if (igs_is_undefined_real(element) || !std::isfinite(element)) return true;
    }
  }
  return false;
}

double giXform3::rotation_determinant() const {
  const giVector3 row[3] = {{m_elements[0][0], m_elements[0][1], m_elements[0][2]},
                            {m_elements[1][0], m_elements[1][1], m_elements[1][2]},
                            {m_elements[2][0], m_elements[2][1], m_elements[2][2]}};
  return row[0].dot(row[1].cross(row[2]));
}

void giXform3::print(utOstream& os) const {
  for (int i = 0; i < 4; ++i) {
    os << '(' << m_elements[i][0] << ", " << m_elements[i][1] << ", " << m_elements[i][2] << ", " << m_elements[i][3]
       << ')' << utEndl;
  }
}
