#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsSurface.h"
#include "igs/support/giPoint.h"
#include "igs/support/undefined.h"

/// Plane (IGES 5.3, type 108): the points with A x + B y + C z = D, in model units. Form 0 is unbounded; form 1 is the
/// region inside a closed curve, form -1 the plane with that region as a hole.
class IGS_API igs108 : public igsEntity<igs108, "igs108", igsUnparameterizedSurface> {
 public:
  /// Form 0, the coefficients undefined (-DBL_MAX).
  igs108();

  double a() const { return m_a; }
  double b() const { return m_b; }
  double c() const { return m_c; }
  double d() const { return m_d; }
  void set_coefficients(double a, double b, double c, double d);
  /// The closed curve of forms 1 and -1, which lies in the plane; null in form 0.
  const igsObjectPtr& boundary() const { return m_boundary; }
  void set_boundary(const igsObjectPtr& boundary) { m_boundary = boundary; }
  /// Where a symbol shows an unbounded plane, and how large it is; size 0: there is none.
  const giPoint3& symbol_location() const { return m_symbol_location; }
  void set_symbol_location(const giPoint3& location) { m_symbol_location = location; }
  double symbol_size() const { return m_symbol_size; }
  void set_symbol_size(double size) { m_symbol_size = size; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("A", entity.m_a);
    visit("B", entity.m_b);
    visit("C", entity.m_c);
    visit("D", entity.m_d);
    visit("Boundary", entity.m_boundary);
    visit("SymbolLocation", entity.m_symbol_location);
    visit("SymbolSize", entity.m_symbol_size);
  }

 private:
  void check_boundary() const;

  double m_a = igs_undefined_real;
  double m_b = igs_undefined_real;
  double m_c = igs_undefined_real;
  double m_d = igs_undefined_real;
  igsObjectPtr m_boundary;
  giPoint3 m_symbol_location{0, 0, 0};
  double m_symbol_size = 0;
};
