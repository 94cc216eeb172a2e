#include "igs/objects/igsObject.h"

#include <vector>

#include "igs/catalogue/igsFactory.h"
#include "igs/catalogue/igsInfoDB.h"
#include "igs/errors/igsError.h"
#include "igs/errors/igsErrorLog.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/input/igsInStream.h"
#include "igs/objects/igsFieldVisitor.h"
#include "igs/objects/igsKeptParts.h"
#include "igs/objects/igsObjectManager.h"
#include "igs/output/igsOutStream.h"

igsPointerVisitor::~igsPointerVisitor() = default;

igsFieldVisitor::~igsFieldVisitor() = default;

igsObject* igsObject::create(igsEntityType type, int form) { return igsFactory::make_one(type, form); }

igsObject::igsObject() { igsObjectSystem::object_created(this); }

igsObject::~igsObject() {
  if (m_manager != nullptr) m_manager->file()->object_deleted(this);
}

void igsObject::check_de() const { directory_entry().common_check(); }

void igsObject::tag_error(igsStructureError* error) const {
  if (error == nullptr) return;
  if (file().message_stream() != nullptr) error->set_message_stream(file().message_stream());
}

void igsObject::tag_error(igsObjectError* error) const {
  if (error == nullptr) return;
  error->set_key(de_number());
  if (file().message_stream() != nullptr) error->set_message_stream(file().message_stream());
}

namespace {
class Unreference : public igsPointerVisitor {
 public:
  void visit(igsObjectPtr& pointer) override { pointer.unreference(); }
};

class UnreferencingScope {
 public:
  explicit UnreferencingScope(igsObjectManager& manager) : m_manager(manager) { m_manager.set_unreferencing(true); }
  ~UnreferencingScope() { m_manager.set_unreferencing(false); }
  UnreferencingScope(const UnreferencingScope&) = delete;
  UnreferencingScope& operator=(const UnreferencingScope&) = delete;

 private:
  igsObjectManager& m_manager;
};

/// The entities that an entity's check asks to be checked, in that order.
class CheckedChildren : public igsPointerVisitor {
 public:
  explicit CheckedChildren(std::vector<const igsObject*>& children) : m_children(children) {}
  void visit(igsObjectPtr& pointer) override {
    if (pointer.object() != nullptr) m_children.push_back(pointer.object());
  }

 private:
  std::vector<const igsObject*>& m_children;
};
}  // namespace

void igsObject::unreference_children() {
  const UnreferencingScope unreferencing(*m_manager);
  directory_entry().unreference_children();
  Unreference unreference;
  visit_pointers(unreference);
}

void igsObject::visit_pointers(igsPointerVisitor& /*visitor*/) {}

void igsObject::visit_fields(igsFieldVisitor& /*visitor*/) const {}

const utString& igsObject::name() const { return igsInfoDB::entity_name(directory_entry().entity_type()); }

int igsObject::num_logged_errors() const {
  const igsErrorLog& log = file().error_log();
  const int de = de_number();
  return log.object_log().num_errors(de) + log.structure_log().num_errors(de);
}

void igsObject::set_directory_entry_type(igsEntityType type, int form) {
  if (m_manager != nullptr) directory_entry().set_type(type, form);
}

int igsObject::read_pd_entity_type(igsInStream& in) {
  int type = 0;
  in.read_integer(type);
  const int expected = directory_entry().entity_type();
  if (expected == -1 || expected == type) return 1;
  igs_report<igsFilePDEntityTypeMismatch>(de_number(), type);
  return 0;
}

void igsObject::read(igsInStream& in, int& sequence_out_of_order) {
  const bool nul_in_first_record = in.nul_in_record();  // stepping to it has forgotten the code
  if (read_pd_entity_type(in) != 0 && read_pd_data(in) != 0) {
    if (in.error_type(igsIONotANumber) != 0) igs_report<igsFileCorruptObjectData>(de_number());
    if (nul_in_first_record || in.error_type(igsIONullCharacter) != 0) {
      tag_error(igs_report<igsFilePDNullCharacters>(de_number()));
    }
    if (in.error_type(igsIOSequenceOutOfOrder) != 0) sequence_out_of_order = 1;
    m_manager->set_visited(1);
  }
  in.end_fields();
  if (in.reset() == 0) return;
  in.clear_errors();
  skip_this_entity(in);
}

void igsObject::read_additional_entity_pointers(igsInStream& in) {
  constexpr int groups = 2;  // associativities, then properties
  for (int group = 0; group < groups; ++group) {
    int count = 0;
    in.read_integer(count);
    for (int i = 0; i < count; ++i) {
      int ignored = 0;
      in.read_integer(ignored);
      if (in.take_value_present() == 0) break;  // the count is the file's word: stop where the record does
    }
  }
  if (in.reset() != 0) in.clear_errors();
}

void igsObject::skip_this_entity(igsInStream& in) {
  while (in.backpointer() != 0 && in.backpointer() == de_number() && in.fatal_error() == 0) in.skip_line();
}

void igsObject::write(igsOutStream& out) {
  const igsKeptParts* const parts = file().kept_parts(*this);
  if (parts == nullptr || parts->unread_fields.empty()) {
    out.write_integer(directory_entry().entity_type());
    write_pd_data(out);
  }
  if (parts != nullptr) parts->write(out);
}

int igsObject::check() const {
  // Checks call each other through references: on the call stack as far as that is surely deep enough.
  constexpr int max_check_depth = 201;

  // Most references lead to what has been checked.
  if (m_manager->visited() != 0 && igsTraversalScope::is_going_on()) return m_manager->validated();
  const igsTraversalScope traversal(file());
  if (m_manager->visited() == 0) {
    if (traversal.depth() <= max_check_depth) {
      begin_check();
      check_this();
    } else {
      check_with_own_stack();
    }
  }
  return m_manager->validated();
}

void igsObject::begin_check() const {
  m_manager->set_visited(1);
  m_manager->set_validated(1);  // the answer to those that come back to this entity on a cycle
  file().error_log().object_log().clear(de_number());
}

void igsObject::check_this() const {
  check_pd();
  check_de();
  m_manager->set_validated(num_logged_errors() == 0 ? 1 : 0);
}

// What nested calls would do, with a stack in memory: each entity after those that it refers to, which leaves nothing
// to do for the calls that its own check makes.
void igsObject::check_with_own_stack() const {
  struct Step {
    const igsObject* object;
    std::size_t first_child;
    std::size_t next_child;
  };
  std::vector<Step> path;
  std::vector<const igsObject*> children;
  const auto enter = [&](const igsObject* object) {
    object->begin_check();
    const std::size_t first = children.size();
    CheckedChildren collect(children);
    const_cast<igsObject*>(object)->visit_pointers(collect);
    if (const igsObject* const matrix = object->directory_entry().matrix().object()) children.push_back(matrix);
    path.push_back({object, first, first});
  };
  enter(this);
  while (!path.empty()) {
    Step& step = path.back();
    if (step.next_child < children.size()) {
      const igsObject* const child = children[step.next_child++];
      if (child->manager()->visited() == 0) enter(child);
    } else {
      step.object->check_this();
      children.resize(step.first_child);
      path.pop_back();
    }
  }
}
