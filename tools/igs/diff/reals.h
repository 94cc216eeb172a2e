#pragma once

/// When two reals of two files count as the same.
class RealRule {
 public:
  /// Equal doubles; two NaNs, too.
  static RealRule exact() { return {Kind::exact, 0, 0}; }
  /// At most `tolerance` apart.
  static RealRule within(double tolerance) { return {Kind::tolerance, tolerance, 0}; }
  /// Equal when both are rounded to so many significant digits, as a writer rounds them.
  static RealRule rounded(int digits) { return {Kind::digits, 0, digits}; }

  bool same(double a, double b) const;
  /// A value that same reals nearly always share, so that it can stand for them in a hash.
  double representative(double value) const;
  /// What is said of reals that are the same although the doubles differ.
  const char* excuse() const { return m_kind == Kind::digits ? "by rounding alone" : "within the tolerance"; }

 private:
  enum class Kind { exact, tolerance, digits };
  RealRule(Kind kind, double tolerance, int digits) : m_kind(kind), m_tolerance(tolerance), m_digits(digits) {}

  Kind m_kind;
  double m_tolerance;
  int m_digits;
};

/// Equal doubles; two NaNs, too.
bool equal_reals(double a, double b);
