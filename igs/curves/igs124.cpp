#include "igs/curves/igs124.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "igs/curves/igs124_errors.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/file/igsDE_errors.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/support/coResourceTable.h"

namespace {
using Columns = std::array<giVector3, 3>;

Columns rotation_columns(const giXform3& transform) {
  const auto column = [&transform](int j) {
    return giVector3(transform.element(0, j), transform.element(1, j), transform.element(2, j));
  };
  return {column(0), column(1), column(2)};
}
}  // namespace

igs124::igs124() { set_directory_entry_type(igsEntity124, 0); }

void igs124::matrix(double elements[][4]) const {
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) elements[i][j] = m_transform.element(i, j);
  }
}

void igs124::set_matrix(const double elements[][4]) {
  double copy[4][4];
  for (int i = 0; i < 4; ++i) std::copy_n(elements[i], 4, copy[i]);
  m_transform.set_matrix(copy);
}

int igs124::make_rigid(bool left_handed) {
  auto [first, second, third] = rotation_columns(m_transform);
  if (first.unitize() == 0) return 0;
  const giVector3 along = first.scaled(first.dot(second));
  second = giVector3(second.x() - along.x(), second.y() - along.y(), second.z() - along.z());
  if (second.unitize() == 0) return 0;
  third = first.cross(second).scaled(left_handed ? -1 : 1);

  double elements[4][4];
  matrix(elements);
  for (int j = 0; const giVector3& column : {first, second, third}) {
    elements[0][j] = column.x();
    elements[1][j] = column.y();
    elements[2][j] = column.z();
    ++j;
  }
  set_matrix(elements);
  return 1;
}

int igs124::read_pd_data(igsInStream& in) {
  double elements[4][4] = {{}, {}, {}, {0, 0, 0, 1}};
  for (int i = 0; i < rows_in_file; ++i) {
    for (double& element : elements[i]) in.read_double(element);
  }
  set_matrix(elements);
  return 1;
}

void igs124::print_pd_data(utOstream& os) const {
  os << "Transform = {" << utEndl;
  utOstream inner(os, 1);
  inner << m_transform;
  os << '}' << utEndl;
}

// Hosts set two tolerances apart: kelTolMinValue says when a determinant is 1, kelTolRigidTransformDeterminant, which
// also bounds what is repaired, when a column has the length 1.
void igs124::check_pd() const {
  const coResourceTable& table = kel_resource_table_inquire();
  if (m_transform.invalid()) tag<igs124NoConstruct>();
  const double m44 = m_transform.element(3, 3);
  if (m44 != 1.0) tag<igs124NotHomogenous>(m44);

  const double determinant = m_transform.rotation_determinant();
  const double determinant_tolerance = table.value(kelTolMinValue);
  const int form = directory_entry().form_number();
  if (form == 0 && std::abs(determinant - 1) > determinant_tolerance) tag<igs124InvalidRHS>(determinant);
  if (form == 1 && std::abs(determinant + 1) > determinant_tolerance) tag<igs124InvalidLHS>(determinant);

  const double unit_tolerance = table.value(kelTolRigidTransformDeterminant);
  const Columns columns = rotation_columns(m_transform);
  const auto not_unit = [unit_tolerance](const giVector3& c) { return std::abs(c.length() - 1) > unit_tolerance; };
  if (std::any_of(columns.begin(), columns.end(), not_unit)) tag<igs124InvalidUnitVectors>();
}

void igs124::check_de() const {
  const igsDirectoryEntry& entry = directory_entry();
  const igsObject* const own_matrix = entry.matrix().object();
  if (own_matrix != nullptr) {
    if (!own_matrix->isa(igs124::type())) tag<igsDEInvalidMatrix>();
    if (own_matrix->check() == 0) tag_reference<igsDEInvalidMatrixData>(entry.matrix());
  }
  if (!entry.status_flags().valid()) tag<igsDEInvalidStatusFlags>();
  if (entry.entity_subscript() < 0) tag<igsDEInvalidEntitySubscript>(entry.entity_subscript());
}
