#pragma once

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

/// Keeps the place of an entity whose type or form has no class.
class IGS_API igsUnknown : public igsPlaceholder<igsUnknown, "igsUnknown"> {
 public:
  igsUnknown();
  void print_pd_data(utOstream& os) const override;

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
};

/// The null entity (type 0), also what a repair leaves in the place of an entity that it removes.
class IGS_API igsNull : public igsPlaceholder<igsNull, "igsNull"> {
 public:
  igsNull();
  void print_pd_data(utOstream& os) const override;
};
