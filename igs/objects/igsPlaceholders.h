#pragma once

#include "igs/input/igsFieldTexts.h"
#include "igs/objects/igsObject.h"

/// Common to the two entities that hold no data: nothing is read, so that the file driver passes over their records and
/// drops them after reading.
template <class Self, igsName Name>
class IGS_API_TEMPLATE igsPlaceholder : public igsTyped<Self, Name, igsObject> {
 public:
  igsObject* make_one() override { return new Self; }
  int read_pd_data(igsInStream& /*in*/) override { return 0; }
  void write_pd_data(igsOutStream& /*out*/) override {}
  void check_pd() const override {}
  void check_de() const override {}
};

/// Keeps the place of an entity whose type or form has no class; in a file that keeps such entities
/// (igsFileOptions::keep), its directory entry and its parameter data, too.
class IGS_API igsUnknown : public igsPlaceholder<igsUnknown, "igsUnknown"> {
 public:
  igsUnknown();
  void write_pd_data(igsOutStream& out) override;
  void print_pd_data(utOstream& os) const override;
  void visit_fields(igsFieldVisitor& visitor) const override;

  /// The fields behind the type number as they stand in the file; empty unless kept.
  const igsFieldTexts& fields() const { return m_fields; }
  void set_fields(igsFieldTexts fields) { m_fields = std::move(fields); }

  /// The type and form that the file gives for the entity.
  int type_in_file() const { return m_type_in_file; }
  int form_in_file() const { return m_form_in_file; }
  void set_type_in_file(int type, int form) {
    m_type_in_file = type;
    m_form_in_file = form;
  }

 private:
  int m_type_in_file = -1;
  int m_form_in_file = 0;
  igsFieldTexts m_fields;
};

/// The null entity (type 0), also what a repair leaves in the place of an entity that it removes.
class IGS_API igsNull : public igsPlaceholder<igsNull, "igsNull"> {
 public:
  igsNull();
  void print_pd_data(utOstream& os) const override;
};
