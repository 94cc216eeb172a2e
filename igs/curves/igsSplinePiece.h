#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "igs/support/undefined.h"
#include "igs/support/utOstream.h"

/// The coefficients of a polynomial, in the order of the entity that it belongs to; -DBL_MAX each until they are set.
template <std::size_t N>
class igsPolynomial {
 public:
  igsPolynomial() { m_coefficients.fill(igs_undefined_real); }
  explicit igsPolynomial(const std::array<double, N>& coefficients) : m_coefficients(coefficients) {}

  /// All of them.
  const std::array<double, N>& coefficients() const { return m_coefficients; }
  /// `i` has to be below `N`.
  double& operator[](std::size_t i) { return m_coefficients[i]; }
  double operator[](std::size_t i) const { return m_coefficients[i]; }

  /// Prints "(a, b, ...)".
  void print(utOstream& os) const {
    for (std::size_t i = 0; i < N; ++i) os << (i == 0 ? "(" : ", ") << m_coefficients[i];
    os << ')';
  }
  bool operator==(const igsPolynomial&) const = default;

 private:
  std::array<double, N> m_coefficients;
};

/// A segment of a Parametric Spline Curve or a patch of a Parametric Spline Surface: a polynomial a coordinate.
template <std::size_t N>
struct igsSplinePiece {
  /// Number of coefficients.
  static constexpr std::size_t size = 3 * N;

  /// One a coordinate.
  igsPolynomial<N> x, y, z;

  bool operator==(const igsSplinePiece&) const = default;

  template <class E, class V>
  static void fields(E& piece, V& visit) {
    visit("X", piece.x);
    visit("Y", piece.y);
    visit("Z", piece.z);
  }
};

/// Copy piece `i` out of or into the coefficients of all pieces and return 1; return 0 where there is none.
template <std::size_t N>
int igs_get_piece(std::span<const double> coefficients, std::size_t i, igsSplinePiece<N>& piece) {
  if (i >= coefficients.size() / piece.size) return 0;
  const double* next = coefficients.data() + i * piece.size;
  for (igsPolynomial<N>* const polynomial : {&piece.x, &piece.y, &piece.z}) {
    for (std::size_t k = 0; k < N; ++k) (*polynomial)[k] = *next++;
  }
  return 1;
}
template <std::size_t N>
int igs_set_piece(std::span<double> coefficients, std::size_t i, const igsSplinePiece<N>& piece) {
  if (i >= coefficients.size() / piece.size) return 0;
  double* next = coefficients.data() + i * piece.size;
  for (const igsPolynomial<N>* const polynomial : {&piece.x, &piece.y, &piece.z}) {
    next = std::copy_n(polynomial->coefficients().data(), N, next);
  }
  return 1;
}
/// True when a coefficient of piece `i`, which must exist, was never set.
template <std::size_t N>
bool igs_piece_is_unset(std::span<const double> coefficients, std::size_t i) {
  const double* const first = coefficients.data() + i * igsSplinePiece<N>::size;
  return std::any_of(first, first + igsSplinePiece<N>::size, igs_is_undefined_real);
}
