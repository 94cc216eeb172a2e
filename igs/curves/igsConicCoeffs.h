#pragma once

#include <array>

#include "igs/support/export.h"
#include "igs/support/undefined.h"

/// The values are part of the interface and never change. They are not the form numbers of igs104.
enum igsConicType : int {
  igsConicUnknown = 0,
  igsConicEllipse = 1,
  igsConicParabola = 2,
  igsConicHyperbola = 3,
};

/// The coefficients of a conic A x^2 + B x y + C y^2 + D x + E y + F = 0, in this order; each is -DBL_MAX until it is
/// set.
class IGS_API igsConicCoeffs {
 public:
  igsConicCoeffs() { m_values.fill(igs_undefined_real); }
  igsConicCoeffs(double a, double b, double c, double d, double e, double f) : m_values{a, b, c, d, e, f} {}
  explicit igsConicCoeffs(const double coeffs[6]);

  /// True when no coefficient is undefined.
  bool valid() const;
  /// Copies the six out.
  void coeffs(double coeffs[6]) const;
  /// Takes over the coefficients of `other`.
  void become(const igsConicCoeffs& other) { m_values = other.m_values; }

  /// What curve this is. The invariants are held against kelTolConicIsParabola first; where that leaves it open, their
  /// signs decide.
  igsConicType conic_type() const;

  bool operator==(const igsConicCoeffs&) const = default;

  template <class E, class V>
  static void fields(E& conic, V& visit) {
    constexpr const char* labels[] = {"A", "B", "C", "D", "E", "F"};
    for (std::size_t i = 0; i < conic.m_values.size(); ++i) visit(labels[i], conic.m_values[i]);
  }

 private:
  std::array<double, 6> m_values;
};
