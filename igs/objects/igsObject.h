#pragma once

#include <new>
#include <utility>

#include "igs/objects/igsEntityType.h"
#include "igs/objects/igsInFileMemory.h"
#include "igs/objects/igsObjectPtr.h"
#include "igs/support/export.h"
#include "igs/support/igsTyped.h"
#include "igs/support/kluTypeInfo.h"
#include "igs/support/utString.h"

class igsDirectoryEntry;
class igsFieldVisitor;
class igsFile;
class igsInStream;
class igsObjectError;
class igsOutStream;
class igsStructureError;
class utOstream;

/// Is handed the pointers that an entity's parameter data hold.
class IGS_API igsPointerVisitor {
 public:
  virtual ~igsPointerVisitor();
  /// Is called for null pointers, too. May change the pointer.
  virtual void visit(igsObjectPtr& pointer) = 0;
};

/// An IGES entity. Constructing one registers it with the current file (igsObjectSystem::set_current_file), which gives
/// it a DE number and owns it from then on: create entities with `new`. Deleting one makes every pointer to it null.
class IGS_API igsObject : public igsInFileMemory, public igsTypedRoot<"igsObject"> {
 public:
  /// A new entity of the class that stands for the type and form; an igsUnknown where none does.
  static igsObject* create(igsEntityType type, int form);

  igsObject(const igsObject&) = delete;
  igsObject& operator=(const igsObject&) = delete;
  virtual ~igsObject();

  /// A new, default-constructed entity of the same class.
  virtual igsObject* make_one() = 0;
  /// Reads the entity's own parameter fields, after the type number; 0 when nothing usable could be read.
  virtual int read_pd_data(igsInStream& in) = 0;
  /// Writes these fields, without the type number.
  virtual void write_pd_data(igsOutStream& out) = 0;
  /// Prints them with their labels, a line each.
  virtual void print_pd_data(utOstream& os) const = 0;
  /// Validates the parameter data, tagging one error a fault.
  virtual void check_pd() const = 0;
  /// Validates the directory entry: igsDirectoryEntry's common check unless a class has rules of its own.
  virtual void check_de() const;
  /// Gives an error, which its constructor has logged, the file's message stream, if there is one. Null is ignored.
  virtual void tag_error(igsStructureError* error) const;
  /// As above, and makes it this entity's: sets its key to the DE number. Errors that are never tagged have no entity.
  virtual void tag_error(igsObjectError* error) const;
  /// Creates an error of class `Error` and tags this entity with it.
  template <class Error, class... Values>
  void tag(Values&&... values) const {
    tag_error(new (std::nothrow) Error(std::forward<Values>(values)...));
  }
  /// As tag(), for an error that says that the entity `target` fails its own check.
  template <class Error, class... Values>
  void tag_reference(const igsObjectPtr& target, Values&&... values) const {
    Error* const error = new (std::nothrow) Error(std::forward<Values>(values)...);
    if (error != nullptr) error->set_obj(target.de_number());
    tag_error(error);
  }
  /// Gives up every reference that the directory entry and the parameter data hold.
  virtual void unreference_children();
  /// True when the entity is of the class `t` or of one derived from it.
  virtual bool typeof(const kluTypeInfo& t) const { return id.childof(t); }
  /// The type record of the entity's class, which has its name.
  virtual const kluTypeInfo& objtype() const { return id; }
  /// True when the entity is of exactly the class `t`.
  virtual bool isa(const kluTypeInfo& t) const { return id == t; }
  /// Shows every pointer of the parameter data, in field order.
  virtual void visit_pointers(igsPointerVisitor& visitor);
  /// Shows the parameter fields that write_pd_data writes.
  virtual void visit_fields(igsFieldVisitor& visitor) const;

  /// 1, 3, 5, ...; may change when the file is written.
  int de_number() const { return m_manager != nullptr ? 2 * m_manager->system_location() + 1 : 0; }
  igsDirectoryEntry& directory_entry() const { return *m_manager->directory_entry(); }
  igsFile& file() const { return *m_manager->file(); }
  igsObjectManager* manager() const { return m_manager; }
  /// The entity type's name, "Line" for example; empty for a type that the standard does not know.
  const utString& name() const;
  /// Number of pointers to this entity.
  int num_references() const { return m_manager->num_references(); }
  /// Number of active errors under this DE number in the object and structure logs of the entity's file.
  int num_logged_errors() const;

  /// Validates the entity and everything it refers to, once a pass: 1 when it has no logged errors. Object errors of an
  /// earlier check are dropped first. Chains of references of any length and cycles are safe.
  int check() const;
  /// Prints the entity, and those it refers to within it. An entity met again in the same pass is printed as its
  /// heading line alone. Entities nested deeper than 32 stand as far in as the first of them, so that long chains of
  /// references give no long lines. Chains of any length and cycles are safe.
  void print(utOstream& os) const;

 protected:
  igsObject();

  /// Reads the type number at the head of the parameter data: 1 when it is that of the directory entry; otherwise logs
  /// an error and returns 0.
  int read_pd_entity_type(igsInStream& in);
  /// Reads over the trailing groups of associativity and property pointers; none of them is kept.
  void read_additional_entity_pointers(igsInStream& in);
  /// Passes over the records of this entity that were not read.
  void skip_this_entity(igsInStream& in);
  void set_directory_entry_type(igsEntityType type, int form);
  /// Read and write the whole parameter data record, type number included; the parts of igsFile::read and
  /// igsFile::write that concern one entity. Records out of sequence set `sequence_out_of_order` to 1.
  void read(igsInStream& in, int& sequence_out_of_order);
  /// The other way round.
  void write(igsOutStream& out);

 private:
  friend class igsFactory;
  friend class igsFile;

  void set_manager(igsObjectManager* manager) { m_manager = manager; }
  void check_this() const;
  void check_with_own_stack() const;
  void begin_check() const;
  void print_this(utOstream& os) const;
  void print_with_own_stack(utOstream& os) const;

  igsObjectManager* m_manager = nullptr;
};
