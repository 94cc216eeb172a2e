#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsCurve.h"
#include "igs/support/giVector.h"
#include "igs/support/undefined.h"

/// Offset Curve (IGES 5.3, type 130): runs at a distance beside a planar curve, the base curve, in its plane. Lengths
/// are model units. Fields that the offset type does not need are 0 and are not checked.
class IGS_API igs130 : public igsEntity<igs130, "igs130", igsCurve> {
 public:
  igs130();

  const igsObjectPtr& base_curve() const { return m_base_curve; }
  void set_base_curve(const igsObjectPtr& curve) { m_base_curve = curve; }
  /// FLAG: 1 one distance, 2 from one distance to another, 3 a function.
  int offset_type() const { return m_offset_type; }
  void set_offset_type(int type) { m_offset_type = type; }

  /// DE2, for type 3: the curve one of whose coordinates is the distance.
  const igsObjectPtr& offset_function() const { return m_offset_function; }
  void set_offset_function(const igsObjectPtr& curve) { m_offset_function = curve; }
  /// NDIM, for type 3: that coordinate, 1 to 3.
  int coordinate() const { return m_coordinate; }
  void set_coordinate(int coordinate) { m_coordinate = coordinate; }
  /// PTYPE, for types 2 and 3: the distance depends on 1 the arc length, 2 the parameter of the base curve.
  int taper_type() const { return m_taper_type; }
  void set_taper_type(int type) { m_taper_type = type; }

  /// D1 and D2: the distance for type 1 (D1), or the distances at both ends for type 2.
  double distance1() const { return m_distance1; }
  double distance2() const { return m_distance2; }
  void set_distance1(double distance) { m_distance1 = distance; }
  void set_distance2(double distance) { m_distance2 = distance; }
  /// TD1 and TD2, for type 2: the arc length or parameter values of these ends.
  double parameter1() const { return m_parameter1; }
  double parameter2() const { return m_parameter2; }
  void set_parameter1(double parameter) { m_parameter1 = parameter; }
  void set_parameter2(double parameter) { m_parameter2 = parameter; }

  /// Of the base curve's plane, of length 1.
  const giVector3& normal() const { return m_normal; }
  /// Returns 1; returns 0 and stores nothing for an undefined vector.
  int set_normal(const giVector3& normal) { return igs_set_defined(m_normal, normal); }
  /// TT1 and TT2, between which the base curve is offset, in its parameter.
  double start_parameter() const { return m_start_parameter; }
  double end_parameter() const { return m_end_parameter; }
  void set_start_parameter(double parameter) { m_start_parameter = parameter; }
  void set_end_parameter(double parameter) { m_end_parameter = parameter; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("BaseCurve", entity.m_base_curve);
    visit("OffsetType", entity.m_offset_type);
    visit("OffsetFunction", entity.m_offset_function);
    visit("Coordinate", entity.m_coordinate);
    visit("TaperType", entity.m_taper_type);
    visit("Distance1", entity.m_distance1);
    visit("Parameter1", entity.m_parameter1);
    visit("Distance2", entity.m_distance2);
    visit("Parameter2", entity.m_parameter2);
    visit("Normal", entity.m_normal);
    visit("StartParameter", entity.m_start_parameter);
    visit("EndParameter", entity.m_end_parameter);
  }

 private:
  void check_offset() const;
  void check_normal() const;

  igsObjectPtr m_base_curve;
  int m_offset_type = 1;
  igsObjectPtr m_offset_function;
  int m_coordinate = 0;
  int m_taper_type = 0;
  double m_distance1 = 0;
  double m_parameter1 = 0;
  double m_distance2 = 0;
  double m_parameter2 = 0;
  giVector3 m_normal;
  double m_start_parameter = 0;
  double m_end_parameter = 0;
};
