#pragma once

#include "igs/objects/igsObject.h"

/// The half of the entity pattern (igsEntity) of a class that reads and prints in its own way: its `fields` states what
/// is written, and takes a const entity alone. The class defines read_pd_data and print_pd_data, and shows the pointers
/// among its fields, if there are any.
template <class Self, igsName Name, class Parent>
class IGS_API_TEMPLATE igsWrittenEntity : public igsTyped<Self, Name, Parent> {
 public:
  igsObject* make_one() override;
  void write_pd_data(igsOutStream& out) override;
  void visit_fields(igsFieldVisitor& visitor) const override;

 protected:
  igsWrittenEntity() = default;
};

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
class IGS_API_TEMPLATE igsEntity : public igsWrittenEntity<Self, Name, Parent> {
 public:
  int read_pd_data(igsInStream& in) override;
  void print_pd_data(utOstream& os) const override;
  void visit_pointers(igsPointerVisitor& visitor) override;

 protected:
  igsEntity() = default;
};
