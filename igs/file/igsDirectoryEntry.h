#pragma once

#include <memory>
#include <utility>

#include "igs/file/igsDEAttribute.h"
#include "igs/file/igsStatusFlags.h"
#include "igs/objects/igsEntityType.h"
#include "igs/objects/igsInFileMemory.h"
#include "igs/objects/igsObjectPtr.h"
#include "igs/support/export.h"
#include "igs/support/utString.h"

template <class Text>
struct igsDirectoryFields;
class igsObjectManager;
class igsOutStream;
class igsPointerVisitor;
class utOstream;

/// The directory entry of one entity: twenty 8-column fields in two records (IGES 5.3, section 2.2.4.4). Owned by the
/// file. Values are kept as read; checks tell which of them are valid.
class IGS_API igsDirectoryEntry {
 public:
  igsDirectoryEntry() = default;
  igsDirectoryEntry(const igsDirectoryEntry&) = delete;
  igsDirectoryEntry& operator=(const igsDirectoryEntry&) = delete;

  /// Copies every field of the other entry, entity type and form too; the owner stays.
  void become(const igsDirectoryEntry& other);

  igsEntityType entity_type() const { return m_entity_type; }
  int form_number() const { return m_form_number; }
  void set_form_number(int form) { m_form_number = form; }
  /// Sequence number of the entity's first Parameter Data record; meaningful after reading or writing.
  int start_of_parameter_data() const { return m_parameter_data_pointer; }
  void set_start_of_parameter_data(int line) { m_parameter_data_pointer = line; }
  /// Number of Parameter Data records; meaningful after reading or writing.
  int parameter_line_count() const { return m_parameter_line_count; }
  void set_parameter_line_count(int count) { m_parameter_line_count = count; }
  /// Field 3 as it stands in the file; one that is negative follows the entity that it refers to, and becomes 0 when
  /// that goes, in a file that keeps such references (igsFileOptions::keep).
  int structure() const;
  void set_structure(int structure);
  const igsLineFont& line_font() const { return m_line_font; }
  void set_line_font(const igsLineFont& font) { m_line_font = font; }
  const igsLevel& level() const { return m_level; }
  void set_level(const igsLevel& level) { m_level = level; }
  /// Null: seen in all views.
  const igsObjectPtr& view() const { return rare().view; }
  void set_view(const igsObjectPtr& view);
  void remove_view() { set_view(igsObjectPtr()); }
  /// Null: the identity.
  const igsObjectPtr& matrix() const { return m_matrix; }
  void set_matrix(const igsObjectPtr& matrix) { m_matrix = matrix; }
  /// Null: the label stands where the system that reads has it.
  const igsObjectPtr& label_display() const { return rare().label_display; }
  void set_label_display(const igsObjectPtr& label_display);
  const igsStatusFlags& status_flags() const { return m_status_flags; }
  void set_status_flags(const igsStatusFlags& flags) { m_status_flags = flags; }
  int line_weight() const { return m_line_weight; }
  void set_line_weight(int weight) { m_line_weight = weight; }
  const igsColour& colour() const { return m_colour; }
  void set_colour(const igsColour& colour) { m_colour = colour; }
  /// At most 8 characters of it fit in a file, which always gives it 8. Good until it is set.
  const utString& entity_label() const { return rare().label; }
  void set_entity_label(const utString& label);
  int entity_subscript() const { return m_entity_subscript; }
  void set_entity_subscript(int subscript) { m_entity_subscript = subscript; }

  igsObjectManager* manager() const { return m_manager; }

  /// Tags the entity's object errors, in this order: line font, level, transformation matrix (class, then its own
  /// check), colour, status flags, line weight against the Global section's gradations, subscript.
  void common_check() const;
  /// As common_check() without the matrix, for directions; a negative line weight is not reported.
  void direction_check() const;
  /// As common_check(), and the entity use flag of entities that describe a shape (IGES 5.3, section 2.2.4.4.9.3): they
  /// are no logical or positional reference, and only those that lie in the parameter space of a surface are 2D
  /// parametric. igsDEInvalidEntityUse demands geometry, 0, in their place.
  void shape_check(bool may_be_parametric) const;

  void print(utOstream& os) const;

 protected:
  /// Gives up every pointer of the entry (igsObjectPtr::unreference).
  void unreference_children();

 private:
  friend class igsFile;
  friend class igsObject;

  /// What most entries do not have.
  struct Rare : igsInFileMemory {
    Rare() = default;
    explicit Rare(utString label) : label(std::move(label)) {}

    igsObjectPtr view;
    igsObjectPtr label_display;
    utString label;
  };

  void set_manager(igsObjectManager* manager) { m_manager = manager; }
  /// Shows the pointers of the entry that are not null.
  void visit_pointers(igsPointerVisitor& visitor);
  void set_type(igsEntityType type, int form) {
    m_entity_type = type;
    m_form_number = form;
  }
  /// Takes over what has been read, but for the entity type; the label is eight blanks where `label_is_blank`.
  void take(const igsDirectoryFields<utString>& fields, bool label_is_blank);
  /// Writes the entry's two records.
  void write(igsOutStream& out) const;
  void check(bool with_matrix, int min_line_weight) const;
  void check_matrix() const;
  bool keeps_structure() const;
  const Rare& rare() const { return m_rare != nullptr ? *m_rare : no_rare(m_label_is_blank); }
  static const Rare& no_rare(bool blank_label);
  Rare& make_rare();

  igsObjectManager* m_manager = nullptr;
  igsEntityType m_entity_type = igsEntityType(-1);
  int m_form_number = 0;
  int m_parameter_data_pointer = 0;
  int m_parameter_line_count = 0;
  int m_structure = 0;
  int m_line_weight = 0;
  igsStatusFlags m_status_flags;
  bool m_label_is_blank = false;  ///< eight blanks; only without m_rare
  igsLineFont m_line_font;
  igsLevel m_level;
  igsColour m_colour;
  [[no_unique_address]] igsObjectPtr m_matrix;
  int m_entity_subscript = 0;
  std::unique_ptr<Rare> m_rare;
};
