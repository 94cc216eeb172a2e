#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

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
  std::array<double, N>& coefficients() { return m_coefficients; }
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

  /// True when a coefficient was never set.
  bool has_unset() const {
    const auto has_unset = [](const igsPolynomial<N>& polynomial) {
      return std::any_of(polynomial.coefficients().begin(), polynomial.coefficients().end(), igs_is_undefined_real);
    };
    return has_unset(x) || has_unset(y) || has_unset(z);
  }
  /// Makes 0 what was never set.
  void set_unset_to_zero() {
    for (igsPolynomial<N>* const polynomial : {&x, &y, &z}) {
      std::replace(polynomial->coefficients().begin(), polynomial->coefficients().end(), igs_undefined_real, 0.0);
    }
  }

  bool operator==(const igsSplinePiece&) const = default;

  template <class E, class V>
  static void fields(E& piece, V& visit) {
    visit("X", piece.x);
    visit("Y", piece.y);
    visit("Z", piece.z);
  }
};
