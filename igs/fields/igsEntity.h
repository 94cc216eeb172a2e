#pragma once

#include "igs/objects/igsObject.h"

/// The entity pattern, written once. A concrete class
///
///     class igs110 : public igsEntity<igs110, "igs110", igsCurve> {
///       ...
///       template <class E, class V>
///       static void fields(E& entity, V& visit);   // visit("StartPoint", entity.m_start_point); ...
///
/// states its parameter fields once, in file order, with their print labels; reading, writing, printing and the walks
/// over its pointers and fields follow from that list. A class whose data are irregular overrides those operations one
/// by one. The source file of the class includes igsEntityFields.h, which defines the members declared here.
template <class Self, igsName Name, class Parent>
class IGS_API_TEMPLATE igsEntity : public igsTyped<Self, Name, Parent> {
 public:
  igsObject* make_one() override;
  int read_pd_data(igsInStream& in) override;
  void write_pd_data(igsOutStream& out) override;
  void print_pd_data(utOstream& os) const override;
  void visit_pointers(igsPointerVisitor& visitor) override;
  void visit_fields(igsFieldVisitor& visitor) const override;

 protected:
  igsEntity() = default;
};
