#pragma once

#include "igs/file/igsFileOptions.h"
#include "igs/objects/igsEntityType.h"
#include "igs/support/export.h"

class igsObject;

/// A range of form numbers of one entity type and the object that makes entities for it; `option`, unless it is null,
/// says which option a file must have been asked for before it has these forms.
class IGS_API igsFactoryShop {
 public:
  igsFactoryShop(int min_form, int max_form, igsObject* object, bool igsFileOptions::*option = nullptr)
      : m_min_form_number(min_form), m_max_form_number(max_form), m_object(object), m_option(option) {}
  int min_form_number() const { return m_min_form_number; }
  int max_form_number() const { return m_max_form_number; }
  /// The prototype, shared by all copies of the shop. It belongs to no file and is never deleted.
  igsObject* object() const { return m_object; }
  /// True when the shop stands for this form in a file with these options.
  bool sells(int form, const igsFileOptions& options) const {
    return m_min_form_number <= form && form <= m_max_form_number && (m_option == nullptr || options.*m_option);
  }

 private:
  int m_min_form_number;
  int m_max_form_number;
  igsObject* m_object;
  bool igsFileOptions::*m_option;
};

/// Makes an entity of the class that stands for an entity type and form. The library's own classes are registered in
/// one table (igsFactory.cpp); a host registers a class of its own by constructing an igsFactory, a static member of
/// the class for example, before it reads files and before it starts threads that do. The library's classes have no
/// such member: it could be asked nothing, and would have to be there before whatever else is static.
class IGS_API igsFactory {
 public:
  /// Registers `prototype` for forms `min_form` to `max_form` of `type`, after the ranges registered so far. The
  /// prototype leaves the file that its construction registered it with, and must live as long as the process.
  igsFactory(igsEntityType type, int min_form, int max_form, igsObject* prototype);

  /// A new, default-constructed entity in the current file; an igsUnknown when no range covers the type and form.
  static igsObject* make_one(igsEntityType type, int form) { return make_one(type, form, {}); }
  /// As above, with the forms that only a file with such options has.
  static igsObject* make_one(igsEntityType type, int form, const igsFileOptions& options);
};
